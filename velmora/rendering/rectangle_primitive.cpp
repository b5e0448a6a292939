#include "velmora/rendering/rectangle_primitive.h"

uint32_t VELRectanglePrimitive::o_drawRectPrimitiveWithBrush(const VELBrushPtr& brush, float fromX,
                                                             float fromY, float toX, float toY) {
  constexpr uint32_t count = 4;
  if (!isConnected()) return 0;
  if (!brush || !VELAreDrawable(fromX, fromY, toX, toY)) return nothingOnPurpose;
  if (!hasRoomFor(count)) return 0;

  _command->o_addBrushCommandWithBrush(brush);
  _command->o_addDrawRectCommandWithStart(indexHead(), count);
  const bool variative = brush->variativeColor();
  const Tint first = tintAt(*brush, fromX, fromY);
  const auto corner = [&](float x, float y) {
    return vertex(x, y, variative ? tintAt(*brush, x, y) : first);
  };
  VELVertex* const vertices = takeConsecutive(count);
  vertices[0] = vertex(fromX, fromY, first);
  vertices[1] = corner(toX, fromY);
  vertices[2] = corner(fromX, toY);
  vertices[3] = corner(toX, toY);
  return count;
}
