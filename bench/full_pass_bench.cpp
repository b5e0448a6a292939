// One whole render pass of a line chart, and what GL adds to it.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <vector>

#include "velmora/velmora.h"

namespace {

// A chart of one line, 1920 by 1080 points, that has settled.
struct Chart {
  explicit Chart(int64_t count) : host(VELOffscreenHost::create({1920.0, 1080.0}, 1.0)) {
    if (!host) return;
    view = VELChartSurfaceView::initWithFrame({0.0, 0.0, 1920.0, 1080.0}, *host);
    view->surface()->attachAxis(std::make_shared<VELNumericAxis>(), true);
    view->surface()->attachAxis(std::make_shared<VELNumericAxis>(), false);
    std::vector<double> xs(static_cast<size_t>(count)), ys(xs.size());
    for (size_t i = 0; i < xs.size(); ++i) {
      xs[i] = static_cast<double>(i);
      ys[i] = std::sin(xs[i] * 0.001) + 0.2 * std::sin(xs[i] * 1.7);
    }
    data->appendRangeX(std::span<const double>(xs), std::span<const double>(ys));
    auto series = std::make_shared<VELFastLineRenderableSeries>();
    series->setDataSeries(data);
    view->surface()->attachRenderableSeries(series);
    host->rootView()->addSubview(view);
    host->settle(0.0);
  }

  std::shared_ptr<VELOffscreenHost> host;
  std::shared_ptr<VELChartSurfaceView> view;
  std::shared_ptr<VELXyDataSeries> data =
      std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
};

void fullPass(benchmark::State& state) {
  const Chart chart(state.range(0));
  if (!chart.view) return state.SkipWithError("no OpenGL ES here");
  VELChartRenderer renderer(chart.view->surface());
  auto* context = chart.view->renderSurface()->renderContext().get();
  for (auto _ : state) benchmark::DoNotOptimize(renderer.o_renderLoop(context));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void replayUnchanged(benchmark::State& state) {
  const Chart chart(state.range(0));
  if (!chart.view) return state.SkipWithError("no OpenGL ES here");
  chart.view->renderSurface()->setReduceGPUFrames(false);
  chart.host->settle(0.0);
  for (auto _ : state) {
    chart.host->tick(0.0);
    chart.host->glContext()->gl().finish();
  }
}

void frameOffscreen(benchmark::State& state) {
  const Chart chart(state.range(0));
  if (!chart.view) return state.SkipWithError("no OpenGL ES here");
  for (auto _ : state) {
    chart.view->surface()->invalidateElement();
    chart.host->tick(0.0);
    chart.host->glContext()->gl().finish();
  }
}

BENCHMARK(fullPass)
    ->Name("full_pass")
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Arg(10'000'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(replayUnchanged)->Name("replay_unchanged")->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(frameOffscreen)
    ->Name("frame_offscreen")
    ->Arg(10'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
