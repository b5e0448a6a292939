// How fast an axis finds its spacing and lists its ticks while it pans.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "velmora/axes/date_time_axis.h"
#include "velmora/axes/logarithmic_numeric_axis.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/axes/tick_provider.h"

namespace {

constexpr int64_t kSteps = 512;
constexpr int64_t kMonth = 2629746, kYear = 12 * kMonth;

/// One axis: spacing, major and minor list for each of @p ranges in turn; wanted are at most 10 µs.
void listTicks(benchmark::State& state, VELAxisBase& axis, const std::vector<VELRangePtr>& ranges) {
  const auto provider = axis.tickProvider();
  int64_t ticks = 0;
  size_t next = 0;
  for ([[maybe_unused]] auto _ : state) {
    axis.setVisibleRange(ranges[next]);
    next = (next + 1) % ranges.size();
    axis.calculateDelta();
    ticks += provider->getMajorTicksFromAxis(axis)->count() + provider->getMinorTicksFromAxis(axis)->count();
  }
  state.counters["ticks"] =
      benchmark::Counter(static_cast<double>(ticks), benchmark::Counter::kAvgIterations);
}

/// A span that moves by its own width in `kSteps` steps.
std::vector<VELRangePtr> pannedRanges(const VELAxisBase& axis, double from, double span) {
  std::vector<VELRangePtr> ranges;
  for (int64_t i = 0; i < kSteps; ++i) {
    const double min = from + span * static_cast<double>(i) / static_cast<double>(kSteps);
    ranges.push_back(axis.toVisibleRangeMin(min, min + span));
  }
  return ranges;
}

void ticks_numeric(benchmark::State& state) {
  const auto axis = std::make_shared<VELNumericAxis>();
  listTicks(state, *axis, pannedRanges(*axis, -3.7, 99.0));
}
BENCHMARK(ticks_numeric);

/// The argument is the span in seconds: an hour, a month, five years, eighteen years.
void ticks_date(benchmark::State& state) {
  const auto axis = std::make_shared<VELDateTimeAxis>();
  axis->setTimeZone("Europe/Berlin");
  listTicks(state, *axis, pannedRanges(*axis, 1.7e9, static_cast<double>(state.range(0))));
}
BENCHMARK(ticks_date)->Arg(3600)->Arg(kMonth)->Arg(5 * kYear)->Arg(18 * kYear);

void ticks_log(benchmark::State& state) {
  const auto axis = std::make_shared<VELLogarithmicNumericAxis>();
  listTicks(state, *axis, pannedRanges(*axis, 0.5, 1e10));
}
BENCHMARK(ticks_log);

}  // namespace
