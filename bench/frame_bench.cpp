// Whole frames: one in which nothing changed, one into which data streams, and one of another size each time.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <vector>

#include "bench/counting_gl.h"
#include "velmora/velmora.h"

namespace {

using Clock = CountingGL::Clock;
constexpr VELRect kFrame = {0.0, 0.0, 1920.0, 1080.0};

double secondsBetween(Clock::time_point from, Clock::time_point to) {
  return std::chrono::duration<double>(to - from).count();
}

double wave(int64_t i, size_t line) {
  const auto x = static_cast<double>(i);
  return std::sin(x * 0.001) + 0.2 * std::sin(x * 1.7) + static_cast<double>(line);
}

// A chart of so many lines on any host.
struct Lines {
  Lines(VELHost& host, size_t lines, int32_t points, bool isFifo) {
    view = VELChartSurfaceView::initWithFrame(kFrame, host);
    for (const bool isX : {true, false}) {
      const auto axis = std::make_shared<VELNumericAxis>();
      axis->setAutoRange(VELAutoRange_Always);
      view->surface()->attachAxis(axis, isX);
    }
    for (size_t line = 0; line < lines; ++line) {
      data.push_back(isFifo
                         ? VELXyDataSeries::initFifoWithXType(VELDataType_Double, VELDataType_Double, points)
                         : std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double));
      auto series = std::make_shared<VELFastLineRenderableSeries>();
      series->setDataSeries(data.back());
      view->surface()->attachRenderableSeries(series);
    }
    while (appended < points) append();
    host.rootView()->addSubview(view);
  }
  /// A thousand points more in every line, one by one, as rings take their values.
  void append() {
    for (size_t line = 0; line < data.size(); ++line)
      for (int64_t i = appended; i < appended + 1000; ++i)
        data[line]->appendX(static_cast<double>(i), wave(i, line));
    appended += 1000;
  }

  std::shared_ptr<VELChartSurfaceView> view;
  std::vector<std::shared_ptr<VELXyDataSeries>> data;
  int64_t appended = 0;
};

// The replay alone; what it sends and how often it calls is counted.
void frameUnchanged(benchmark::State& state) {
  const auto context = VELGLContext::create();
  if (!context) return state.SkipWithError("no OpenGL ES here");
  CountingHost host(context);
  const Lines chart(host, 16, 100'000, false);
  chart.view->renderSurface()->setReduceGPUFrames(false);
  for (int i = 0; i < 4; ++i) host.tick(0.0);
  host.gl().reset();
  for (auto _ : state) {
    host.tick(0.0);
    host.gl().finish();
  }
  const auto frames = static_cast<double>(state.iterations());
  state.counters["gl_calls"] = static_cast<double>(host.gl().calls) / frames - 1.0;  // without the finish
  state.counters["draw_calls"] = static_cast<double>(host.gl().drawCalls) / frames;
  state.counters["uploaded_bytes"] = static_cast<double>(host.gl().uploadedBytes) / frames;
}

// 16 rings of 100,000 points get 1,000 points each a frame; the parts of the frame are told apart.
void frameStreaming(benchmark::State& state) {
  const auto context = VELGLContext::create();
  if (!context) return state.SkipWithError("no OpenGL ES here");
  CountingHost host(context);
  Lines chart(host, 16, 100'000, true);
  for (int i = 0; i < 4; ++i) chart.append(), host.tick(0.0);
  double append = 0.0, pass = 0.0, upload = 0.0, gl = 0.0;
  size_t bytes = 0;
  for (auto _ : state) {
    host.gl().reset();
    const Clock::time_point start = Clock::now();
    chart.append();
    const Clock::time_point appended = Clock::now();
    host.tick(0.0);
    host.gl().finish();
    const Clock::time_point end = Clock::now();
    append += secondsBetween(start, appended);
    pass += secondsBetween(appended, host.gl().firstClear);
    upload += host.gl().uploadSeconds;
    gl += secondsBetween(host.gl().firstClear, end) - host.gl().uploadSeconds;
    bytes += host.gl().uploadedBytes;
  }
  const auto perFrame = [&](double sum) { return sum / static_cast<double>(state.iterations()); };
  state.counters["append_us"] = perFrame(append * 1e6);
  state.counters["pass_us"] = perFrame(pass * 1e6);
  state.counters["upload_us"] = perFrame(upload * 1e6);
  state.counters["gl_us"] = perFrame(gl * 1e6);
  state.counters["uploaded_bytes"] = perFrame(static_cast<double>(bytes));
}

// A view gets a hundred sizes; each is laid out, drawn and composed as a window would show it.
void resizeStorm(benchmark::State& state) {
  constexpr VELSize most = {640.0, 400.0};
  constexpr int sizes = 100;
  const auto host = VELOffscreenHost::create(most, 1.0);
  if (!host) return state.SkipWithError("no OpenGL ES here");
  const Lines chart(*host, 1, 10'000, false);
  host->settle(0.0);

  VELGL& gl = host->glContext()->gl();
  VELGLLayer window(host->glContext());
  const uint32_t framebuffer = gl.genFramebuffer();
  window.allocate(static_cast<int32_t>(most.width), static_cast<int32_t>(most.height));
  gl.bindFramebuffer(VELGL_FRAMEBUFFER, framebuffer);
  window.attachToFramebuffer();
  for (auto _ : state)
    for (int i = 0; i < sizes; ++i) {
      chart.view->setFrame({0.0, 0.0, most.width - 3.0 * i, most.height - 2.0 * i});
      host->tick(0.0);
      gl.bindFramebuffer(VELGL_FRAMEBUFFER, framebuffer);
      host->composer().drawTree(*host->rootView(), {window.width(), window.height(), 1.0, {}});
      gl.finish();
    }
  gl.deleteFramebuffer(framebuffer);
  state.SetItemsProcessed(state.iterations() * sizes);
}

BENCHMARK(frameUnchanged)->Name("frame_unchanged")->Unit(benchmark::kMicrosecond);
BENCHMARK(frameStreaming)->Name("frame_streaming")->Unit(benchmark::kMicrosecond);
BENCHMARK(resizeStorm)->Name("resize_storm")->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
