// What an open window costs: at rest, and until it shows its chart. Needs a display; xvfb-run gives one.
#include <benchmark/benchmark.h>

#include <cmath>
#include <ctime>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "velmora/velmora.h"

namespace {

std::shared_ptr<VELXyDataSeries> waveOf(size_t count) {
  std::vector<double> xs(count), ys(count);
  for (size_t i = 0; i < count; ++i) {
    xs[i] = static_cast<double>(i);
    ys[i] = std::sin(xs[i] * 0.001) + 0.2 * std::sin(xs[i] * 1.7);
  }
  auto data = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  data->appendRangeX(std::span<const double>(xs), std::span<const double>(ys));
  return data;
}

/// A window with a chart of one line in it.
struct ChartWindow {
  ChartWindow(const std::shared_ptr<VELXyDataSeries>& data, std::string& failure)
      : host(VELWindowHost::create({}, &failure)) {
    if (!host) return;
    view = VELChartSurfaceView::initWithFrame(host->rootView()->bounds(), *host);
    view->surface()->attachAxis(std::make_shared<VELNumericAxis>(), true);
    view->surface()->attachAxis(std::make_shared<VELNumericAxis>(), false);
    auto series = std::make_shared<VELFastLineRenderableSeries>();
    series->setDataSeries(data);
    view->surface()->attachRenderableSeries(series);
    host->rootView()->addSubview(view);
  }

  std::shared_ptr<VELWindowHost> host;
  std::shared_ptr<VELChartSurfaceView> view;
};

double processorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

void idle(benchmark::State& state) {
  std::string failure;
  const ChartWindow window(waveOf(100'000), failure);
  if (!window.host) return state.SkipWithError(failure.c_str());
  for (const double end = window.host->seconds() + 1.0; window.host->seconds() < end;) window.host->step(0.1);

  const double begin = window.host->seconds(), work = processorSeconds();
  const uint64_t frames = window.host->presentedFrames();
  double turns = 0.0;
  for (auto _ : state) {
    const double end = window.host->seconds() + 10.0;
    for (double now; (now = window.host->seconds()) < end; ++turns) window.host->step(end - now);
  }
  const double seconds = window.host->seconds() - begin;
  state.counters["core_percent"] = 100.0 * (processorSeconds() - work) / seconds;
  state.counters["turns_per_second"] = turns / seconds;
  state.counters["frames"] = static_cast<double>(window.host->presentedFrames() - frames);
}

void startToFirstFrame(benchmark::State& state) {
  const auto data = waveOf(static_cast<size_t>(state.range(0)));
  std::string failure;
  for (auto _ : state) {
    auto window = std::make_unique<ChartWindow>(data, failure);
    if (!window->host) return state.SkipWithError(failure.c_str());
    while (window->host->presentedFrames() == 0) window->host->step(1.0);
    window->host->glContext()->gl().finish();
    state.PauseTiming();  // closing is another matter
    window.reset();
    state.ResumeTiming();
  }
}

BENCHMARK(idle)->Name("idle")->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);
BENCHMARK(startToFirstFrame)
    ->Name("start_to_first_frame")
    ->Arg(100'000)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
