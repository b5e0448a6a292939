// axes/nice_time_span_scale.h: which step between moments a person finds natural, where no table of steps
// reaches.
//
// Units: those of the range, seconds or years.
#pragma once

#include <cstdint>

#include "velmora/data/ranges.h"
#include "velmora/platform/export.h"

/// Rounds a span of time to a 1-2-5 step, once and for all at construction.
///
/// Always true: the step is above 0; 1 where the span is none.
class VELMORA_API VELNiceTimeSpanScale {
 public:
  /// Whole numbers, saturated at the ends of 64 bits.
  struct NiceRange {
    int64_t min = 0;
    int64_t max = 0;
    bool operator==(const NiceRange&) const = default;
  };

  /// @param maxTicks majors that the step aims at; below 2 counts as 2
  /// @throws VELInternalInconsistencyException when minorsPerMajor is below 1 (its message says 2; 1 is
  ///         taken all the same)
  VELNiceTimeSpanScale(double min, double max, int32_t minorsPerMajor, int32_t maxTicks);

  /// Minor step as its minimum and major step as its maximum.
  VELDoubleRange tickSpacing() const { return {_tickSpacing / _minorsPerMajor, _tickSpacing}; }
  /// The range cut to whole numbers; on purpose it is not widened to steps.
  const NiceRange& niceRange() const { return _niceRange; }

  /// 1, 2, 5 or 10 times the power of ten of @p value: the nearest one when @p round is set, else the next
  /// at or above. On purpose the mantissa is rounded up to a whole number first, unlike that of numbers.
  static double p_VEL_niceNumRange(double value, bool round);

 private:
  void p_VEL_calculate();

  double _min;
  double _max;
  int32_t _minorsPerMajor;
  int32_t _maxTicks;
  double _tickSpacing = 1.0;
  NiceRange _niceRange;
};
