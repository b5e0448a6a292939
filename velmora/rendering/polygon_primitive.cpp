#include "velmora/rendering/polygon_primitive.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "velmora/rendering/drawing_primitive.h"

namespace {

constexpr uint32_t restartCount = 2;  // indices that join two pieces of a strip
constexpr size_t maximumPoints = 65535;

/// Twice the signed area of the triangle a, b, c; positive when it runs clockwise on the screen.
double turn(VELPoint a, VELPoint b, VELPoint c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool isOnInnerSide(VELPoint from, VELPoint to, VELPoint point) {
  const auto fromX = static_cast<float>(from.x), fromY = static_cast<float>(from.y);
  const auto toX = static_cast<float>(to.x), toY = static_cast<float>(to.y);
  const auto x = static_cast<float>(point.x), y = static_cast<float>(point.y);
  return !((y - fromY) * (toX - fromX) - (x - fromX) * (toY - fromY) < 0.0f);
}

/// A triangle and the box around it.
struct Ear {
  VELPoint a, b, c;

  float left() const { return static_cast<float>(std::min({a.x, b.x, c.x})); }
  float right() const { return static_cast<float>(std::max({a.x, b.x, c.x})); }
  float top() const { return static_cast<float>(std::min({a.y, b.y, c.y})); }
  float bottom() const { return static_cast<float>(std::max({a.y, b.y, c.y})); }
  // A second point in the place of a corner is no obstacle: outlines touch themselves there.
  bool isBlockedBy(VELPoint point) const {
    const auto x = static_cast<float>(point.x), y = static_cast<float>(point.y);
    if (!(x > left() && x < right() && y > top() && y < bottom())) return false;
    if (point == a || point == b || point == c) return false;
    return VELPolygonPrimitive::pointInTriangle(a, b, c, point);
  }
};

/// The outline that is left while ears are cut off, as a ring of point numbers.
class Outline {
 public:
  explicit Outline(std::span<const VELPoint> points)
      : _points(points), _before(points.size()), _after(points.size()), _byX(points.size()) {
    double area = 0.0;
    for (size_t i = 1; i + 1 < points.size(); ++i) area += turn(points[0], points[i], points[i + 1]);
    const size_t count = points.size();
    for (size_t i = 0; i < count; ++i) {
      const size_t next = (i + 1) % count;
      // An outline that runs the other way is walked backwards.
      (area < 0.0 ? _before[i] : _after[i]) = static_cast<uint16_t>(next);
      (area < 0.0 ? _after[next] : _before[next]) = static_cast<uint16_t>(i);
    }
    std::iota(_byX.begin(), _byX.end(), uint16_t{0});
    std::ranges::stable_sort(_byX, {}, [&](uint16_t number) { return points[number].x; });
  }

  /// Calls @p draw with the numbers of every triangle's corners.
  template <typename Draw>
  void cutEars(Draw&& draw) {
    // Whether a corner is an ear depends on its neighbours alone, since all points may block it, so it is
    // asked again only when one of these was cut off.
    std::vector<uint16_t> pending;
    pending.reserve(3 * _points.size());
    const uint16_t start = _byX.front();
    uint16_t corner = start;
    do {
      pending.push_back(corner);
      corner = _after[corner];
    } while (corner != start);
    size_t remaining = _points.size();
    std::vector<bool> isCut(_points.size());
    for (size_t next = 0; next < pending.size() && remaining > 3; ++next) {
      corner = pending[next];
      if (isCut[corner] || !isEar(corner)) continue;
      const uint16_t before = _before[corner], after = _after[corner];
      draw(before, corner, after);
      isCut[corner] = true;
      _after[before] = after;
      _before[after] = before;
      pending.push_back(before);
      pending.push_back(after);
      corner = after;
      --remaining;
    }
    if (remaining != 3) return;
    while (isCut[corner]) corner = _after[corner];
    if (turns(corner)) draw(_before[corner], corner, _after[corner]);
  }

 private:
  bool turns(uint16_t corner) const {
    return VELPolygonPrimitive::connectionAllowed(_points[_before[corner]], _points[corner],
                                                  _points[_after[corner]]);
  }
  bool isEar(uint16_t corner) const {
    if (!turns(corner)) return false;
    const Ear ear = {_points[_before[corner]], _points[corner], _points[_after[corner]]};
    const auto xOf = [&](uint16_t number) { return static_cast<float>(_points[number].x); };
    auto candidate = std::ranges::upper_bound(_byX, ear.left(), {}, xOf);
    for (const float right = ear.right(); candidate != _byX.end() && xOf(*candidate) < right; ++candidate)
      if (ear.isBlockedBy(_points[*candidate])) return false;
    return true;
  }

  std::span<const VELPoint> _points;
  std::vector<uint16_t> _before, _after;
  std::vector<uint16_t> _byX;  ///< from left to right: only points between the sides of an ear's box matter
};

bool canWrite(const VELBrushPtr& brush, std::span<const VELPoint> points) {
  return brush && points.size() >= 3 && points.size() <= maximumPoints &&
         std::ranges::all_of(points, [](VELPoint point) { return VELAreDrawable(point.x, point.y); });
}

void writeVertices(VELDrawingBuffer& buffer, const VELBrush2D& brush, std::span<const VELPoint> points) {
  buffer.o_addVerticesUpdateRange(static_cast<uint32_t>(points.size()));
  VELVertex* vertices = buffer.o_vertexBufferTail();
  VELVertex tint = {};
  const auto ask = [&](VELPoint point) {
    brush.getColorCode(tint.color, tint.textureX, tint.textureY, point.x, point.y);
  };
  ask(points.front());
  for (const VELPoint point : points) {
    if (brush.variativeColor()) ask(point);
    *vertices++ = {static_cast<float>(point.x), static_cast<float>(point.y), tint.color, tint.textureX,
                   tint.textureY};
  }
  buffer.o_getBufferInfo().dbi_vertexHead += static_cast<uint32_t>(points.size());
}

void writeTriangle(VELDrawingBuffer& buffer, VELOpenGLDrawingQueue& command, const uint16_t (&corners)[3]) {
  VELDrawingBufferInfo& info = buffer.o_getBufferInfo();
  const uint32_t announced = info.dbi_indexHead;
  command.o_addDrawTriangleCommandWithStart(announced, 3);
  // The queue joins a shape at the next vertex to be written; these corners were all written before.
  if (info.dbi_indexHead != announced) buffer.o_indexBufferTail()[-1] = corners[0];
  buffer.o_addIndicesUpdateRange(3);
  std::ranges::copy(corners, buffer.o_indexBufferTail());
  info.dbi_indexHead += 3;
}

}  // namespace

uint32_t VELPolygonPrimitive::DrawPolygonToBuffer(VELDrawingBuffer& buffer, VELOpenGLDrawingQueue& command,
                                                  const VELBrushPtr& brush,
                                                  std::span<const VELPoint> points) {
  if (!canWrite(brush, points)) return 0;
  if (brush->shaderType() == VELShaderType_Solid) return triangulateToBuffer(buffer, command, brush, points);
  const auto count = static_cast<uint32_t>(points.size());
  if (!buffer.o_isEnoughSpaceForVertices(count, count)) return 0;
  writeVertices(buffer, *brush, points);
  return count;
}

uint32_t VELPolygonPrimitive::triangulateToBuffer(VELDrawingBuffer& buffer, VELOpenGLDrawingQueue& command,
                                                  const VELBrushPtr& brush,
                                                  std::span<const VELPoint> points) {
  if (!canWrite(brush, points)) return 0;
  const auto count = static_cast<uint32_t>(points.size());
  const uint32_t indices = (count - 2) * (3 + restartCount);
  if (!buffer.o_isEnoughSpaceForVertices(count + restartCount, indices + restartCount)) return 0;
  const uint32_t first = buffer.o_getBufferInfo().dbi_vertexHead;
  command.o_addBrushCommandWithBrush(brush);
  writeVertices(buffer, *brush, points);
  Outline(points).cutEars([&](uint16_t a, uint16_t b, uint16_t c) {
    const auto number = [first](uint16_t point) { return static_cast<uint16_t>(first + point); };
    writeTriangle(buffer, command, {number(a), number(b), number(c)});
  });
  return count;
}

bool VELPolygonPrimitive::pointInTriangle(VELPoint a, VELPoint b, VELPoint c, VELPoint point) {
  return isOnInnerSide(b, c, point) && isOnInnerSide(c, a, point) && isOnInnerSide(a, b, point);
}

bool VELPolygonPrimitive::isTriangleInPoligon(size_t i, size_t j, size_t k,
                                              std::span<const VELPoint> points) {
  const size_t largest = std::max({i, j, k});
  if (largest >= points.size()) return false;
  const Ear ear = {points[i], points[j], points[k]};
  for (size_t number = 0; number < points.size(); ++number)
    if (number != i && number != j && number != k && ear.isBlockedBy(points[number])) return true;
  return false;
}

bool VELPolygonPrimitive::connectionAllowed(VELPoint a, VELPoint b, VELPoint c) {
  constexpr double straight = 1e-5;
  return turn(a, b, c) > straight;
}
