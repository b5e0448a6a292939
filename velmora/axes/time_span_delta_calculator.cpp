#include "velmora/axes/time_span_delta_calculator.h"

#include <algorithm>
#include <cmath>

#include "velmora/axes/time_spans.h"

namespace {

constexpr double kMinute = VELTimeSpans::SecInMinute, kHour = VELTimeSpans::SecInHour,
                 kDay = VELTimeSpans::SecInDay, kMonth = VELTimeSpans::SecInMonth,
                 kYear = VELTimeSpans::SecInYear;
// How many places before its major step a minor step stands in the table.
constexpr ptrdiff_t kMinorPlaces = 2;

VELTimeSpanDelta inWholeYears(const VELDoubleRange& spacing) {
  return {std::trunc(spacing.minAsDouble()) * kYear, std::trunc(spacing.maxAsDouble()) * kYear};
}

}  // namespace

const std::array<double, VELTimeSpanDeltaCalculatorBase::_dateDeltasCount>
    VELTimeSpanDeltaCalculatorBase::_dateDeltas = {
        1,       2,           5,           10,           30,            // seconds
        kMinute, 2 * kMinute, 5 * kMinute, 10 * kMinute, 30 * kMinute,  //
        kHour,   2 * kHour,   4 * kHour,   kDay,         2 * kDay,     7 * kDay,  14 * kDay,
        kMonth,  3 * kMonth,  6 * kMonth,  kYear,        2 * kYear,    5 * kYear, 10 * kYear};

std::optional<VELAxisDelta> VELTimeSpanDeltaCalculatorBase::getDeltaFromRangeMin(const VELGenericType& min,
                                                                                 const VELGenericType& max,
                                                                                 int32_t minorsPerMajor,
                                                                                 int32_t maxTicks) {
  const double low = VELGenericDouble(min), high = VELGenericDouble(max);
  if (!(low < high)) return VELTimeSpanDelta(0.0, 0.0);
  const double span = high - low;
  const auto major = std::find_if(_dateDeltas.begin(), _dateDeltas.end(),
                                  [&](double delta) { return maxTicks * delta > span; });
  if (major == _dateDeltas.end())
    return inWholeYears(getScaleWithMin(0.0, span / kYear, minorsPerMajor, maxTicks).tickSpacing());
  if (major - _dateDeltas.begin() >= kMinorPlaces) return VELTimeSpanDelta(major[-kMinorPlaces], *major);
  const VELDoubleRange spacing = getScaleWithMin(0.0, span, minorsPerMajor, maxTicks).tickSpacing();
  return VELTimeSpanDelta(spacing.minAsDouble(), spacing.maxAsDouble());
}

VELDateTimeDeltaCalculator& VELDateTimeDeltaCalculator::instance() {
  static VELDateTimeDeltaCalculator calculator;
  return calculator;
}
