// The exact triangles of fills and areas, alone, one after the other and across buffers.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

#include "tests/rendering/recorded_frame.h"
#include "tests/support/allocation_counter.h"
#include "tests/support/numbers.h"

namespace {

constexpr auto nan = static_cast<float>(kNaN), inf = static_cast<float>(kInf);
using Indices = std::vector<uint16_t>;
using Step = std::array<float, 3>;  // of a band: x, y1, y2

std::shared_ptr<VELArrayController> floats(std::initializer_list<float> values) {
  auto column = VELArrayController::initWithType(VELDataType_Float);
  column->appendRange(std::vector(values));
  return column;
}

class Shapes : public testing::Test {
 protected:
  std::vector<DrawnStrip> strips() { return replay(context, gl.gl()); }
  void area(std::span<const VELPoint> line, float zero, bool isVertical) {
    for (const VELPoint& point : line) {
      const auto x = static_cast<float>(point.x), y = static_cast<float>(point.y);
      &point == line.data() ? context.beginZeroToLineAreaWithBrush(brush, x, y, zero, isVertical)
                            : context.extendZeroToLineAreaWithBrush(brush, x, y, zero, isVertical);
    }
  }
  void area(std::initializer_list<VELPoint> line, float zero) { area(std::span(line), zero, false); }
  void band(std::span<const Step> steps, bool isVertical) {
    for (const Step& step : steps) {
      const auto [x, y1, y2] = step;
      &step == steps.data() ? context.beginBandAreaWithBrush1(brush, other, x, y1, y2, isVertical)
                            : context.extendBandAreaWithBrush1(brush, other, x, y1, y2, isVertical);
    }
  }
  void band(std::initializer_list<Step> steps, bool isVertical) { band(std::span(steps), isVertical); }
  void ellipse() { context.drawEllipseWithBrush(brush, 10, 20, *floats({2, 0, -2}), *floats({0, 1, 0})); }

  RegisteredGL gl;
  VELOpenGLRenderContext context{64, gl.context};
  VELBrushPtr brush = VELBrush2D::solid(0xFF0000AAu), other = VELBrush2D::solid(0xFF00BB00u);
  VELPenPtr pen = VELPen2D::solid(0xFF112233u, 1.0f);
};

TEST_F(Shapes, EveryKindWritesItsVerticesAndIndicesInThisOrder) {
  const Indices four = consecutive(0, 4), six = consecutive(0, 6), crossing = {0, 1, 2, 2, 3, 4};
  const auto holds = [&](const Indices& indices, const Places& places) {
    const auto drawn = strips();
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].indices, indices);
    EXPECT_EQ(placesOf(drawn[0]), places);
    context.clear();
  };
  context.drawTriangleWithBrush(brush, 1, 2, 3, 4, 5, 7);
  holds({0, 1, 2}, {{1, 2}, {3, 4}, {5, 7}});
  context.drawSpriteWithBrush(brush, 1, 2, 5, 8);
  holds(four, {{1, 2}, {5, 2}, {1, 8}, {5, 8}});
  ellipse();
  holds({0, 3, 1, 3, 2, 3, 0}, {{12, 20}, {10, 20}, {10, 21}, {10, 20}, {8, 20}, {10, 20}, {12, 20}});

  const std::tuple<std::vector<VELPoint>, float, bool, Indices, Places> areas[] = {
      {{{0, 5}, {10, 6}}, 2, false, four, {{0, 5}, {0, 2}, {10, 6}, {10, 2}}},
      {{{5, 0}, {6, 10}}, 2, true, four, {{5, 0}, {2, 0}, {6, 10}, {2, 10}}},
      {{{0, 5}, {10, -5}}, 0, false, crossing, {{0, 5}, {0, 0}, {5, 0}, {5, 0}, {10, -5}, {10, 0}}},
      {{{5, 0}, {-5, 10}}, 0, true, crossing, {{5, 0}, {0, 0}, {0, 5}, {0, 5}, {-5, 10}, {0, 10}}},
      {{{0, 3e38}, {8, -3e38}},
       0,
       false,
       crossing,
       {{0, 3e38f}, {0, 0}, {4, 0}, {4, 0}, {8, -3e38f}, {8, 0}}}};
  for (const auto& [line, zero, isVertical, indices, places] : areas) {
    area(line, zero, isVertical);
    holds(indices, places);
  }
  constexpr float met = 8.0f / 3;
  const std::tuple<std::vector<Step>, bool, Indices, Places> bands[] = {
      {{{0, 1, 3}, {4, 2, 5}}, false, four, {{0, 1}, {0, 3}, {4, 2}, {4, 5}}},
      {{{0, 0, 8}, {4, 4, 0}}, false, six, {{0, 0}, {0, 8}, {met, met}, {met, met}, {4, 4}, {4, 0}}},
      {{{0, 0, 8}, {4, 8, 0}}, true, six, {{0, 0}, {8, 0}, {4, 2}, {4, 2}, {8, 4}, {0, 4}}},
      {{{4, 0, 8}, {4, 8, 0}}, false, six, {{4, 0}, {4, 8}, {4, 4}, {4, 4}, {4, 8}, {4, 0}}}};
  for (const auto& [steps, isVertical, indices, places] : bands) {
    band(steps, isVertical);
    holds(indices, places);
  }
}

