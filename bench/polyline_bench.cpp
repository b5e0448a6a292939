// Points to triangles: segments per second into the drawing buffers, without GL.
#include <benchmark/benchmark.h>

#include <cmath>
#include <limits>
#include <vector>

#include "velmora/data/array_controller.h"
#include "velmora/rendering/opengl_render_context.h"

namespace {

constexpr size_t kPoints = 1 << 16;

// Real lines go up and down; one point in a thousand is missing where `withGaps`.
std::shared_ptr<VELArrayController> column(bool isX, bool withGaps) {
  std::vector<double> values(kPoints);
  for (size_t i = 0; i < kPoints; ++i) {
    const double t = static_cast<double>(i);
    values[i] = isX ? t / 32.0 : 500.0 + 400.0 * std::sin(t * 0.9);
    if (withGaps && i % 1000 == 999) values[i] = std::numeric_limits<double>::quiet_NaN();
  }
  auto controller = VELArrayController::initWithType(VELDataType_Double);
  controller->appendRange(std::span<const double>(values));
  return controller;
}

void batch(benchmark::State& state, bool withGaps) {
  const auto xs = column(true, false);
  const auto ys = column(false, withGaps);
  const VELPenPtr pen = VELPen2D::solid(0xFF50A0F0u, 1.0f);
  VELOpenGLRenderContext context(65536, nullptr);
  for (auto _ : state) {
    context.clear();
    context.drawPolylineWithBrush(pen, *xs, *ys, 0);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(kPoints - 1));
}

void pieces(benchmark::State& state) {
  const auto xs = column(true, false);
  const auto ys = column(false, false);
  const VELPenPtr pen = VELPen2D::solid(0xFF50A0F0u, 1.0f);
  VELOpenGLRenderContext context(65536, nullptr);
  for (auto _ : state) {
    context.clear();
    const auto x = xs->doubles(), y = ys->doubles();
    context.beginPolylineWithBrush(pen, static_cast<float>(x[0]), static_cast<float>(y[0]));
    for (size_t i = 1; i < kPoints; ++i)
      context.extendPolylineWithBrush(pen, static_cast<float>(x[i]), static_cast<float>(y[i]));
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(kPoints - 1));
}

BENCHMARK_CAPTURE(batch, plain, false)->Name("polyline_batch");
BENCHMARK_CAPTURE(batch, gaps, true)->Name("polyline_batch_gaps");
BENCHMARK(pieces)->Name("polyline_extend");

}  // namespace
