// What a pass costs once it is warm.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/series/drawn_series.h"
#include "tests/support/allocation_counter.h"
#include "tests/support/recording_host.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/surface/hit_test_provider.h"

namespace {

constexpr int32_t kCapacity = 5000;

// Lines on axes that always fit them, in rings or in series that grow.
struct LineChart {
  LineChart(int lines, int count, bool rings) {
    view = VELChartSurfaceView::initWithFrame({0.0, 0.0, 800.0, 400.0}, host);
    for (const bool isX : {true, false}) {
      const auto axis = std::make_shared<VELNumericAxis>();
      axis->setAutoRange(VELAutoRange_Always);
      view->surface()->attachAxis(axis, isX);
    }
    for (int line = 0; line < lines; ++line) {
      data.push_back(
          rings ? VELXyDataSeries::initFifoWithXType(VELDataType_Double, VELDataType_Double, kCapacity)
                : std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double));
      series.push_back(std::make_shared<VELFastLineRenderableSeries>());
      series.back()->setDataSeries(data.back());
      view->surface()->attachRenderableSeries(series.back());
    }
    append(count);
    host.rootView()->addSubview(view);
    host.settle();
  }
  // One by one, as rings take their values.
  void append(int count) {
    for (size_t line = 0; line < data.size(); ++line)
      for (int i = appended; i < appended + count; ++i)
        data[line]->appendX(i, std::sin(i * 0.01) + static_cast<double>(line));
    appended += count;
  }

  RecordingHost host;
  std::shared_ptr<VELChartSurfaceView> view;
  std::vector<std::shared_ptr<VELXyDataSeries>> data;
  std::vector<std::shared_ptr<VELFastLineRenderableSeries>> series;
  int appended = 0;
};

// Styles in turn, all kept, with gradients and with markers.
std::shared_ptr<TestPalette> makePalette() {
  std::vector<std::shared_ptr<VELLineSeriesStyle>> styles;
  for (int i = 0; i < 40; ++i) {
    styles.push_back(std::make_shared<VELLineSeriesStyle>());
    styles.back()->setDrawPointMarkers(i % 2 != 0);
    if (i % 3 != 0)
      styles.back()->setLinePen(VELPen2D::linearGradient(1, 2, VELGradientDirection_Vertical, 1.0f));
  }
  auto palette = std::make_shared<TestPalette>();
  palette->answer = [styles](double, double, uint32_t index) { return styles[index % styles.size()]; };
  return palette;
}

// The recorder is left out of the measured part, for it keeps every call.
TEST(SteadyPass, AllocatesNothingOnceWarm) {
  const struct {
    int lines, count, newPoints;
    bool decorated, paletted;
  } rows[] = {{1, 100, 0, false, false},
              {1, 50'000, 0, false, false},
              {16, kCapacity, 250, false, false},
              {1, 3'000, 0, true, false},
              {1, 3'000, 0, true, true}};
  for (const auto& row : rows) {
    LineChart chart(row.lines, row.count, row.newPoints > 0);
    const auto& first = chart.series.front();
    first->style()->setIsDigitalLine(row.decorated);
    first->style()->setDrawPointMarkers(row.decorated);
    if (row.paletted) first->setPaletteProvider(makePalette());
    VELChartRenderer renderer(chart.view->surface());
    auto* const context = chart.view->renderSurface()->renderContext().get();
    int64_t allocations = 0;
    for (int frame = 0; frame < 40; ++frame) {
      chart.append(row.newPoints);
      const AllocationCounter counter;
      EXPECT_EQ(renderer.o_renderLoop(context), 0u);
      if (frame >= 20) allocations += counter.count();
    }
    EXPECT_EQ(allocations, 0) << &row - rows;
    const auto xAxis = chart.view->surface()->xAxes()->itemAt(0);
    EXPECT_GE(xAxis->visibleRange()->maxAsDouble(), chart.appended - 1) << "it scrolled along";
    const AllocationCounter counter;
    EXPECT_TRUE(first->hitTestProvider()->hitTestSeries(*first, {100.0, 100.0}).hasPoint());
    EXPECT_EQ(counter.count(), 0);
  }
}

TEST(SteadyPass, TimeOfDayIsExactToThePixelWhenZoomedToAMillisecond) {
  // Half a century after 1970, nine points within one millisecond.
  const double start = 1577836800.0;
  LineChart chart(1, 0, false);
  for (int i = 0; i <= 8; ++i) chart.data[0]->appendX(start + i / 8192.0, i);
  chart.view->surface()->invalidateElement();
  chart.host.settle();
  const auto pass = chart.series[0]->currentRenderPassData();
  ASSERT_NE(pass->pointSeries(), nullptr);
  const double width = chart.view->surface()->chartFrame().width;
  for (int i = 0; i <= 8; ++i)
    EXPECT_NEAR(pass->xCoordinateCalculator()->getCoordinateFrom(start + i / 8192.0), i * (width - 1.0) / 8.0,
                0.01);
}

}  // namespace
