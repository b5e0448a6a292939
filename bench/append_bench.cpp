// How fast points get into a series.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "bench/ratio.h"
#include "velmora/data/xy_data_series.h"

namespace {

/// One `appendX` per point into an empty series; wanted are at least 30 million points a second.
void append_each(benchmark::State& state) {
  constexpr int64_t points = 1'000'000;
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  for ([[maybe_unused]] auto _ : state) {
    series.clear();
    for (int64_t i = 0; i < points; ++i) {
      series.appendX(static_cast<double>(i), 0.5 * static_cast<double>(i));
    }
    benchmark::DoNotOptimize(series.yValues()->data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * points);
}
BENCHMARK(append_each)->Unit(benchmark::kMillisecond);

/// Two rows of 10^7 doubles in one call, against a memcpy of the same bytes; wanted is a ratio of at most 3.
/// Both write into memory that was written before.
void append_span(benchmark::State& state) {
  const size_t points = 10'000'000;
  std::vector<double> x(points);
  std::vector<double> y(points);
  for (size_t i = 0; i < points; ++i) x[i] = y[i] = static_cast<double>(i);
  std::vector<double> copies(2 * points);
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  series.appendRangeX(x, y);
  const auto append = [&] {
    series.clear();
    series.appendRangeX(x.data(), y.data(), static_cast<int64_t>(points));
    benchmark::ClobberMemory();
  };
  const auto copy = [&] {
    std::memcpy(copies.data(), x.data(), points * sizeof(double));
    std::memcpy(copies.data() + points, y.data(), points * sizeof(double));
    benchmark::ClobberMemory();
  };
  VELRunAgainstBaseline(state, static_cast<int64_t>(points), append, copy);
}
BENCHMARK(append_span)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
