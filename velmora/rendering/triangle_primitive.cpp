#include "velmora/rendering/triangle_primitive.h"

uint32_t VELTrianglePrimitive::o_drawTrianglePrimitiveWithBrush(const VELBrushPtr& brush, float x1, float y1,
                                                                float x2, float y2, float x3, float y3) {
  constexpr uint32_t count = 3;
  if (!isConnected()) return 0;
  if (!brush || !VELAreDrawable(x1, y1, x2, y2, x3, y3)) return nothingOnPurpose;
  if (!hasRoomFor(count)) return 0;

  _command->o_addBrushCommandWithBrush(brush);
  _command->o_addDrawTriangleCommandWithStart(indexHead(), count);
  const bool variative = brush->variativeColor();
  const Tint first = tintAt(*brush, x1, y1);
  VELVertex* const vertices = takeConsecutive(count);
  vertices[0] = vertex(x1, y1, first);
  vertices[1] = vertex(x2, y2, variative ? tintAt(*brush, x2, y2) : first);
  vertices[2] = vertex(x3, y3, variative ? tintAt(*brush, x3, y3) : first);
  return count;
}
