// The exact triangles of lines, rectangles and polylines.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "tests/rendering/recorded_frame.h"
#include "tests/support/numbers.h"
#include "velmora/rendering/thick_segment.h"

namespace {

class Primitives : public testing::Test {
 protected:
  std::vector<DrawnStrip> strips() { return replay(context, gl.gl()); }
  void polyline(std::span<const double> xs, std::span<const double> ys) {
    context.drawPolylineWithBrush(pen, *doubles(xs), *doubles(ys), 0);
  }

  RegisteredGL gl;
  VELOpenGLRenderContext context{64, gl.context};
  VELPenPtr pen = VELPen2D::solid(0xFF112233u, 2.0f);
};

TEST_F(Primitives, ALineIsAQuadTwiceAsWideAsThePenAndARectangleKeepsTheOrderOfItsCorners) {
  const float h = std::sqrt(0.5f);
  const struct {
    float x1, y1, x2, y2, width;
    Places expected;
  } rows[] = {
      {0, 10, 100, 10, 2, {{0, 12}, {0, 8}, {100, 12}, {100, 8}}},
      {5, 0, 5, 50, 1, {{6, 0}, {4, 0}, {6, 50}, {4, 50}}},
      {0, 0, 10, 10, 1, {{h, -h}, {-h, h}, {10 + h, 10 - h}, {10 - h, 10 + h}}},
      {3, 4, 3, 4, 1, {{4, 4}, {2, 4}, {4, 4}, {2, 4}}},
  };
  for (const auto& row : rows) {
    context.clear();
    context.drawLineWithBrush(VELPen2D::solid(0xFF112233u, row.width), row.x1, row.y1, row.x2, row.y2);
    const auto drawn = strips();
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].indices, consecutive(0, 4));
    EXPECT_EQ(placesOf(drawn[0]), row.expected);
    EXPECT_EQ(drawn[0].vertices[3].color, 0xFF112233u);
    EXPECT_EQ(drawn[0].vertices[3].textureX, 0u);
  }
  context.clear();
  context.drawRectWithBrush(VELBrush2D::solid(0x80FFFFFFu), 30, 2, 1, 20);
  EXPECT_EQ(placesOf(strips().at(0)), (Places{{30, 2}, {1, 2}, {30, 20}, {1, 20}}));
}

TEST_F(Primitives, ASegmentNormalIsNeverNaN) {
  const double values[] = {0.0, -0.0, 1.0, -1.0, 1e-308, 5e-324, 1e38, -3.4e38, 1e-200};
  for (const double px : values)
    for (const double py : values)
      for (const double qx : values)
        for (const double qy : values) {
          const VELThickSegment edge = VELMakeThickSegment(px, py, qx, qy, 1.0f);
          ASSERT_NEAR(std::hypot(edge.x, edge.y), 1.0, 1e-6) << px << ' ' << py << ' ' << qx << ' ' << qy;
        }
}

TEST_F(Primitives, APolylineTurnsItsStripOverOnlyWhereItComesBackUpFromTheLeft) {
  const double xs[] = {0, 10, 0, 10}, ys[] = {0, 10, 20, 5};
  polyline(xs, ys);
  const Places whole = placesOf(strips().at(0));
  const VELThickSegment edge = VELMakeThickSegment(0, 20, 10, 5, 2.0f);
  const std::pair<float, float> plus{edge.x, 20 + edge.y}, minus{-edge.x, 20 - edge.y};
  EXPECT_EQ(Places(whole.begin() + 8, whole.begin() + 12), (Places{minus, plus, plus, minus}));

  const std::vector<double> rows[][2] = {{{0, 10, 20}, {0, 10, 0}}, {{5, 5, 5}, {0, 10, 5}}};
  for (const auto& [toRight, down] : rows) {
    context.clear();
    polyline(toRight, down);
    EXPECT_EQ(strips().at(0).indices, consecutive(0, 8)) << "to the right or straight down it is not";
  }
  // At the end of a buffer a batch leaves the turn out where it does not fit, an extension takes it along.
  const struct {
    bool isBatch;
    int32_t capacity;
    std::vector<std::vector<uint16_t>> strips;
  } ends[] = {{true, 18, {consecutive(0, 14)}},
              {true, 17, {{0, 1, 2, 3, 4, 5, 6, 7, 7, 8, 8, 9, 10, 11}}},
              {true, 15, {consecutive(0, 8), consecutive(0, 4)}},
              {false, 16, {consecutive(0, 14)}},
              {false, 15, {consecutive(0, 8), consecutive(0, 6)}}};
  for (const auto& [isBatch, capacity, expected] : ends) {
    VELOpenGLRenderContext small(capacity, gl.context);
    isBatch ? small.drawPolylineWithBrush(pen, *doubles(xs), *doubles(ys), 0)
            : small.beginPolylineWithBrush(pen, 0, 0);
    for (const auto& [x, y] : {std::pair{10.0f, 10.0f}, {0.0f, 20.0f}, {10.0f, 5.0f}})
      if (!isBatch) small.extendPolylineWithBrush(pen, x, y);
    const auto drawn = replay(small, gl.gl());
    ASSERT_EQ(drawn.size(), expected.size()) << capacity;
    for (size_t i = 0; i < drawn.size(); ++i) EXPECT_EQ(drawn[i].indices, expected[i]) << capacity;
    const Places last = placesOf(drawn.back());
    EXPECT_TRUE(std::equal(whole.end() - 4, whole.end(), last.end() - 4)) << capacity;
  }
}