TEST_F(Shapes, AFrameOfAllKindsIsOneStripWithARestartBeforeEveryNewShape) {
  const auto extendArea = [&](float x) { context.extendZeroToLineAreaWithBrush(brush, x, 1, 0, false); };
  context.drawTriangleWithBrush(brush, 0, 0, 1, 0, 0, 1);          // 0 1 2
  area({{0, 1}, {1, 1}, {1, 1}}, 0);                               // 3 4 5 6, anew at the same point: 7 8
  band({{0, 1, 2}, {1, 1, 2}}, false);                             // 9 10 11 12
  ellipse();                                                       // 13 … 16
  context.drawSpriteWithBrush(other, 0, 0, 1, 1);                  // 17 … 20
  context.extendBandAreaWithBrush1(brush, other, 2, 1, 2, false);  // 21 22
  context.beginPolylineWithBrush(pen, 0, 0);
  context.extendPolylineWithBrush(pen, 1, 0);  // 23 … 26
  extendArea(2);                               // 27 28, not from the polyline
  context.extendPolylineWithBrush(pen, 2, 0);  // 29 … 32, not from the area
  const auto drawn = strips();
  ASSERT_EQ(drawn.size(), 1u);
  EXPECT_EQ(drawn[0].indices,
            (Indices{0,  1,  2,  2,  3,  3,  4,  5,  6,  6,  7,  7,  8,  8,  9,  9,  10, 11,
                     12, 12, 13, 13, 16, 14, 16, 15, 16, 13, 13, 17, 17, 18, 19, 20, 20, 21,
                     21, 22, 22, 23, 23, 24, 25, 26, 26, 27, 27, 28, 28, 29, 29, 30, 31, 32}));
  context.drawTriangleWithBrush(columnGradient(7), 0, 0, 1, 0, 0, 1);
  context.setDrawingArea({0, 0, 1, 1});
  extendArea(3);
  const auto more = strips();
  ASSERT_EQ(more.size(), 3u) << "another shader, another area";
  EXPECT_EQ(more[1].indices, consecutive(33, 3));
  EXPECT_EQ(more[2].indices, consecutive(36, 2)) << "the new pair alone";
}

using Corner = std::tuple<float, float, uint32_t, uint16_t>;
using Triangles = std::multiset<std::array<Corner, 3>>;

// Every triangle with an area, its corners in order.
Triangles trianglesOf(const std::vector<DrawnStrip>& drawn) {
  Triangles triangles;
  for (const DrawnStrip& strip : drawn)
    for (size_t i = 2; i < strip.indices.size(); ++i) {
      std::array<Corner, 3> corners;
      for (size_t k = 0; k < 3; ++k) {
        const VELVertex& vertex = strip.vertices[i - k];
        corners[k] = {vertex.x, vertex.y, vertex.color, vertex.textureX};
      }
      const auto [a, b, c] = std::tuple(strip.vertices[i - 2], strip.vertices[i - 1], strip.vertices[i]);
      if ((b.x - a.x) * (c.y - a.y) == (b.y - a.y) * (c.x - a.x)) continue;
      std::ranges::sort(corners);
      triangles.insert(corners);
    }
  return triangles;
}

