#include "tests/axes/fake_chart.h"
#include "tests/support/allocation_counter.h"
#include "velmora/axes/coordinate_calculator.h"
#include "velmora/axes/pixel_grid.h"

namespace {

TEST(PixelGrid, LinesCoverWholePixelsAndStayInside) {
  const struct {
    double scale, origin, length, centre, width, snapped;
  } rows[] = {{1, 0, 100, 0, 1, 0.5},     {1, 0, 100, 99, 1, 99.5},        {1, 0, 100, 100, 1, 99.5},
              {1, 0, 100, 40.4, 1, 40.5}, {1, 0, 100, 39.6, 1, 39.5},      {1, 0, 100, 50, 2, 50},
              {1, 10.5, 100, 40, 1, 40},  {1.5, 0, 100, 50, 2, 151 / 3.0}, {1, 0, 100, 50, 0.1, 50.5},
              {kNaN, 0, 100, 7, 1, 7.5},  {1, 0, 0.2, 7, 1, 7.5}};
  for (const auto& row : rows) {
    const VELPixelGrid grid{row.scale, row.origin, row.length};
    EXPECT_NEAR(grid.snapLine(row.centre, row.width), row.snapped, 1e-12)
        << row.centre << " at " << row.scale;
  }
}

/// First and last pixel of the surface that a line covers along one direction.
std::pair<double, double> alongOf(const DrawnShape& line, const VELPenPtr& pen, bool vertical) {
  const double t = line.kind == 'L' ? static_cast<double>(pen->strokeThickness()) : 0.0;
  return vertical ? std::pair(line.x1 - t, line.x2 + t) : std::pair(line.y1 - t, line.y2 + t);
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
          const auto [from, to] = alongOf(lines[i], pen, vertical);
          EXPECT_TRUE(isWhole(from * scale) && isWhole(to * scale)) << from;
          const VELRect& area = lines[i].area;
          EXPECT_GE(from, (vertical ? area.x : area.y) - 1e-3);
          EXPECT_LE(to, (vertical ? area.right() : area.bottom()) + 1e-3);
          const double place = static_cast<double>(coordinates[i]) +
                               (vertical ? chart.surface->frame.x : chart.surface->frame.y);
          // Half of a line of one point: at the ends of the area it moves inside as a whole.
          EXPECT_LE(std::abs((from + to) / 2 - place), 0.5 + 1e-3);
        }
      }
    }
  }
}

TEST(AxisDrawing, BandsThenMinorThenMajorLinesXBeforeYOverTheChartFrameAlone) {
  FakeChart chart({1280, 720});
  chart.drawUntilStable();
  const VELAxisStyle &x = chart.x->style(), &y = chart.y->style();
  const std::vector<const VELBrush2D*> expected = {x.minorTickPen().get(),     x.majorTickPen().get(),
                                                   y.minorTickPen().get(),     y.majorTickPen().get(),
                                                   x.gridBandBrush().get(),    y.gridBandBrush().get(),
                                                   x.minorGridLinePen().get(), y.minorGridLinePen().get(),
                                                   x.majorGridLinePen().get(), y.majorGridLinePen().get()};
  std::vector<const VELBrush2D*> order;
  for (const DrawnShape& shape : chart.context.shapes) {
    if (order.empty() || order.back() != shape.brush) order.push_back(shape.brush);
    const auto isTick = std::find(expected.begin(), expected.begin() + 4, shape.brush) - expected.begin() < 4;
    EXPECT_EQ(shape.area == chart.surface->frame, !isTick);
  }
  EXPECT_EQ(order, expected);
  EXPECT_EQ(chart.context.area, chart.surface->frame);

  chart.x->style().setMinorTickPen(nullptr);
  chart.x->style().setMajorGridLinePen(nullptr);
  chart.draw();
  EXPECT_TRUE(chart.context.of(expected[0]).empty() && chart.context.of(expected[8]).empty());
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

TEST(AxisDrawing, ASteadyPassAllocatesNothing) {
  FakeChart chart({1280, 720});
  chart.drawUntilStable();
  chart.draw();
  const AllocationCounter allocations;
  chart.draw();
  EXPECT_EQ(allocations.count(), 0) << "not even for its calculators, which are new in every pass";
}

}  // namespace
