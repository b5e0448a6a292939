// axes/time_span_delta_calculator.h: the tick spacing that an axis of dates uses for its visible range.
//
// Units: seconds.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "velmora/axes/axis_delta.h"
#include "velmora/axes/delta_calculator.h"
#include "velmora/axes/nice_time_span_scale.h"
#include "velmora/data/generic_type.h"
#include "velmora/platform/export.h"

/// Spacing from a table of steps that clocks and calendars know; from a nice scale for what is shorter or
/// longer.
class VELMORA_API VELTimeSpanDeltaCalculatorBase : public VELDeltaCalculator {
 public:
  static constexpr int32_t _dateDeltasCount = 24;
  /// From 1 second to 10 years, ascending.
  static const std::array<double, _dateDeltasCount> _dateDeltas;

  /// Seconds, never nothing: 0 and 0 for a range without width, inverted or with a NaN bound.
  /// The minor spacing of a table step is the table step two places before it.
  /// @throws VELInternalInconsistencyException when minorsPerMajor is below 1 and the table does not reach
  std::optional<VELAxisDelta> getDeltaFromRangeMin(const VELGenericType& min, const VELGenericType& max,
                                                   int32_t minorsPerMajor, int32_t maxTicks) override;
  /// By value; a subclass that wants another scale overrides `getDeltaFromRangeMin`.
  VELNiceTimeSpanScale getScaleWithMin(double min, double max, int32_t minorsPerMajor,
                                       int32_t maxTicks) const {
    return {min, max, minorsPerMajor, maxTicks};
  }
};

/// The calculator of date-time axes.
class VELMORA_API VELDateTimeDeltaCalculator : public VELTimeSpanDeltaCalculatorBase {
 public:
  /// The one that all date-time axes share.
  static VELDateTimeDeltaCalculator& instance();
};