// The last step of two shapes needs its own room and a margin of two indices, for the join before it or
// behind it. Where one index is missing it goes to the next buffer, and no triangle is lost.
TEST_F(Shapes, EachShapeNeedsExactlyItsRoomAndAMarginForAJoin) {
  const auto xs = floats({2, 0, -2}), ys = floats({0, 1, 0});
  const auto areaTo = [this](VELRenderContext2D& to, float y) {
    to.beginZeroToLineAreaWithBrush(brush, 1, 1, 0, false);
    to.extendZeroToLineAreaWithBrush(brush, 2, y, 0, false);
  };
  const auto bandTo = [this](VELRenderContext2D& to, float y) {
    to.beginBandAreaWithBrush1(brush, other, 1, 1, 0, false);
    to.extendBandAreaWithBrush1(brush, other, 2, y, 0, false);
  };
  const auto triangle = [this](VELRenderContext2D& to) { to.drawTriangleWithBrush(brush, 0, 0, 1, 0, 0, 1); };
  // What is drawn, and the buffer that it fills when it is drawn twice.
  const std::pair<std::function<void(VELRenderContext2D&)>, int32_t> rows[] = {
      {[&](auto& to) { to.drawLineWithBrush(pen, 0, 0, 5, 5); }, 10},
      {[&](auto& to) { to.drawRectWithBrush(brush, 0, 0, 1, 1); }, 10},
      {[&](auto& to) { triangle(to), triangle(to); }, 18},
      {[&](auto& to) { to.drawSpriteWithBrush(brush, 0, 0, 1, 1); }, 10},
      {[&](auto& to) { to.drawEllipseWithBrush(brush, 0, 0, *xs, *ys); }, 16},
      {[&](auto& to) { areaTo(to, 2); }, 12},
      {[&](auto& to) { areaTo(to, -2); }, 16},
      {[&](auto& to) { bandTo(to, 2); }, 12},
      {[&](auto& to) { bandTo(to, -2); }, 16}};
  for (const auto& [draw, capacity] : rows)
    for (const int32_t missing : {0, 1}) {
      VELOpenGLRenderContext exact(capacity - missing, gl.context), large(64, gl.context);
      for (VELOpenGLRenderContext* const to : {&exact, &large}) draw(*to), draw(*to);
      EXPECT_EQ(exact.drawingBufferCount(), static_cast<size_t>(1 + missing)) << capacity;
      EXPECT_EQ(trianglesOf(replay(exact, gl.gl())), trianglesOf(replay(large, gl.gl()))) << capacity;
    }
}

TEST_F(Shapes, AnAreaShowsTheSameTrianglesInSmallBuffersAsInOneLargeOne) {
  std::mt19937 random(20261123);
  for (int round = 0; round < 200; ++round) {
    const bool isVertical = round % 2 == 0, isBand = round % 4 < 2;
    const VELBrushPtr with = round % 3 == 0 ? VELBrushPtr(columnGradient(9)) : brush;
    VELOpenGLRenderContext small(static_cast<int32_t>(8 + random() % 20), gl.context);
    VELOpenGLRenderContext large(1024, gl.context);
    size_t slices = 0;
    bool wasFinite = false;
    for (int i = 0; i < 60; ++i) {
      const auto number = [&] { return static_cast<float>(random() % 41); };
      const float x = static_cast<float>(2 * i), y = random() % 8 == 0 ? nan : number() + 0.5f, z = number();
      for (VELOpenGLRenderContext* const to : {&small, &large}) {
        const auto a = isVertical ? y : x, b = isVertical ? x : y;
        if (isBand)
          i == 0 ? to->beginBandAreaWithBrush1(with, other, x, y, z, isVertical)
                 : to->extendBandAreaWithBrush1(with, other, x, y, z, isVertical);
        else
          i == 0 ? to->beginZeroToLineAreaWithBrush(with, a, b, 20, isVertical)
                 : to->extendZeroToLineAreaWithBrush(with, a, b, 20, isVertical);
      }
      slices += wasFinite && !std::isnan(y) ? 1 : 0;
      wasFinite = !std::isnan(y);
    }
    const Triangles expected = trianglesOf(replay(large, gl.gl()));
    ASSERT_EQ(trianglesOf(replay(small, gl.gl())), expected) << round;
    ASSERT_EQ(expected.size(), 2 * slices) << "two for every slice, with or without a crossing";
    ASSERT_GT(small.drawingBufferCount(), 3u);
  }
}

