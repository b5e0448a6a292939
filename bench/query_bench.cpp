// How fast a series answers what an axis asks in every frame.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <span>
#include <vector>

#include "bench/ratio.h"
#include "velmora/data/xy_data_series.h"

namespace {

/// Evenly spaced x, noisy y.
void fill(VELXyDataSeries& series, size_t points) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> noise(-1.0, 1.0);
  std::vector<double> x(points);
  std::vector<double> y(points);
  for (size_t i = 0; i < points; ++i) {
    x[i] = static_cast<double>(i);
    y[i] = noise(random);
  }
  series.appendRangeX(x, y);
}

/// Another visible range of 10^7 points each time: the search itself, not its cached answer.
void indices_range(benchmark::State& state) {
  constexpr size_t points = 10'000'000;
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  fill(series, points);
  VELIndexRange answer;
  VELDoubleRange visible;
  double start = 0.5;
  for ([[maybe_unused]] auto _ : state) {
    start += 611953.0;
    if (start > 9e6) start -= 9e6;
    visible.setMin(start);
    visible.setMax(start + 1e6);
    series.getIndicesRangeWithVisibleRange(visible, answer);
    benchmark::DoNotOptimize(answer);
  }
}
BENCHMARK(indices_range)->Unit(benchmark::kMicrosecond);

/// The y range of 10^6 visible points, others each time, against a loop that only sums them; wanted is a
/// ratio of at most 2.
void window_y_range(benchmark::State& state) {
  constexpr size_t visiblePoints = 1'000'000;
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  fill(series, visiblePoints + 1000);
  size_t start = 0;
  const auto ask = [&] {
    start = (start + 1) % 1000;
    const VELDoubleRange visible(static_cast<double>(start), static_cast<double>(start + visiblePoints - 1));
    benchmark::DoNotOptimize(series.getWindowYRangeWithXRange(visible, state.range(0) != 0));
  };
  const auto sum = [&] {
    double total = 0.0;
    for (const double value : series.yValues()->doubles().subspan(start, visiblePoints)) total += value;
    benchmark::DoNotOptimize(total);
  };
  VELRunAgainstBaseline(state, static_cast<int64_t>(visiblePoints), ask, sum);
}
BENCHMARK(window_y_range)
    ->ArgName("positive")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

}  // namespace
