// The exact triangles of fills and areas, alone, one after the other and across buffers.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

#include "tests/rendering/recorded_frame.h"
#include "tests/rendering/test_gradient.h"
#include "tests/support/allocation_counter.h"

namespace {

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float inf = std::numeric_limits<float>::infinity();
using Indices = std::vector<uint16_t>;

std::shared_ptr<VELArrayController> floats(std::initializer_list<float> values) {
  auto column = VELArrayController::initWithType(VELDataType_Float);
  column->appendRange(std::vector(values));
  return column;
}

class Shapes : public testing::Test {
 protected:
  std::vector<DrawnStrip> strips() { return replay(context, gl.gl()); }
  void area(std::initializer_list<VELPoint> line, float zero, bool isVertical) {
    bool isFirst = true;
    for (const VELPoint point : line) {
      const auto x = static_cast<float>(point.x), y = static_cast<float>(point.y);
      isFirst ? context.beginZeroToLineAreaWithBrush(brush, x, y, zero, isVertical)
              : context.extendZeroToLineAreaWithBrush(brush, x, y, zero, isVertical);
      isFirst = false;
    }
  }
  void band(std::initializer_list<std::array<float, 3>> steps, bool isVertical) {
    bool isFirst = true;
    for (const auto& [x, y1, y2] : steps) {
      isFirst ? context.beginBandAreaWithBrush1(brush, other, x, y1, y2, isVertical)
              : context.extendBandAreaWithBrush1(brush, other, x, y1, y2, isVertical);
      isFirst = false;
    }
  }
  void ellipse() { context.drawEllipseWithBrush(brush, 10, 20, *floats({2, 0, -2}), *floats({0, 1, 0})); }

  RegisteredGL gl;
  VELOpenGLRenderContext context{64, gl.context};
  VELBrushPtr brush = VELBrush2D::solid(0xFF0000AAu), other = VELBrush2D::solid(0xFF00BB00u);
};

TEST_F(Shapes, EveryKindWritesItsVerticesAndIndicesInThisOrder) {
  const std::tuple<std::function<void()>, Indices, Places> rows[] = {
      {[&] { context.drawTriangleWithBrush(brush, 1, 2, 3, 4, 5, 7); }, {0, 1, 2}, {{1, 2}, {3, 4}, {5, 7}}},
      {[&] { context.drawSpriteWithBrush(brush, 1, 2, 5, 8); },
       {0, 1, 2, 3},
       {{1, 2}, {5, 2}, {1, 8}, {5, 8}}},
      {[&] {
         area({{0, 5}, {10, 6}}, 2, false);
       },
       {0, 1, 2, 3},
       {{0, 5}, {0, 2}, {10, 6}, {10, 2}}},
      {[&] {
         area({{5, 0}, {6, 10}}, 2, true);
       },
       {0, 1, 2, 3},
       {{5, 0}, {2, 0}, {6, 10}, {2, 10}}},
      {[&] {
         area({{0, 5}, {10, -5}}, 0, false);
       },
       {0, 1, 2, 2, 3, 4},
       {{0, 5}, {0, 0}, {5, 0}, {5, 0}, {10, -5}, {10, 0}}},
      {[&] {
         area({{5, 0}, {-5, 10}}, 0, true);
       },
       {0, 1, 2, 2, 3, 4},
       {{5, 0}, {0, 0}, {0, 5}, {0, 5}, {-5, 10}, {0, 10}}},
      {[&] {
         area({{0, 3e38}, {8, -3e38}}, 0, false);
       },
       {0, 1, 2, 2, 3, 4},
       {{0, 3e38f}, {0, 0}, {4, 0}, {4, 0}, {8, -3e38f}, {8, 0}}},
      {[&] {
         band({{0, 1, 3}, {4, 2, 5}}, false);
       },
       {0, 1, 2, 3},
       {{0, 1}, {0, 3}, {4, 2}, {4, 5}}},
      {[&] {
         band({{0, 0, 8}, {4, 4, 0}}, false);
       },
       {0, 1, 2, 3, 4, 5},
       {{0, 0}, {0, 8}, {2.6666667f, 2.6666667f}, {2.6666667f, 2.6666667f}, {4, 4}, {4, 0}}},
      {[&] {
         band({{0, 0, 8}, {4, 8, 0}}, true);
       },
       {0, 1, 2, 3, 4, 5},
       {{0, 0}, {8, 0}, {4, 2}, {4, 2}, {8, 4}, {0, 4}}},
      {[&] {
         band({{4, 0, 8}, {4, 8, 0}}, false);
       },
       {0, 1, 2, 3, 4, 5},
       {{4, 0}, {4, 8}, {4, 4}, {4, 4}, {4, 8}, {4, 0}}},
      {[&] { ellipse(); },
       {0, 3, 1, 3, 2, 3, 0},
       {{12, 20}, {10, 20}, {10, 21}, {10, 20}, {8, 20}, {10, 20}, {12, 20}}}};
  for (const auto& [draw, indices, places] : rows) {
    context.clear();
    draw();
    const auto drawn = strips();
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].indices, indices);
    EXPECT_EQ(placesOf(drawn[0]), places);
  }
}

