// rendering/drawing_primitive.h: what every kind of shape needs to write itself.
//
// Coordinates are points relative to the drawing area. A drawing operation answers 0 when it has no buffer or
// queue or when the buffer lacks room, otherwise a count above 0; what draws nothing on purpose answers 1.
#pragma once

#include <cfloat>
#include <cmath>
#include <cstdint>

#include "velmora/rendering/brush.h"
#include "velmora/rendering/drawing_buffer.h"
#include "velmora/rendering/drawing_queue.h"

/// True for a coordinate that a shape may be drawn from: NaN, infinities and doubles beyond the float range
/// are not. The width of a pen, added close to the end of that range, may still round to infinity.
inline bool VELIsDrawable(double coordinate) { return std::abs(coordinate) <= double{FLT_MAX}; }

inline bool VELIsDrawable(float coordinate) { return std::abs(coordinate) <= FLT_MAX; }
/// The same of all of them.
template <typename... Coordinates>
bool VELAreDrawable(Coordinates... coordinates) {
  return (VELIsDrawable(coordinates) && ...);
}

/// A shape writer. Buffer and queue belong to the render context.
class VELDrawingPrimitive {
 public:
  void o_setDrawingBuffer(VELDrawingBuffer* buffer) { _buffer = buffer; }
  void o_setCommandQueue(VELOpenGLDrawingQueue* queue) { _command = queue; }

 protected:
  /// Room that is kept free after every shape, for the two indices that may join the next one.
  static constexpr uint32_t restartMargin = 2;
  static constexpr uint32_t nothingOnPurpose = 1;

  /// Colour and texture place of a vertex.
  struct Tint {
    uint32_t color = 0;
    uint16_t textureX = 0, textureY = 0;
  };
  static Tint tintAt(const VELBrush2D& brush, double x, double y) {
    // Three variables and not the fields of one Tint, which would be read back together right after being
    // written apart: processors wait for that.
    uint32_t color = 0;
    uint16_t textureX = 0, textureY = 0;
    brush.getColorCode(color, textureX, textureY, x, y);
    return {color, textureX, textureY};
  }
  static VELVertex vertex(double x, double y, const Tint& tint) {
    return {static_cast<float>(x), static_cast<float>(y), tint.color, tint.textureX, tint.textureY};
  }

  static VELVertex vertex(float x, float y, const Tint& tint) {
    return {x, y, tint.color, tint.textureX, tint.textureY};
  }

  bool isConnected() const { return _buffer && _command; }
  bool hasRoomFor(uint32_t vertices, uint32_t indices) const {
    return _buffer->o_isEnoughSpaceForVertices(vertices + restartMargin, indices + restartMargin);
  }
  bool hasRoomFor(uint32_t count) const { return hasRoomFor(count, count); }
  uint32_t indexHead() const { return _buffer->o_getBufferInfo().dbi_indexHead; }
  /// Takes @p count vertices and the indices that number them; the caller writes the vertices.
  VELVertex* takeConsecutive(uint32_t count) {
    VELDrawingBufferInfo& info = _buffer->o_getBufferInfo();
    _buffer->o_addVerticesUpdateRange(count);
    _buffer->o_addIndicesUpdateRange(count);
    VELVertex* const vertices = _buffer->o_vertexBufferTail();
    uint16_t* const indices = _buffer->o_indexBufferTail();
    for (uint32_t i = 0; i < count; ++i) indices[i] = static_cast<uint16_t>(info.dbi_vertexHead + i);
    info.dbi_vertexHead += count;
    info.dbi_indexHead += count;
    return vertices;
  }

  VELDrawingBuffer* _buffer = nullptr;
  VELOpenGLDrawingQueue* _command = nullptr;
};
