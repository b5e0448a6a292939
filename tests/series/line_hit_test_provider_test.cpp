// What a finger finds of a line.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "tests/series/drawn_series.h"
#include "velmora/surface/hit_test_provider.h"

namespace {

VELHitTestInfo touch(DrawnSeries& drawn, VELPoint point, VELHitTestMode mode, double radius = 3.0) {
  drawn.series->hitTestProvider()->setHitTestMode(mode);
  drawn.draw();
  return drawn.series->hitTestProvider()->hitTestSeries(*drawn.series, point, radius);
}

// The distance to what was really drawn: every segment of the recorded frame, walked in small steps.
double distanceToDrawing(const std::vector<RecordedOperation>& operations, VELPoint point) {
  std::vector<double> line;
  for (const auto& one : operations)
    if (one.name == "polyline" || one.name == "begin" || one.name == "extend")
      line.insert(line.end(), one.numbers.begin(), one.numbers.end());
  double least = kInf;
  for (size_t i = 0; i + 3 < line.size(); i += 2)
    for (double t = 0.0; t <= 1.0; t += 1.0 / 2048.0)
      least = std::fmin(least, std::hypot(line[i] + t * (line[i + 2] - line[i]) - point.x,
                                          line[i + 1] + t * (line[i + 3] - line[i + 1]) - point.y));
  return least;
}

TEST(LineHitTest, DistanceIsThatToTheLineAsDrawn) {
  const std::vector<double> xs = {0, 10, 20, 30, 40, 41, 60, 90}, unsorted = {50, 10, 70, 5, 40, 90, 20, 60};
  const std::vector<double> ys = {10, 60, 20, kNaN, 30, 90, 0, 40};
  for (const auto& places : {xs, unsorted})
    for (int kind = 0; kind < 8; ++kind) {
      DrawnSeries drawn(places, ys, (kind & 1) != 0);
      drawn.series->style()->setIsDigitalLine((kind & 2) != 0);
      if (kind & 4) drawn.series->setPaletteProvider(std::make_shared<TestPalette>());
      for (double x = -20.0; x <= 120.0; x += 17.5)
        for (double y = -20.0; y <= 120.0; y += 17.5) {
          const auto found = touch(drawn, {x, y}, VELHitTestMode_Nearest);
          const double expected = distanceToDrawing(drawn.surface->render->operations, {x, y});
          EXPECT_NEAR(found.distance, expected, 0.05) << kind << " at " << x << ", " << y;
          EXPECT_EQ(found.isHit, found.distance <= 3.0);
        }
    }
}

TEST(LineHitTest, TheModeChoosesThePoint) {
  const auto nearestX = VELHitTestMode_NearestX, nearest = VELHitTestMode_Nearest,
             between = VELHitTestMode_Interpolate;
  const struct {
    bool digital, vertical;
    VELHitTestMode mode;
    VELPoint at;
    int32_t point;
    double x, y;
  } rows[] = {
      {false, false, nearestX, {34, 0}, 1, 30, 80},   // along the axis, however far the line is
      {false, false, nearestX, {20, 50}, 0, 10, 20},  // on a tie the one nearer on the screen: both 10 away
      {false, false, nearest, {34, 0}, 0, 10, 20},    //
      {false, false, nearest, {60, 0}, 3, 90, 40},    // the gap at 50 is no point
      {false, false, between, {15, 0}, 0, 15, 35},    // a quarter of the way
      {false, false, between, {60, 0}, 3, 90, 40},    // nothing lies between in a gap: as NearestX
      {true, false, between, {25, 0}, 0, 25, 20},     // a step keeps its value up to the next point
      {true, false, between, {45, 0}, 1, 45, 80},     // also up to a gap
      {false, true, between, {0, 15}, 0, 15, 35},     // vertical: x runs down the screen
      {true, true, between, {0, 25}, 0, 25, 20},      //
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    DrawnSeries drawn({10, 30, 50, 90}, {20, 80, kNaN, 40}, row.vertical, 7);
    drawn.series->style()->setIsDigitalLine(row.digital);
    const auto found = touch(drawn, row.at, row.mode);
    EXPECT_EQ(found.pointIndex, row.point);
    EXPECT_EQ(found.dataIndex, 7 * row.point) << "of the data, not of what was resampled";
    EXPECT_DOUBLE_EQ(found.xValue, row.x);
    EXPECT_DOUBLE_EQ(found.yValue, row.y);
    EXPECT_NEAR(row.vertical ? found.screenPoint.y : found.screenPoint.x, row.x, 1e-9);
  }
}

TEST(LineHitTest, NothingIsFoundWhereNothingIsDrawn) {
  const std::function<void(DrawnSeries&)> rows[] = {
      [](DrawnSeries& drawn) { drawn.series->setIsVisible(false); },
      [](DrawnSeries& drawn) { drawn.series->setDataSeries(nullptr); },
      [](DrawnSeries& drawn) { RecordingChart().surface->attachRenderableSeries(drawn.series); }};
  for (const auto& takeAway : rows) {
    DrawnSeries drawn({0, 1}, {0, 1});
    EXPECT_TRUE(touch(drawn, {0, 0}, VELHitTestMode_Nearest).isHit);
    EXPECT_FALSE(touch(drawn, {kNaN, 0}, VELHitTestMode_Nearest).hasPoint());
    EXPECT_FALSE(touch(drawn, {0, 0}, VELHitTestMode_Nearest, kNaN).isHit);
    takeAway(drawn);  // which counts at once, not from the next pass on
    EXPECT_FALSE(drawn.series->hitTestProvider()->hitTestSeries(*drawn.series, {0, 0}).hasPoint());
  }
  DrawnSeries gaps({0, 1}, {kNaN, kNaN}), beyond({0, 1}, {1e300, -1e300});
  for (const auto mode : {VELHitTestMode_NearestX, VELHitTestMode_Nearest, VELHitTestMode_Interpolate}) {
    EXPECT_FALSE(touch(gaps, {0, 0}, mode).hasPoint());
    EXPECT_FALSE(touch(beyond, {0.5, 0}, mode).isHit);
  }
}

}  // namespace
