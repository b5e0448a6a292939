#include "velmora/rendering/textured_rectangle_primitive.h"

uint32_t VELTexturedRectanglePrimitive::o_drawTexturedRectWithBrush(const VELBrushPtr& brush, float fromX,
                                                                    float fromY, float toX, float toY) {
  constexpr uint32_t count = 4;
  constexpr uint16_t far = 65535;
  if (!isConnected()) return 0;
  if (!brush || !VELAreDrawable(fromX, fromY, toX, toY)) return nothingOnPurpose;
  if (!hasRoomFor(count)) return 0;

  _command->o_addBrushCommandWithBrush(brush);
  _command->o_addDrawRectCommandWithStart(indexHead(), count);
  const bool variative = brush->variativeColor();
  const uint32_t first = brush->colorCodeAtX(double{fromX}, double{fromY});
  const auto colorAt = [&](float x, float y) {
    return variative ? brush->colorCodeAtX(double{x}, double{y}) : first;
  };
  VELVertex* const vertices = takeConsecutive(count);
  vertices[0] = {fromX, fromY, first, 0, 0};
  vertices[1] = {toX, fromY, colorAt(toX, fromY), far, 0};
  vertices[2] = {fromX, toY, colorAt(fromX, toY), 0, far};
  vertices[3] = {toX, toY, colorAt(toX, toY), far, far};
  return count;
}
