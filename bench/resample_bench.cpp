// How fast a series is reduced to the width of a chart.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <vector>

#include "bench/ratio.h"
#include "velmora/data/xy_data_series.h"

namespace {

constexpr int32_t kWidth = 1920;

/// A noisy series, and a resampler that reduces all of it into the same point series every time, against a
/// loop that only sums y.
void reduceAll(benchmark::State& state, VELResamplingMode mode) {
  const auto points = static_cast<size_t>(state.range(0));
  std::mt19937 random(1);
  std::normal_distribution<double> noise;
  std::vector<double> x(points);
  std::vector<double> y(points);
  for (size_t i = 0; i < points; ++i) {
    x[i] = static_cast<double>(i);
    y[i] = noise(random);
  }
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  series.appendRangeX(x, y);
  const VELIndexRange all(0, static_cast<int32_t>(points) - 1);
  const VELDoubleRange visible(x.front(), x.back());
  VELPointResampler resampler;
  std::shared_ptr<VELPointSeries> reduced;
  const auto reduce = [&] {
    reduced =
        resampler.o_executeMode(mode, *series.xValues(), *series.yValues(), all, visible, kWidth, reduced);
    benchmark::DoNotOptimize(reduced->yValues()->data());
    benchmark::ClobberMemory();
  };
  const auto sum = [&] {
    double total = 0.0;
    for (const double value : series.yValues()->doubles()) total += value;
    benchmark::DoNotOptimize(total);
  };
  VELRunAgainstBaseline(state, state.range(0), reduce, sum);
}

/// Wanted is a ratio of at most 2.
void resample_minmax(benchmark::State& state) { reduceAll(state, VELResamplingMode_MinMax); }
BENCHMARK(resample_minmax)
    ->RangeMultiplier(10)
    ->Range(10'000, 10'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

void resample_uneven(benchmark::State& state) { reduceAll(state, VELResamplingMode_MinMaxUnevenlySpaced); }
BENCHMARK(resample_uneven)
    ->RangeMultiplier(10)
    ->Range(10'000, 10'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

}  // namespace