// The four corners of every segment, without the joins between them and the turned edges.
std::vector<Places> quadsOf(const std::vector<DrawnStrip>& drawn) {
  std::vector<Places> quads;
  for (const DrawnStrip& strip : drawn) {
    Places corners;
    for (size_t i = 0; i < strip.indices.size(); ++i) {
      const bool isRestart = i > 0 && strip.indices[i] == strip.indices[i - 1];
      if (!isRestart) corners.emplace_back(strip.vertices[i].x, strip.vertices[i].y);
    }
    for (size_t i = 0; i + 4 <= corners.size(); i += 4) {
      if (corners[i] == corners[i + 3] && corners[i + 1] == corners[i + 2]) i += 2;
      quads.emplace_back(corners.begin() + static_cast<long>(i), corners.begin() + static_cast<long>(i + 4));
    }
  }
  return quads;
}

// Both ways to draw a polyline show the same triangles, whatever the data and the pen, also where a batch is
// extended; small buffers end in the middle of gaps, turns and restarts.
TEST_F(Primitives, ABatchDrawsWhatExtensionsDrawAcrossAnyNumberOfBuffers) {
  std::mt19937 random(20261122);
  for (int round = 0; round < 300; ++round) {
    std::vector<double> xs(3 + random() % 60), ys(xs.size());
    for (size_t i = 0; i < xs.size(); ++i) {
      xs[i] = static_cast<double>(random() % 40);
      ys[i] = random() % 4 == 0 ? (random() % 2 == 0 ? kNaN : kInf) : static_cast<double>(random() % 40);
    }
    const VELPenPtr with = round % 5 == 0 ? columnGradient(1) : pen;
    const auto capacity = round % 3 == 0 ? 4096 : static_cast<int32_t>(8 + random() % 33);
    VELOpenGLRenderContext batched(capacity, gl.context), extended(capacity, gl.context);
    const std::span allButOne(xs.data(), xs.size() - 1);
    batched.drawPolylineWithBrush(with, *doubles(allButOne), *doubles(std::span(ys).first(allButOne.size())),
                                  5);  // the starting index is ignored
    batched.extendPolylineWithBrush(with, static_cast<float>(xs.back()), static_cast<float>(ys.back()));
    extended.beginPolylineWithBrush(with, static_cast<float>(xs[0]), static_cast<float>(ys[0]));
    std::vector<Places> expected;
    for (size_t i = 1; i < xs.size(); ++i) {
      extended.extendPolylineWithBrush(with, static_cast<float>(xs[i]), static_cast<float>(ys[i]));
      if (!std::isfinite(ys[i - 1]) || !std::isfinite(ys[i])) continue;
      const auto edge = VELMakeThickSegment(xs[i - 1], ys[i - 1], xs[i], ys[i], with->strokeThickness());
      const auto corner = [&](size_t k, double side) {
        return std::pair(static_cast<float>(xs[k] + side * double{edge.x}),
                         static_cast<float>(ys[k] + side * double{edge.y}));
      };
      expected.push_back({corner(i - 1, 1), corner(i - 1, -1), corner(i, 1), corner(i, -1)});
    }
    const auto a = replay(batched, gl.gl()), b = replay(extended, gl.gl());
    ASSERT_EQ(quadsOf(a), expected) << round << ", buffers of " << capacity;
    ASSERT_EQ(quadsOf(b), expected) << round << ", buffers of " << capacity;
    if (capacity < 4096 || a.empty()) continue;
    ASSERT_EQ(a.size(), b.size());
    EXPECT_EQ(a[0].indices, b[0].indices);
    EXPECT_EQ(a[0].vertices, b[0].vertices);
  }
}

