// Polygons: the whole inside once, whatever the outline.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/rendering/recorded_frame.h"
#include "velmora/rendering/polygon_primitive.h"

namespace {

using Outline = std::vector<VELPoint>;

class Polygon : public testing::Test {
 protected:
  Polygon() { queue.o_addDrawingBufferCommandWithBuffer(&buffer, 0, 1, 2); }
  uint32_t draw(const Outline& points) {
    return VELPolygonPrimitive::DrawPolygonToBuffer(buffer, queue, brush, points);
  }
  /// Area of all triangles in the index store.
  double filled() {
    const VELDrawingBufferInfo& info = buffer.o_getBufferInfo();
    double sum = 0.0;
    for (uint32_t i = 2; i < info.dbi_indexHead; ++i) {
      const VELVertex &a = info.dbi_vertexBuffer[info.dbi_indexBuffer[i - 2]],
                      &b = info.dbi_vertexBuffer[info.dbi_indexBuffer[i - 1]],
                      &c = info.dbi_vertexBuffer[info.dbi_indexBuffer[i]];
      sum += std::abs(double{b.x - a.x} * double{c.y - a.y} - double{b.y - a.y} * double{c.x - a.x}) / 2;
    }
    return sum;
  }

  VELShaderAttributes attributes;
  VELOpenGLDrawingQueue queue{attributes};
  VELDrawingBuffer buffer{65536};
  VELBrushPtr brush = VELBrush2D::solid(0xFF123456u);
};

// A comb with long teeth: its corners block one another.
Outline comb(int teeth) {
  Outline points;
  for (int i = 0; i < teeth; ++i) {
    points.push_back({2.0 * i, 0});
    points.push_back({2.0 * i + 1, 10});
  }
  points.push_back({2.0 * teeth, 20});
  points.push_back({0, 20});
  return points;
}
double areaOf(const Outline& points) {
  double sum = 0.0;
  for (size_t i = 0; i < points.size(); ++i) {
    const VELPoint a = points[i], b = points[(i + 1) % points.size()];
    sum += a.x * b.y - a.y * b.x;
  }
  return std::abs(sum) / 2;
}

TEST_F(Polygon, ASimpleOneIsFilledOnceEitherWayRound) {
  const Outline rows[] = {
      {{0, 0}, {9, 0}, {9, 3}, {3, 3}, {3, 9}, {0, 9}},
      {{0, 0}, {2, 0}, {4, 0}, {4, 2}, {4, 4}, {2, 4}, {0, 4}},
      {{0, 0}, {2, 2}, {4, 4}, {8, 0}, {8, 0}, {6, -5}},
      {{0, 0}, {10, 4}, {20, 0}, {16, 10}, {20, 20}, {10, 16}, {0, 20}, {4, 10}},
      comb(50),
  };
  for (Outline points : rows)
    for (const bool isReversed : {false, true}) {
      if (isReversed) std::ranges::reverse(points);
      buffer.o_clearBuffer();
      ASSERT_EQ(draw(points), points.size());
      EXPECT_EQ(buffer.o_getBufferInfo().dbi_vertexHead, points.size());
      EXPECT_NEAR(filled(), areaOf(points), 1e-3 * areaOf(points)) << &points - rows << isReversed;
    }
}

TEST_F(Polygon, TrianglesAreStripPiecesJoinedAtCornersThatWereWrittenBefore) {
  ASSERT_EQ(draw({{0, 0}, {4, 0}, {4, 4}, {0, 4}}), 4u);
  ASSERT_EQ(draw({{0, 0}, {4, 0}, {0, 3}}), 3u);
  const VELDrawingBufferInfo& info = buffer.o_getBufferInfo();
  const std::vector<uint16_t> indices(info.dbi_indexBuffer, info.dbi_indexBuffer + info.dbi_indexHead);
  EXPECT_EQ(indices, (std::vector<uint16_t>{3, 0, 1, 1, 3, 3, 1, 2, 2, 6, 6, 4, 5}));
  EXPECT_EQ(queue.drawingOrder().size(), 3u) << "buffer, shader, one strip";
}

TEST_F(Polygon, AnyOutlineComesToAnEndAndWhatCannotBeDrawnAnswersZero) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const Outline& refused :
       {Outline{}, {{0, 0}, {1, 1}}, {{0, 0}, {1, nan}, {2, 2}}, {{0, 0}, {1e300, 0}, {2, 2}}, comb(7000)})
    EXPECT_EQ(draw(refused), 0u);
  EXPECT_EQ(buffer.o_getBufferInfo().dbi_vertexHead, 0u);
  const Outline flat = {{0, 0}, {1, 1}, {2, 2}, {3, 3}}, crossed = {{0, 0}, {4, 4}, {4, 0}, {0, 4}};
  EXPECT_EQ(draw(flat), 4u);
  EXPECT_EQ(filled(), 0.0);
  for (const Outline& odd :
       {crossed, Outline(500, VELPoint{1, 1}), Outline{{3e38, 0}, {-3e38, 9}, {0, -3e38}}})
    EXPECT_EQ(draw(odd), odd.size());
  buffer.o_clearBuffer();
  const Outline large = comb(6500);
  EXPECT_EQ(draw(large), large.size());
  EXPECT_NEAR(filled(), areaOf(large), 1e-3 * areaOf(large));
  buffer.o_clearBuffer();
  brush = nullptr;
  EXPECT_EQ(draw({{7, 0}, {4, 0}, {0, 3}}), 0u);
}

}  // namespace
