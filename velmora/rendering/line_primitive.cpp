#include "velmora/rendering/line_primitive.h"

#include "velmora/rendering/thick_segment.h"

uint32_t VELLinePrimitive::o_drawLinePrimitiveWithBrush(const VELPenPtr& pen, float fromX, float fromY,
                                                        float toX, float toY) {
  constexpr uint32_t count = 4;
  if (!isConnected()) return 0;
  if (!pen || !VELAreDrawable(pen->strokeThickness(), fromX, fromY, toX, toY)) return nothingOnPurpose;
  if (!hasRoomFor(count)) return 0;

  _command->o_addBrushCommandWithBrush(pen);
  _command->o_addDrawLineCommandWithStart(indexHead(), count);
  const VELThickSegment edge = VELMakeThickSegment(fromX, fromY, toX, toY, pen->strokeThickness());
  const Tint from = tintAt(*pen, fromX, fromY);
  const Tint to = pen->variativeColor() ? tintAt(*pen, toX, toY) : from;
  VELVertex* const vertices = takeConsecutive(count);
  vertices[0] = vertex(fromX + edge.x, fromY + edge.y, from);
  vertices[1] = vertex(fromX - edge.x, fromY - edge.y, from);
  vertices[2] = vertex(toX + edge.x, toY + edge.y, to);
  vertices[3] = vertex(toX - edge.x, toY - edge.y, to);
  return count;
}