TEST_F(Primitives, APointWithoutAPenMovesTheLineWithoutDrawing) {
  const auto quad = [](float from, float to) { return Places{{from, 3}, {from, -1}, {to, 3}, {to, -1}}; };
  context.extendPolylineWithBrush(pen, 5, 1);
  EXPECT_TRUE(strips().empty()) << "never begun";
  context.beginPolylineWithBrush(pen, 0, 1);
  context.extendPolylineWithBrush(pen, 10, 1);
  context.extendPolylineWithBrush(nullptr, 20, 1);
  context.extendPolylineWithBrush(pen, 30, 1);
  context.beginPolylineWithBrush(nullptr, 50, 1);
  context.extendPolylineWithBrush(pen, 60, 1);
  const auto drawn = strips();
  EXPECT_EQ(quadsOf(drawn), (std::vector{quad(0, 10), quad(20, 30), quad(50, 60)}));
  ASSERT_EQ(drawn.size(), 1u);
  EXPECT_EQ(drawn[0].indices.size(), 3u * 4 + 2u * 2) << "a restart at either gap";
  context.clear();
  context.extendPolylineWithBrush(pen, 70, 1);
  EXPECT_TRUE(strips().empty()) << "a cleared context has no point to go on from";
}

TEST_F(Primitives, ANonFinitePointLeavesAGapAndNoNaN) {
  for (const double bad : {kNaN, kInf, -kInf, 1e300}) {
    context.clear();
    const double xs[] = {0, 10, 20, 30, 40}, ys[] = {5, 5, bad, 7, 7};
    polyline(xs, ys);
    const auto drawn = strips();
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].indices, (std::vector<uint16_t>{0, 1, 2, 3, 3, 4, 4, 5, 6, 7}));
    EXPECT_EQ(placesOf(drawn[0])[4], placesOf(drawn[0])[3]);
    EXPECT_EQ(placesOf(drawn[0])[6], (std::pair<float, float>{30, 9}));
  }
  context.clear();
  const double leading[] = {kNaN, kNaN, 0, 1}, flat[] = {1, 1, 1, 1};
  polyline(flat, leading);
  EXPECT_EQ(strips().at(0).indices, consecutive(0, 4)) << "nothing to join yet";
}

TEST_F(Primitives, WhatCannotBeDrawnRecordsNothingAndTakesNoBuffer) {
  const auto bad = static_cast<float>(kNaN);
  const double few[] = {1}, two[] = {1, 2}, none[] = {kNaN, kNaN};
  const auto floats = VELArrayController::initWithType(VELDataType_Float);
  floats->appendRange(std::span<const double>(two));
  const auto dates = VELArrayController::initWithType(VELDataType_DateTime);
  for (const double second : two) dates->append(VELDate(second));
  context.drawLineWithBrush(pen, 0, bad, 1, 1);
  context.drawLineWithBrush(nullptr, 0, 0, 1, 1);
  context.drawLineWithBrush(VELPen2D::solid(1, bad), 0, 0, 1, 1);
  context.drawRectWithBrush(VELBrush2D::solid(1), 0, 0, 1, static_cast<float>(kInf));
  context.drawRectWithBrush(nullptr, 0, 0, 1, 1);
  context.beginPolylineWithBrush(nullptr, 0, 0);
  context.extendPolylineWithBrush(nullptr, 0, 0);
  context.drawPolylineWithBrush(pen, *floats, *floats, 0);
  context.drawPolylineWithBrush(pen, *dates, *dates, 0);
  context.drawPolylineWithBrush(pen, *doubles(two), *doubles(few), 0);
  context.drawPolylineWithBrush(nullptr, *doubles(two), *doubles(two), 0);
  context.drawPolylineWithBrush(VELPen2D::solid(1, bad), *doubles(two), *doubles(two), 0);
  polyline(few, few);
  polyline({}, {});
  polyline(none, two);
  EXPECT_TRUE(strips().empty());
  EXPECT_EQ(context.drawingBufferCount(), 1u);
}

}  // namespace