TEST_F(Shapes, ABandIsColouredByItsSidesAndAMissingBrushLeavesItsSideTransparent) {
  const auto colors = [&] {
    std::vector<uint32_t> all;
    const auto drawn = strips();
    for (const VELVertex& vertex : drawn.at(0).vertices) all.push_back(vertex.color);
    return all;
  };
  const uint32_t one = brush->colorCode(), two = other->colorCode();
  band({{0, 0, 8}, {4, 8, 0}}, false);
  EXPECT_EQ(colors(), (std::vector{one, one, one, two, two, two}));
  context.clear();
  band({{0, 0, 8}, {4, 8, 0}}, true);
  EXPECT_EQ(colors(), (std::vector{two, two, two, one, one, one}));
  for (const bool isSecond : {false, true}) {
    context.clear();
    (isSecond ? other : brush) = nullptr;
    band({{0, 0, 8}, {4, 8, 0}}, false);
    EXPECT_EQ(colors(), isSecond ? std::vector(6, 0u) : (std::vector{0u, 0u, 0u, two, two, two}));
    if (!isSecond) brush = VELBrush2D::solid(0);
  }
  const auto gradient = columnGradient(7);
  context.beginBandAreaWithBrush1(brush, gradient, 0, 1, 2, false);
  EXPECT_EQ(gradient->gradientIndex(), 1) << "it colours vertices, so it needs its row";
}

TEST_F(Shapes, ASpriteTakesTheWholeTextureAndGradientsAreAskedAtEveryVertex) {
  context.drawSpriteWithBrush(brush, 1, 2, 5, 8);
  const auto sprite = strips().at(0).vertices;
  EXPECT_EQ(sprite[1], (VELVertex{5, 2, 0xFF0000AAu, 65535, 0}));
  EXPECT_EQ(sprite[2], (VELVertex{1, 8, 0xFF0000AAu, 0, 65535}));
  brush = columnGradient(3);
  for (const std::function<void()>& draw : std::initializer_list<std::function<void()>>{
           [&] { context.drawTriangleWithBrush(brush, 1, 2, 3, 4, 5, 7); }, [&] { ellipse(); },
           [&] {
             area({{1, 5}, {9, -5}}, 0);
           }}) {
    context.clear();
    draw();
    const auto drawn = strips();
    for (const VELVertex& vertex : drawn.at(0).vertices)
      EXPECT_EQ(vertex.textureX, static_cast<uint16_t>(vertex.x) + 1);
  }
}

TEST_F(Shapes, WhatCannotBeDrawnRecordsNothingAndTakesNoBuffer) {
  const auto one = floats({1}), two = floats({1, 2}), none = floats({});
  const auto wide = VELArrayController::initWithType(VELDataType_Float);
  for (int i = 0; i < 31; ++i) wide->append(1.0f);  // 65 indices with the margin, a buffer has 64
  for (int i = 0; i < 3; ++i)
    for (const float bad : {nan, inf, -inf}) {
      context.drawTriangleWithBrush(brush, 0, 0, 1, 1, 2, bad);
      context.drawSpriteWithBrush(brush, bad, 0, 1, 1);
      context.drawEllipseWithBrush(brush, 0, bad, *two, *two);
      context.drawEllipseWithBrush(brush, 3e38f, 0, *floats({3e38f, 1}), *two);
      context.drawEllipseWithBrush(brush, 0, 0, *floats({bad, 1}), *two);
      context.drawEllipseWithBrush(brush, 0, 0, *one, *two);
      context.drawEllipseWithBrush(brush, 0, 0, *none, *none);
      context.drawEllipseWithBrush(brush, 0, 0, *doubles({}), *doubles({}));
      context.drawEllipseWithBrush(brush, 0, 0, *wide, *wide);
      context.drawTriangleWithBrush(nullptr, 0, 0, 1, 0, 0, 1);
      context.drawSpriteWithBrush(nullptr, 0, 0, 1, 1);
      context.drawEllipseWithBrush(nullptr, 0, 0, *two, *two);
      context.beginZeroToLineAreaWithBrush(brush, bad, 0, 0, false);
      context.extendZeroToLineAreaWithBrush(brush, 0, 0, bad, false);
      context.extendZeroToLineAreaWithBrush(nullptr, 0, 0, 0, false);
      context.beginBandAreaWithBrush1(brush, other, 0, bad, 0, false);
      context.extendBandAreaWithBrush1(nullptr, nullptr, 0, 0, 0, true);
    }
  EXPECT_TRUE(strips().empty());
  EXPECT_EQ(context.drawingBufferCount(), 1u);
}

