#include "velmora/rendering/rectangle_primitive.h"

#include <array>

uint32_t VELRectanglePrimitive::o_drawRectPrimitiveWithBrush(const VELBrushPtr& brush, float fromX,
                                                             float fromY, float toX, float toY) {
  constexpr uint32_t count = 4;
  if (!isConnected()) return 0;
  if (!brush) return nothingOnPurpose;
  for (const float coordinate : {fromX, fromY, toX, toY})
    if (!VELIsDrawable(coordinate)) return nothingOnPurpose;
  if (!hasRoomFor(count)) return 0;

  _command->o_addBrushCommandWithBrush(brush);
  _command->o_addDrawRectCommandWithStart(indexHead(), count);
  struct Corner {
    float x, y;
  };
  const std::array<Corner, count> corners = {{{fromX, fromY}, {toX, fromY}, {fromX, toY}, {toX, toY}}};
  const bool variative = brush->variativeColor();
  const Tint whole = tintAt(*brush, fromX, fromY);
  VELVertex* const vertices = takeConsecutive(count);
  for (size_t i = 0; i < corners.size(); ++i)
    vertices[i] =
        vertex(corners[i].x, corners[i].y, variative ? tintAt(*brush, corners[i].x, corners[i].y) : whole);
  return count;
}
