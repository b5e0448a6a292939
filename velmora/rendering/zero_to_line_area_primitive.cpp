#include "velmora/rendering/zero_to_line_area_primitive.h"

uint32_t VELZeroToLineAreaPrimitive::o_beginZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x,
                                                                    float y, float zero, bool isVertical) {
  if (!isConnected()) return 0;
  o_reset();
  // A full buffer hears of the brush as well: the shader is then set before the switch to the next one.
  if (brush && VELAreDrawable(x, y, zero)) _command->o_addBrushCommandWithBrush(brush);
  return o_expandZeroToLineAreaWithBrush(brush, x, y, zero, isVertical);
}

uint32_t VELZeroToLineAreaPrimitive::o_expandZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x,
                                                                     float y, float zero, bool isVertical) {
  if (!isConnected()) return 0;
  if (!brush || !VELAreDrawable(x, y, zero)) return leaveGap();
  return brush->variativeColor() ? p_VEL_step<true>(brush, x, y, zero, isVertical)
                                 : p_VEL_step<false>(brush, x, y, zero, isVertical);
}

// Never inlined: the common step does not cross and keeps its registers.
void VELZeroToLineAreaPrimitive::p_VEL_writeCrossing(const VELBrush2D& brush, double x, double y, double zero,
                                                     bool isVertical, bool variative, const Tint& whole) {
  const double lastX = double{_lastX}, lastY = double{_lastY};
  const double atX = isVertical ? zero : (x - lastX) * (zero - lastY) / (y - lastY) + lastX;
  const double atY = isVertical ? (y - lastY) * (zero - lastX) / (x - lastX) + lastY : zero;
  *takeConsecutive(1) = vertex(atX, atY, variative ? tintAt(brush, atX, atY) : whole);
  // The index again, so that the winding turns over with the side.
  _buffer->o_addIndicesUpdateRange(1);
  uint16_t* const tail = _buffer->o_indexBufferTail();
  tail[0] = tail[-1];
  ++_buffer->o_getBufferInfo().dbi_indexHead;
}

template <bool variative>
uint32_t VELZeroToLineAreaPrimitive::p_VEL_step(const VELBrushPtr& brush, float x, float y, float zero,
                                                bool isVertical) {
  // One colour is asked first: without a call in their way the numbers below stay in registers.
  const Tint whole = variative ? Tint() : tintAt(*brush, double{x}, double{y});
  const bool restart = !isOpen() || (x == _lastX && y == _lastY);
  // In doubles, where the product of two coordinates neither overflows nor vanishes.
  const double last = double{isVertical ? _lastX : _lastY}, now = double{isVertical ? x : y};
  const bool crosses = !restart && (last - double{zero}) * (now - double{zero}) < 0.0;
  const uint32_t vertexCount = crosses ? 3 : 2, indexCount = crosses ? 4 : 2;
  if (!hasRoomForStep(vertexCount, indexCount, restart)) return 0;

  _command->o_addBrushCommandWithBrush(brush);
  const uint32_t written = announceStep(vertexCount, indexCount, restart);
  if (crosses) p_VEL_writeCrossing(*brush, double{x}, double{y}, double{zero}, isVertical, variative, whole);
  const float footX = isVertical ? zero : x, footY = isVertical ? y : zero;
  VELVertex* const pair = takeConsecutive(pairCount);
  pair[0] = vertex(x, y, variative ? tintAt(*brush, double{x}, double{y}) : whole);
  pair[1] = vertex(footX, footY, variative ? tintAt(*brush, double{footX}, double{footY}) : whole);
  keepPair(pair);
  _lastX = x;
  _lastY = y;
  return written;
}
