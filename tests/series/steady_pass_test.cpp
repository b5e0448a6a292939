// What a chart costs when nothing changed but the frame.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "tests/support/allocation_counter.h"
#include "tests/support/recording_host.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/data/point_series.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/series/fast_line_renderable_series.h"
#include "velmora/surface/chart_surface.h"
#include "velmora/surface/chart_surface_view.h"
#include "velmora/surface/hit_test_provider.h"
#include "velmora/surface/render_pass_data.h"

namespace {

// Counts what its own drawing allocates.
class CountingSeries : public VELFastLineRenderableSeries {
 public:
  int64_t allocations = 0;
  int draws = 0;
  void onDrawWithContext(VELRenderContext2D& context,
                         const std::shared_ptr<const VELRenderPassData>& data) override {
    const AllocationCounter counter;
    VELFastLineRenderableSeries::onDrawWithContext(context, data);
    allocations += counter.count();
    ++draws;
  }
};

struct LineChart {
  explicit LineChart(int count) {
    view = VELChartSurfaceView::initWithFrame({0.0, 0.0, 800.0, 400.0}, host);
    view->surface()->attachAxis(std::make_shared<VELNumericAxis>(), true);
    view->surface()->attachAxis(std::make_shared<VELNumericAxis>(), false);
    for (int i = 0; i < count; ++i) data->appendX(i, std::sin(i * 0.01));
    series->setDataSeries(data);
    view->surface()->attachRenderableSeries(series);
    host.rootView()->addSubview(view);
    host.settle();
  }

  void redraw() {
    view->surface()->invalidateElement();
    host.tick();
  }

  RecordingHost host;
  std::shared_ptr<VELChartSurfaceView> view;
  std::shared_ptr<VELXyDataSeries> data =
      std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  std::shared_ptr<CountingSeries> series = std::make_shared<CountingSeries>();
};

TEST(SteadyPass, AllocatesNothingInDataResamplingAndDrawing) {
  for (const int count : {100, 50'000}) {
    LineChart chart(count);
    for (int i = 0; i < 4; ++i) chart.redraw();
    chart.series->allocations = chart.series->draws = 0;
    const void* points = chart.series->currentRenderPassData()->pointSeries().get();
    bool pointsComeBack = false;
    for (int i = 0; i < 4; ++i) {
      chart.redraw();
      pointsComeBack |= chart.series->currentRenderPassData()->pointSeries().get() == points;
    }
    EXPECT_EQ(chart.series->draws, 4);
    EXPECT_EQ(chart.series->allocations, 0) << count;
    EXPECT_TRUE(pointsComeBack) << "the point series of an earlier frame was not used again";

    // The data side, as the pass calls it: the last frame's record is still held by the series.
    const VELDoubleRange visible(0.0, static_cast<double>(count));
    VELIndexRange indices;
    VELPointResampler resampler;
    const auto resample = [&] {
      chart.data->getIndicesRangeWithVisibleRange(visible, indices);
      return chart.data->toPointSeriesWithResamplingMode(VELResamplingMode_MinMax, indices, 700, false,
                                                         visible, resampler);
    };
    resample();
    const AllocationCounter counter;
    for (int i = 0; i < 3; ++i) EXPECT_GT(resample()->count(), 0);
    EXPECT_EQ(counter.count(), 0) << count;
  }
}

// Two styles in turn, both kept.
struct TwoStyles : VELPaletteProvider {
  std::shared_ptr<VELLineSeriesStyle> styles[2] = {std::make_shared<VELLineSeriesStyle>(),
                                                   std::make_shared<VELLineSeriesStyle>()};
  void updateData(const VELRenderPassData&) override {}
  std::shared_ptr<const VELSeriesStyle> styleForX(double, double, uint32_t index) override {
    return styles[index % 2];
  }
};

TEST(SteadyPass, PalettesStepsMarkersAndHitTestsAllocateNothingEither) {
  for (const bool paletted : {false, true}) {
    LineChart chart(3'000);
    chart.series->style()->setIsDigitalLine(true);
    chart.series->style()->setDrawPointMarkers(true);
    const auto palette = std::make_shared<TwoStyles>();
    palette->styles[1]->setDrawPointMarkers(true);
    if (paletted) chart.series->setPaletteProvider(palette);
    for (int i = 0; i < 4; ++i) chart.redraw();
    chart.series->allocations = 0;
    for (int i = 0; i < 4; ++i) chart.redraw();
    EXPECT_EQ(chart.series->allocations, 0) << paletted;
    const AllocationCounter counter;
    EXPECT_TRUE(chart.series->hitTestProvider()->hitTestSeries(*chart.series, {100.0, 100.0}).hasPoint());
    EXPECT_EQ(counter.count(), 0);
  }
}

TEST(SteadyPass, TimeOfDayIsExactToThePixelWhenZoomedToAMillisecond) {
  // Half a century after 1970, nine points within one millisecond.
  const double start = 1577836800.0;
  LineChart chart(2);
  chart.data->clear();
  for (int i = 0; i <= 8; ++i) chart.data->appendX(start + i / 8192.0, i);
  const auto axis = chart.view->surface()->xAxes()->itemAt(0);
  axis->setVisibleRange(std::make_shared<VELDoubleRange>(start, start + 8.0 / 8192.0));
  chart.redraw();
  const auto pass = chart.series->currentRenderPassData();
  ASSERT_NE(pass->pointSeries(), nullptr);
  const double width = chart.view->surface()->chartFrame().width;
  for (size_t i = 0; i <= 8; ++i)
    EXPECT_NEAR(pass->xCoordinateCalculator()->getCoordinateFrom(pass->pointSeries()->xSpan()[i]),
                static_cast<double>(i) * (width - 1.0) / 8.0, 0.01);
}

}  // namespace
