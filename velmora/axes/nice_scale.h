// axes/nice_scale.h: which step between ticks a person finds natural.
//
// Only steps live here; tick values are axes/numeric_tick_provider.h. Units: data units.
#pragma once

#include <cstdint>

#include "velmora/axes/axis_delta.h"
#include "velmora/data/ranges.h"
#include "velmora/platform/export.h"

/// Rounds a range to a 1-2-5 step.
///
/// Always true after `calculateDelta` of a finite range: the major step is 1, 2 or 5 times a power of ten;
/// the minor step is the major one divided by minorsPerMajor.
class VELMORA_API VELNiceDoubleScale {
 public:
  /// @param maxTicks majors that the step aims at; below 2 counts as 2
  /// @throws VELInternalInconsistencyException when minorsPerMajor is below 1 (its message says 2; 1 is
  ///         taken all the same)
  VELNiceDoubleScale(double min, double max, int32_t minorsPerMajor, int32_t maxTicks);

  void calculateDelta();
  /// Minor and major step; meaningful after `calculateDelta`.
  VELDoubleAxisDelta tickSpacing() const { return {_minDelta, _maxDelta}; }
  /// The range widened to whole steps; undefined before `calculateDelta`.
  const VELDoubleRange& niceRange() const { return _niceRange; }

  /// 1, 2, 5 or 10 times the power of ten of @p value: the nearest one when @p round is set, else the next
  /// at or above. The mantissa is cut to one decimal first.
  static double niceNumWithRange(double value, bool round);

 private:
  double _minDelta;  ///< the range's minimum, afterwards the minor step
  double _maxDelta;  ///< the range's maximum, afterwards the major step
  int32_t _minorsPerMajor;
  int32_t _maxTicks;
  double _range = 0.0;
  double _tickSpacing = 0.0;
  VELDoubleRange _niceRange;
};
