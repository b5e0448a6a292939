// What a pass costs while data streams in.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "tests/support/allocation_counter.h"
#include "tests/support/recording_host.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/series/fast_line_renderable_series.h"
#include "velmora/surface/chart_renderer.h"
#include "velmora/surface/chart_surface.h"
#include "velmora/surface/chart_surface_view.h"

namespace {

constexpr int32_t capacity = 5000;
constexpr int lines = 16, newPoints = 250;

// Sixteen rings on a scrolling X axis; the recorder is left out of the measured part, for it keeps every
// call.
struct Stream {
  Stream() {
    view = VELChartSurfaceView::initWithFrame({0.0, 0.0, 800.0, 400.0}, host);
    for (const bool isX : {true, false}) {
      const auto axis = std::make_shared<VELNumericAxis>();
      axis->setAutoRange(VELAutoRange_Always);
      view->surface()->attachAxis(axis, isX);
    }
    for (int line = 0; line < lines; ++line) {
      data.push_back(VELXyDataSeries::initFifoWithXType(VELDataType_Double, VELDataType_Double, capacity));
      auto series = std::make_shared<VELFastLineRenderableSeries>();
      series->setDataSeries(data.back());
      view->surface()->attachRenderableSeries(series);
    }
    while (appended < capacity) append();
    host.rootView()->addSubview(view);
    host.settle();
  }
  // One by one, as rings take their values.
  void append() {
    for (int line = 0; line < lines; ++line)
      for (int i = appended; i < appended + newPoints; ++i)
        data[static_cast<size_t>(line)]->appendX(i, std::sin(i * 0.01) + line);
    appended += newPoints;
  }

  RecordingHost host;
  std::shared_ptr<VELChartSurfaceView> view;
  std::vector<std::shared_ptr<VELXyDataSeries>> data;
  int appended = 0;
};

TEST(StreamingPass, AllocatesNothingOnceWarm) {
  Stream stream;
  VELChartRenderer renderer(stream.view->surface());
  auto* const context = stream.view->renderSurface()->renderContext().get();
  int64_t allocations = 0;
  for (int frame = 0; frame < 40; ++frame) {
    stream.append();
    const AllocationCounter counter;
    EXPECT_EQ(renderer.o_renderLoop(context), 0u);
    if (frame >= 20) allocations += counter.count();
  }
  EXPECT_EQ(allocations, 0);
  const auto xAxis = stream.view->surface()->xAxes()->itemAt(0);
  EXPECT_GE(VELGenericDouble(xAxis->visibleRange()->max()), stream.appended - 1) << "it scrolled along";
}

}  // namespace
