#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>
#include <vector>

#include "fake_chart.h"
#include "tests/support/allocation_counter.h"
#include "velmora/axes/coordinate_calculator.h"
#include "velmora/axes/pixel_grid.h"

namespace {

TEST(PixelGrid, LinesCoverWholePixelsAndStayInside) {
  struct Row {
    double scale, origin, length, centre, width, snapped;
  };
  for (const Row& row : std::vector<Row>{{1, 0, 100, 0, 1, 0.5},
                                         {1, 0, 100, 99, 1, 99.5},
                                         {1, 0, 100, 100, 1, 99.5},
                                         {1, 0, 100, 40.4, 1, 40.5},
                                         {1, 0, 100, 39.6, 1, 39.5},
                                         {1, 0, 100, 50, 2, 50},
                                         {2, 0, 100, 50, 1, 50},
                                         {2, 0, 100, 0, 1, 0.5},
                                         {2, 0, 100, 50.2, 0.5, 50.25},
                                         {1, 10.5, 100, 40, 1, 40},
                                         {1.5, 0, 100, 50, 2, 151 / 3.0},
                                         {1, 0, 100, 50, 0.1, 50.5},
                                         {std::nan(""), 0, 100, 7, 1, 7.5},
                                         {1, 0, 0.2, 7, 1, 7.5}})
    EXPECT_NEAR((VELPixelGrid{row.scale, row.origin, row.length}.snapLine(row.centre, row.width)),
                row.snapped, 1e-12)
        << row.centre << " at " << row.scale;
}

/// Pixels of the surface that a shape covers along one direction.
struct Cover {
  double from, to;
};

Cover alongOf(const DrawnShape& shape, const VELPenPtr& pen, bool vertical) {
  const double t = shape.kind == 'L' ? static_cast<double>(pen->strokeThickness()) : 0.0;
  return vertical ? Cover{shape.x1 - t, shape.x2 + t} : Cover{shape.y1 - t, shape.y2 + t};
}

bool isWhole(double pixels) { return std::abs(pixels - std::round(pixels)) < 1e-3; }

TEST(AxisDrawing, EveryLineIsCrispInsideItsAreaAndNearItsTick) {
  for (const double scale : {1.0, 2.0, 3.0}) {
    FakeChart chart({640, 360});
    chart.surface->scale = scale;
    chart.drawUntilStable();
    for (const auto& axis : {chart.x, chart.y}) {
      const VELAxisStyle& style = axis->style();
      const auto ticks = axis->CalculateTicks();
      const bool vertical = axis == chart.x;  // lines of a horizontal axis run vertically
      for (const VELPenPtr& pen :
           {style.majorGridLinePen(), style.minorGridLinePen(), style.majorTickPen(), style.minorTickPen()}) {
        const bool major = pen == style.majorGridLinePen() || pen == style.majorTickPen();
        const auto coordinates = major ? ticks->getMajorTickCoordinates() : ticks->getMinorTickCoordinates();
        const auto lines = chart.context.of(pen.get());
        ASSERT_EQ(lines.size(), coordinates.size());
        for (size_t i = 0; i < lines.size(); ++i) {
          const Cover cover = alongOf(lines[i], pen, vertical);
          EXPECT_TRUE(isWhole(cover.from * scale) && isWhole(cover.to * scale)) << cover.from;
          const VELRect& area = lines[i].area;
          EXPECT_GE(cover.from, (vertical ? area.x : area.y) - 1e-3);
          EXPECT_LE(cover.to, (vertical ? area.right() : area.bottom()) + 1e-3);
          const double place = static_cast<double>(coordinates[i]) +
                               (vertical ? chart.surface->frame.x : chart.surface->frame.y);
          // Half of a line of one point: at the ends of the area it moves inside as a whole.
          EXPECT_LE(std::abs((cover.from + cover.to) / 2 - place), 0.5 + 1e-3);
        }
      }
    }
  }
}

TEST(AxisDrawing, BandsThenMinorThenMajorLinesXBeforeYOverTheChartFrameAlone) {
  FakeChart chart({1280, 720});
  chart.drawUntilStable();
  std::vector<const VELBrush2D*> order;
  for (const DrawnShape& shape : chart.context.shapes) {
    if (order.empty() || order.back() != shape.brush) order.push_back(shape.brush);
    const bool isTick = shape.brush == chart.x->style().majorTickPen().get() ||
                        shape.brush == chart.x->style().minorTickPen().get() ||
                        shape.brush == chart.y->style().majorTickPen().get() ||
                        shape.brush == chart.y->style().minorTickPen().get();
    EXPECT_EQ(shape.area == chart.surface->frame, !isTick);
  }
  const VELAxisStyle &x = chart.x->style(), &y = chart.y->style();
  const std::vector<const VELBrush2D*> expected = {x.minorTickPen().get(),     x.majorTickPen().get(),
                                                   y.minorTickPen().get(),     y.majorTickPen().get(),
                                                   x.gridBandBrush().get(),    y.gridBandBrush().get(),
                                                   x.minorGridLinePen().get(), y.minorGridLinePen().get(),
                                                   x.majorGridLinePen().get(), y.majorGridLinePen().get()};
  EXPECT_EQ(order, expected);
  EXPECT_EQ(chart.context.area, chart.surface->frame);

  chart.x->style().setDrawMajorBands(false);
  chart.x->style().setDrawMajorTicks(false);
  chart.x->style().setMinorTickPen(nullptr);
  chart.x->style().setDrawMinorGridLines(false);
  chart.x->style().setMajorGridLinePen(nullptr);
  chart.draw();
  const std::set<const VELBrush2D*> ofY = {y.minorTickPen().get(), y.majorTickPen().get(),
                                           y.gridBandBrush().get(), y.minorGridLinePen().get(),
                                           y.majorGridLinePen().get()};
  ASSERT_FALSE(chart.context.shapes.empty());
  for (const DrawnShape& shape : chart.context.shapes)
    EXPECT_TRUE(ofY.contains(shape.brush)) << "the X axis has everything switched off";
}

TEST(AxisDrawing, TicksStandOutwardsFromTheChartFrame) {
  for (const auto x : {VELAxisAlignment_Bottom, VELAxisAlignment_Top}) {
    for (const auto y : {VELAxisAlignment_Left, VELAxisAlignment_Right}) {
      FakeChart chart({640, 360}, x, y);
      chart.drawUntilStable();
      const VELRect& f = chart.surface->frame;
      const auto ofX = chart.context.of(chart.x->style().majorTickPen().get());
      ASSERT_FALSE(ofX.empty());
      for (const DrawnShape& tick : ofX) {
        EXPECT_NEAR(tick.y1, x == VELAxisAlignment_Bottom ? f.bottom() : f.y, 1e-3);
        EXPECT_NEAR(tick.y2 - tick.y1, x == VELAxisAlignment_Bottom ? 6 : -6, 1e-3);
      }
      const auto ofY = chart.context.of(chart.y->style().majorTickPen().get());
      ASSERT_FALSE(ofY.empty());
      for (const DrawnShape& tick : ofY) {
        EXPECT_NEAR(tick.x1, y == VELAxisAlignment_Right ? f.right() : f.x, 1e-3);
        EXPECT_NEAR(tick.x2 - tick.x1, y == VELAxisAlignment_Right ? 6 : -6, 1e-3);
      }
    }
  }
}

// While the chart is panned, the same gaps between data values stay filled, at both ends as well.
TEST(AxisDrawing, BandsMoveWithTheData) {
  for (const bool flip : {false, true}) {
    FakeChart chart({1000, 400});
    chart.layOut(40, 90);  // 900 points wide: 0.01 per point
    chart.x->setFlipCoordinates(flip);
    ASSERT_EQ(chart.surface->frame.width, 900);
    for (int32_t pan = 0; pan < 108; ++pan) {
      const double min = -20.0 + 0.37 * pan;
      chart.x->setVisibleRange(doubles(min, min + 8.99));
      chart.draw();
      ASSERT_EQ(VELGenericDouble(chart.x->majorDelta()), 1.0);
      const auto bands = chart.context.of(chart.x->style().gridBandBrush().get());
      const auto isFilled = [&](double value) {
        const double place =
            chart.surface->frame.x + chart.x->currentCoordinateCalculator()->getCoordinateFrom(value);
        for (const DrawnShape& band : bands)
          if (band.x1 < place && place < band.x2) return true;
        return false;
      };
      for (int32_t k = 0; k < 89; ++k) {
        const double value = min + 0.05 + 0.1 * k;
        const double nearest = std::abs(value - std::round(value));
        if (nearest < 0.02) continue;  // an edge may lie a pixel beside its major
        EXPECT_EQ(isFilled(value), static_cast<int>(std::floor(value)) % 2 == 0) << value << " from " << min;
      }
    }
  }
}

TEST(AxisDrawing, AnAxisThatCannotDrawLeavesNothingBehind) {
  constexpr double inf = std::numeric_limits<double>::infinity();
  for (const VELRangePtr& range :
       {doubles(3, 3), doubles(std::nan(""), 1), doubles(-inf, inf), doubles(-1e308, 1e308),
        doubles(1e300, 1.0000000000000002e300), VELRangePtr()}) {
    FakeChart chart;
    chart.draw();
    ASSERT_FALSE(chart.x->axisPanel()->tickLabels().empty());
    chart.x->setVisibleRange(range);
    chart.y->setVisibleRange(range);
    chart.draw();
    for (const auto& axis : {chart.x, chart.y})
      for (const auto& label : axis->axisPanel()->tickLabels())
        EXPECT_TRUE(label->isHidden() || axis->hasValidVisibleRange());
    for (const DrawnShape& shape : chart.context.shapes)
      EXPECT_TRUE(std::isfinite(shape.x1 + shape.x2 + shape.y1 + shape.y2));
  }
  FakeChart chart;
  chart.draw();
  chart.x->setParentSurface({});
  chart.y->setParentSurface({});
  chart.draw();
  EXPECT_TRUE(chart.context.shapes.empty());
}

TEST(AxisDrawing, ASteadyPassAllocatesNothing) {
  FakeChart chart({1280, 720});
  chart.drawUntilStable();
  chart.draw();
  const AllocationCounter allocations;
  chart.draw();
  EXPECT_EQ(allocations.count(), 0) << "not even for its calculators, which are new in every pass";
}

TEST(AxisDrawing, MinorsThatWouldBeAGreyAreaAreLeftOut) {
  FakeChart wide({1280, 720}), narrow({150, 120});
  wide.drawUntilStable();
  narrow.drawUntilStable();
  EXPECT_FALSE(wide.context.of(wide.x->style().minorGridLinePen().get()).empty());
  EXPECT_TRUE(narrow.context.of(narrow.x->style().minorGridLinePen().get()).empty());
  EXPECT_TRUE(narrow.context.of(narrow.x->style().minorTickPen().get()).empty());
  EXPECT_FALSE(narrow.context.of(narrow.x->style().majorGridLinePen().get()).empty());
}

}  // namespace
