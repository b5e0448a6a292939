// axes/nice_scale.h: which step between ticks a person finds natural.
//
// Only steps live here; tick values are axes/tick_provider.h, steps of dates axes/nice_time_span_scale.h.
// Units: data units; exponents of the base for the major step of logarithmic axes.
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
  virtual ~VELNiceDoubleScale() = default;

  /// Once: it turns the range that it was given into the steps.
  virtual void calculateDelta();
  /// Minor and major step; meaningful after `calculateDelta`.
  VELDoubleAxisDelta tickSpacing() const { return {_minDelta, _maxDelta}; }
  /// The range widened to whole steps; undefined before `calculateDelta`.
  const VELDoubleRange& niceRange() const { return _niceRange; }

  /// 1, 2, 5 or 10 times the power of ten of @p value: the nearest one when @p round is set, else the next
  /// at or above. The mantissa is cut to one decimal first.
  static double niceNumWithRange(double value, bool round);

 protected:
  double _minDelta;  ///< the range's minimum, afterwards the minor step
  double _maxDelta;  ///< the range's maximum, afterwards the major step
  int32_t _minorsPerMajor;
  int32_t _maxTicks;
  double _range = 0.0;
  double _tickSpacing = 0.0;
  VELDoubleRange _niceRange;
};

/// Rounds a range to a 1-2-5 step counted in exponents of a base: a major step of 1 is one power of the base.
///
/// The minor step is a factor: minors stand at m × (1 + k × minor) above each major m, so that a major step
/// holds minorsPerMajor equal parts.
class VELMORA_API VELNiceLogScale : public VELNiceDoubleScale {
 public:
  /// @param min, max data units; logarithms of both are taken, of min that of its magnitude
  /// @param logBase above 0 and not 1 for steps of any use
  /// @throws VELInternalInconsistencyException as the double scale
  VELNiceLogScale(double min, double max, int32_t minorsPerMajor, int32_t maxTicks, double logBase = 10.0);

  void calculateDelta() override;
  double logBase() const { return _logBase; }

 private:
  double _logBase;
};
