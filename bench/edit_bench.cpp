// How fast points of a series are changed where they stand.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <numeric>
#include <vector>

#include "bench/ratio.h"
#include "velmora/data/xy_data_series.h"

namespace {

constexpr int64_t kPoints = 100'000;
constexpr int64_t kEdits = 100;

std::vector<double> ascending(int64_t points) {
  std::vector<double> values(static_cast<size_t>(points));
  std::iota(values.begin(), values.end(), 0.0);
  return values;
}

/// Moves the elements from @p first on by one, in two columns, as often as there are edits.
class Moves {
 public:
  void operator()(int64_t first) {
    for (int64_t i = 0; i < kEdits; ++i) {
      for (auto* column : {&_x, &_y}) {
        double* const from = column->data() + first;
        std::memmove(from + 1, from, static_cast<size_t>(kPoints - first) * sizeof(double));
        benchmark::ClobberMemory();
      }
    }
  }

 private:
  std::vector<double> _x = ascending(kPoints + 1);
  std::vector<double> _y = ascending(kPoints + 1);
};

/// One point before 10^5 others, against the memmove of the two columns. What was inserted is removed at
/// once, which is one more move in a hundred.
void insert_front(benchmark::State& state) {
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  series.appendRangeX(ascending(kPoints), ascending(kPoints));
  const auto insert = [&series] {
    for (int64_t i = 1; i <= kEdits; ++i) series.insertAt(0, -static_cast<double>(i), 1.0);
    series.removeRangeFrom(0, kEdits);
    benchmark::ClobberMemory();
  };
  Moves moves;
  VELRunAgainstBaseline(state, kEdits, insert, [&moves] { moves(0); });
}
BENCHMARK(insert_front)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// One point out of the middle of 10^5, against the memmove of half of the two columns; another is appended.
void remove_middle(benchmark::State& state) {
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  series.appendRangeX(ascending(kPoints), ascending(kPoints));
  double nextX = static_cast<double>(kPoints);
  const auto remove = [&] {
    for (int64_t i = 0; i < kEdits; ++i) {
      series.removeAt(kPoints / 2);
      series.appendX(nextX++, 1.0);
    }
    benchmark::ClobberMemory();
  };
  Moves moves;
  VELRunAgainstBaseline(state, kEdits, remove, [&moves] { moves(kPoints / 2); });
}
BENCHMARK(remove_middle)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// x and y of every point of a series, one by one.
void update_at(benchmark::State& state) {
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  series.appendRangeX(ascending(kPoints), ascending(kPoints));
  for ([[maybe_unused]] auto _ : state) {
    for (int64_t i = 0; i < kPoints; ++i) series.updateAt(i, static_cast<double>(i), 2.0);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * kPoints);
}
BENCHMARK(update_at)->Unit(benchmark::kMicrosecond);

/// One `appendX` per point into a ring that is full; wanted are at least 30 million points a second.
void fifo_append(benchmark::State& state) {
  const auto series = VELXyDataSeries::initFifoWithXType(VELDataType_Double, VELDataType_Double, kPoints);
  double x = 0.0;
  const auto append = [&] {
    for (int64_t i = 0; i < kPoints; ++i) {
      series->appendX(x, 0.5);
      x += 1.0;
    }
    benchmark::ClobberMemory();
  };
  append();
  for ([[maybe_unused]] auto _ : state) append();
  state.SetItemsProcessed(state.iterations() * kPoints);
}
BENCHMARK(fifo_append)->Unit(benchmark::kMicrosecond);

}  // namespace