// Bit for bit: pictures of charts are compared between releases.
TEST_F(Shapes, AnOutlineTurnsByEqualAnglesInSinglePrecisionAndStaysEmptyInOtherColumns) {
  const struct {
    float vertical, horizontal;
    int32_t detalization, points;
    float startX, scaleX, scaleY;
  } rows[] = {{1, 2, 4, 4, 2, 1, 0.5f},
              {3, 2, 300, 300, 2, 1, 1.5f},
              {-2, 5, 7, 7, 5, 1, -2.0f / 5},
              {1, 0, 4, 4, 1, 0, 1},
              {0, 0, 4, 4, 1, 0, 0},
              {3, 1e-40f, 8, 8, 1, 1e-40f, 3},
              {1, 1, INT32_MAX, 32766, 1, 1, 1},
              {1, 1, 0, 0, 1, 1, 1},
              {1, 1, -3, 0, 1, 1, 1}};
  for (const auto& row : rows) {
    const auto xs = floats({9}), ys = floats({9, 9});
    context.renderEllipseToBufferX(*xs, *ys, row.vertical, row.horizontal, row.detalization);
    ASSERT_EQ(xs->count(), row.points);
    ASSERT_EQ(ys->count(), row.points);
    const float angle = 6.2831852f / static_cast<float>(row.points), c = std::cos(angle), s = std::sin(angle);
    float x = row.startX, y = 0;
    for (size_t i = 0; i < xs->floats().size(); ++i) {
      ASSERT_EQ(xs->floats()[i], row.scaleX * x) << i << " of " << row.points;
      ASSERT_EQ(ys->floats()[i], row.scaleY * y) << i << " of " << row.points;
      x = c * x - s * std::exchange(y, y * c + x * s);
    }
  }
  const auto right = floats({1}), wrong = doubles(std::array{1.0});
  context.renderEllipseToBufferX(*right, *wrong, 1, 1, 4);
  EXPECT_EQ(right->count() + wrong->count(), 0);
}

TEST_F(Shapes, AFrameLikeTheLastOneAllocatesNothing) {
  const auto xs = floats({2, 0, -2}), ys = floats({0, 1, 0});
  const auto line = doubles(std::array{1.0, 2.0, 3.0});
  const auto draw = [&] {
    context.clear();
    for (int i = 0; i < 40; ++i) {
      context.setDrawingArea({0, 0, 1.0 + i % 3, 1});
      context.drawLineWithBrush(pen, 0, 0, 1, 1);
      context.drawRectWithBrush(brush, 0, 0, 1, 1);
      context.drawTriangleWithBrush(other, 0, 0, 1, 0, 0, 1);
      context.drawSpriteWithBrush(brush, 0, 0, 1, 1);
      context.drawEllipseWithBrush(brush, 0, 0, *xs, *ys);
      context.drawPolylineWithBrush(pen, *line, *line, 0);
      context.renderEllipseToBufferX(*xs, *ys, 2, 1, 3);
      area({{0, 5}, {10, -5}}, 0);
      band({{0, 0, 8}, {4, 8, 0}}, true);
    }
  };
  draw();
  const AllocationCounter counter;
  const auto alarm = std::make_unique<int>(1);
  EXPECT_EQ(counter.count(), 1) << "the counter counts";
  draw();
  EXPECT_EQ(counter.count(), 1);
}

}  // namespace