TEST_F(Shapes, EachShapeNeedsExactlyItsRoomAndAMarginForTheNextJoin) {
  VELDrawingBuffer buffer(64);
  VELZeroToLineAreaPrimitive area;
  VELBandAreaPrimitive band;
  VELTrianglePrimitive triangle;
  VELTexturedRectanglePrimitive sprite;
  VELEllipsePrimitive ellipse;
  const auto xs = floats({2, 0, -2}), ys = floats({0, 1, 0});
  struct Row {
    std::function<uint32_t()> draw;
    uint32_t vertices, indices, answer;
  };
  const auto zeroTo = [&](float y) { return area.o_expandZeroToLineAreaWithBrush(brush, y, y, 0, false); };
  const auto bandTo = [&](float y) { return band.o_expandAreaBrush1(brush, other, y, y, 0, false); };
  const Row rows[] = {
      {[&] { return triangle.o_drawTrianglePrimitiveWithBrush(brush, 0, 0, 1, 0, 0, 1); }, 5, 5, 3},
      {[&] { return sprite.o_drawTexturedRectWithBrush(brush, 0, 0, 1, 1); }, 6, 6, 4},
      {[&] { return zeroTo(2); }, 4, 4, 2},
      {[&] { return zeroTo(-2); }, 5, 6, 3},
      {[&] { return bandTo(2); }, 4, 4, 2},
      {[&] { return bandTo(-2); }, 6, 6, 4},
      {[&] { return ellipse.o_drawEllipsePrimitiveWithBrush(brush, 0, 0, *xs, *ys); }, 6, 9, 4}};
  for (const Row& row : rows)
    for (const auto& [vertices, indices] : {std::pair(1u, 0u), {0u, 1u}, {0u, 0u}}) {
      VELShaderAttributes attributes;
      VELOpenGLDrawingQueue queue(attributes);
      queue.o_addDrawingBufferCommandWithBuffer(&buffer, 0, 1, 2);
      buffer.o_clearBuffer();
      for (VELDrawingPrimitive* const primitive :
           std::initializer_list<VELDrawingPrimitive*>{&area, &band, &triangle, &sprite, &ellipse}) {
        primitive->o_setDrawingBuffer(&buffer);
        primitive->o_setCommandQueue(&queue);
      }
      area.o_beginZeroToLineAreaWithBrush(brush, 1, 1, 0, false);
      band.o_beginAreaBrush1(brush, other, 1, 1, 0, false);
      buffer.o_getBufferInfo().dbi_vertexHead = 64 - row.vertices + vertices;
      buffer.o_getBufferInfo().dbi_indexHead = 64 - row.indices + indices;
      EXPECT_EQ(row.draw(), vertices + indices == 0 ? row.answer : 0u) << &row - rows;
    }
}

