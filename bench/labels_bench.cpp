// How fast an axis writes its labels.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>

#include "velmora/axes/date_time_axis.h"
#include "velmora/axes/default_tick_label.h"
#include "velmora/axes/label_provider.h"
#include "velmora/axes/logarithmic_numeric_axis.h"
#include "velmora/axes/text_formatting_style.h"
#include "velmora/data/ranges.h"

namespace {

constexpr double kStart = 1700000000.0;
constexpr int64_t kLabels = 12;

/// Texts of a date axis once its pattern is set; wanted are at most 2 µs a label. The argument is the span in
/// seconds: the clock of a day, which is the longest pattern, or the days of a year.
void labels_date(benchmark::State& state) {
  const auto span = static_cast<double>(state.range(0));
  const auto axis = std::make_shared<VELDateTimeAxis>();
  axis->setTimeZone("Europe/Berlin");
  axis->setLocale("en_US");
  axis->setVisibleRange(std::make_shared<VELDateRange>(kStart, kStart + span));
  const auto provider = axis->labelProvider();
  for ([[maybe_unused]] auto _ : state) {
    for (int64_t i = 0; i < kLabels; ++i) {
      const double tick = kStart + span * static_cast<double>(i) / static_cast<double>(kLabels);
      benchmark::DoNotOptimize(provider->formatLabel(VELDate(tick)));
    }
  }
  state.SetItemsProcessed(state.iterations() * kLabels);
}
BENCHMARK(labels_date)->Arg(86400)->Arg(31556952);

/// Labels of a logarithmic axis, filled again with what they show, as in a steady frame.
void labels_log(benchmark::State& state) {
  const auto axis = std::make_shared<VELLogarithmicNumericAxis>();
  const auto provider = axis->labelProvider();
  const VELTextFormattingStyle style;
  VELDefaultTickLabel label;
  for ([[maybe_unused]] auto _ : state) {
    provider->updateDataContextWithContext(label, 1000.0, &style);
    benchmark::DoNotOptimize(label.frame());
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(labels_log);

}  // namespace
