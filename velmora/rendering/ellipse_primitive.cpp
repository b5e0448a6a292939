#include "velmora/rendering/ellipse_primitive.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace {

// One place at a time joins the outline to the centre; compilers turn the loop into vector code.
bool areDrawableFrom(float center, std::span<const float> outline) {
  uint32_t bad = 0;
  for (const float offset : outline) bad |= VELIsDrawable(center + offset) ? 0u : 1u;
  return bad == 0;
}

}  // namespace

void VELEllipsePrimitive::o_RenderEllipsePrimitiveToBufferX(VELArrayController& xData,
                                                            VELArrayController& yData, float radiusVertical,
                                                            float radiusHorizontal, int32_t detalization) {
  xData.clear();
  yData.clear();
  if (xData.type() != VELDataType_Float || yData.type() != VELDataType_Float || detalization < 1) return;
  const int32_t points = std::min(detalization, maximumDetalization);
  // A full turn, by a constant that is a little short on purpose: outlines of every release are the same.
  const float angle = 6.2831852f / static_cast<float>(points);
  const float c = std::cos(angle), s = std::sin(angle);
  // Without a width there is no ratio of the radii: a unit circle is scaled instead.
  const float ratio = radiusVertical / radiusHorizontal;
  const bool hasRatio = std::isfinite(ratio);
  const float scaleX = hasRatio ? 1.0f : radiusHorizontal, scaleY = hasRatio ? ratio : radiusVertical;

  std::array<float, 256> xs, ys;
  float x = hasRatio ? radiusHorizontal : 1.0f, y = 0.0f;
  for (int32_t done = 0; done < points;) {
    const auto count = std::min(xs.size(), static_cast<size_t>(points - done));
    for (size_t i = 0; i < count; ++i) {
      xs[i] = scaleX * x;
      ys[i] = scaleY * y;
      const float turned = c * x - s * y;
      y = y * c + x * s;
      x = turned;
    }
    xData.appendRange(std::span<const float>(xs.data(), count));
    yData.appendRange(std::span<const float>(ys.data(), count));
    done += static_cast<int32_t>(count);
  }
}

bool VELEllipsePrimitive::o_canDraw(const VELArrayController& xData, const VELArrayController& yData) const {
  const size_t points = xData.floats().size();
  return _buffer && points > 0 && points == yData.floats().size() &&
         2 * points + 1 + restartMargin <= static_cast<size_t>(_buffer->o_getBufferInfo().dbi_bufferSize);
}

uint32_t VELEllipsePrimitive::o_drawEllipsePrimitiveWithBrush(const VELBrushPtr& brush, float centerX,
                                                              float centerY, const VELArrayController& xData,
                                                              const VELArrayController& yData) {
  if (!isConnected() || !o_canDraw(xData, yData)) return 0;
  const std::span xs = xData.floats(), ys = yData.floats();
  if (!brush || !VELAreDrawable(centerX, centerY)) return nothingOnPurpose;
  if (!areDrawableFrom(centerX, xs) || !areDrawableFrom(centerY, ys)) return nothingOnPurpose;
  const auto points = static_cast<uint32_t>(xs.size());
  const uint32_t vertexCount = points + 1, indexCount = 2 * points + 1;
  if (!hasRoomFor(vertexCount, indexCount)) return 0;

  _command->o_addBrushCommandWithBrush(brush);
  _command->o_addFillEllipseCommandWithStart(indexHead(), indexCount);
  _buffer->o_addVerticesUpdateRange(vertexCount);
  _buffer->o_addIndicesUpdateRange(indexCount);
  VELVertex* const vertices = _buffer->o_vertexBufferTail();
  uint16_t* indices = _buffer->o_indexBufferTail();
  VELDrawingBufferInfo& info = _buffer->o_getBufferInfo();
  const uint32_t first = info.dbi_vertexHead;
  const auto center = static_cast<uint16_t>(first + points);

  const bool variative = brush->variativeColor();
  const Tint whole = tintAt(*brush, double{centerX}, double{centerY});
  for (uint32_t i = 0; i < points; ++i) {
    const float x = centerX + xs[i], y = centerY + ys[i];
    vertices[i] = vertex(x, y, variative ? tintAt(*brush, double{x}, double{y}) : whole);
    *indices++ = static_cast<uint16_t>(first + i);
    *indices++ = center;
  }
  vertices[points] = vertex(centerX, centerY, whole);
  *indices = static_cast<uint16_t>(first);
  info.dbi_vertexHead += vertexCount;
  info.dbi_indexHead += indexCount;
  return vertexCount;
}