TEST_F(Shapes, AFrameOfAllKindsIsOneStripWithARestartBeforeEveryNewShape) {
  context.drawTriangleWithBrush(brush, 0, 0, 1, 0, 0, 1);          // 0 1 2
  area({{0, 1}, {1, 1}, {1, 1}}, 0, false);                        // 3 4 5 6, anew at the same point: 7 8
  band({{0, 1, 2}, {1, 1, 2}}, false);                             // 9 10 11 12
  ellipse();                                                       // 13 … 16
  context.drawSpriteWithBrush(other, 0, 0, 1, 1);                  // 17 … 20
  context.extendBandAreaWithBrush1(brush, other, 2, 1, 2, false);  // 21 22
  const auto drawn = strips();
  ASSERT_EQ(drawn.size(), 1u);
  EXPECT_EQ(drawn[0].indices,
            (Indices{0,  1,  2,  2,  3,  3,  4,  5,  6,  6,  7,  7,  8,  8,  9,  9,  10, 11, 12,
                     12, 13, 13, 16, 14, 16, 15, 16, 13, 13, 17, 17, 18, 19, 20, 20, 21, 21, 22}));
  context.drawTriangleWithBrush(std::make_shared<TestGradient>(7), 0, 0, 1, 0, 0, 1);
  context.setDrawingArea({0, 0, 1, 1});
  ellipse();
  const auto more = strips();
  ASSERT_EQ(more.size(), 3u) << "another shader, another area";
  EXPECT_EQ(more[1].indices, consecutive(23, 3));
  EXPECT_EQ(more[2].indices, (Indices{26, 29, 27, 29, 28, 29, 26}));
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

TEST_F(Shapes, AnAreaShowsTheSameTrianglesInSmallBuffersAsInOneLargeOne) {
  std::mt19937 random(20261123);
  for (int round = 0; round < 200; ++round) {
    const bool isVertical = round % 2 == 0, isBand = round % 4 < 2;
    const VELBrushPtr with = round % 3 == 0 ? std::make_shared<TestGradient>(9) : brush;
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
  const auto gradient = std::make_shared<TestGradient>(7);
  context.beginBandAreaWithBrush1(brush, gradient, 0, 1, 2, false);
  EXPECT_EQ(gradient->gradientIndex(), 1) << "it colours vertices, so it needs its row";
}

TEST_F(Shapes, ASpriteTakesTheWholeTextureAndGradientsAreAskedAtEveryVertex) {
  context.drawSpriteWithBrush(brush, 1, 2, 5, 8);
  const auto sprite = strips().at(0).vertices;
  EXPECT_EQ(sprite[1], (VELVertex{5, 2, 0xFF0000AAu, 65535, 0}));
  EXPECT_EQ(sprite[2], (VELVertex{1, 8, 0xFF0000AAu, 0, 65535}));
  brush = std::make_shared<TestGradient>(3);
  for (const std::function<void()>& draw : std::initializer_list<std::function<void()>>{
           [&] { context.drawTriangleWithBrush(brush, 1, 2, 3, 4, 5, 7); }, [&] { ellipse(); },
           [&] {
             area({{1, 5}, {9, -5}}, 0, false);
           }}) {
    context.clear();
    draw();
    const auto drawn = strips();
    for (const VELVertex& vertex : drawn.at(0).vertices)
      EXPECT_EQ(vertex.textureX, static_cast<uint16_t>(vertex.x));
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

TEST_F(Shapes, AnOutlineStandsOnItsEllipseAtEqualAnglesAndStaysEmptyInOtherColumns) {
  struct Row {
    float vertical, horizontal;
    int32_t detalization, points;
  };
  for (const Row& row : {Row{1, 2, 4, 4},
                         {1, 0, 4, 4},
                         {0, 0, 4, 4},
                         {3, 1e-40f, 8, 8},
                         {-2, 5, 7, 7},
                         {1, 1, 0, 0},
                         {1, 1, -3, 0},
                         {1, 1, 300, 300},
                         {1, 1, INT32_MAX, 32766}}) {
    const auto xs = floats({9}), ys = floats({9, 9});
    context.renderEllipseToBufferX(*xs, *ys, row.vertical, row.horizontal, row.detalization);
    ASSERT_EQ(xs->count(), row.points);
    ASSERT_EQ(ys->count(), row.points);
    for (size_t i = 0; i < xs->floats().size(); ++i) {
      const double angle = 2 * M_PI * static_cast<double>(i) / row.points;
      ASSERT_NEAR(xs->floats()[i], row.horizontal * std::cos(angle), 4e-3);
      ASSERT_NEAR(ys->floats()[i], row.vertical * std::sin(angle), 4e-3);
    }
  }
  const auto right = floats({1}), wrong = doubles(std::array{1.0});
  context.renderEllipseToBufferX(*right, *wrong, 1, 1, 4);
  EXPECT_EQ(right->count() + wrong->count(), 0);
}

TEST_F(Shapes, AFrameLikeTheLastOneAllocatesNothing) {
  const VELPenPtr pen = VELPen2D::solid(1, 1);
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
      area({{0, 5}, {10, -5}}, 0, false);
      band({{0, 0, 8}, {4, 8, 0}}, true);
    }
  };
  draw();
  const AllocationCounter counter;
  draw();
  EXPECT_EQ(counter.count(), 0);
}

}  // namespace
