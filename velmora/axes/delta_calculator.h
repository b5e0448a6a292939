// axes/delta_calculator.h: the tick spacing that an axis of numbers uses for its visible range.
//
// Spacing of dates is axes/time_span_delta_calculator.h.
#pragma once

#include <cstdint>
#include <optional>

#include "velmora/axes/axis_delta.h"
#include "velmora/axes/nice_scale.h"
#include "velmora/data/generic_type.h"
#include "velmora/platform/export.h"

/// Chooses major and minor spacing. Shared by all axes of a kind.
class VELMORA_API VELDeltaCalculator {
 public:
  virtual ~VELDeltaCalculator() = default;
  /// Nothing when there is no spacing for such a range: numbers answer so for a NaN bound.
  /// @throws VELInternalInconsistencyException when minorsPerMajor is below 1
  virtual std::optional<VELAxisDelta> getDeltaFromRangeMin(const VELGenericType& min,
                                                           const VELGenericType& max, int32_t minorsPerMajor,
                                                           int32_t maxTicks) = 0;
};

/// Spacing from a nice scale over the range.
///
/// Scales are plain values: each calculator answers its own kind from its own `getScaleWithMin`, and what a
/// subclass overrides is `getDeltaFromRangeMin`.
class VELMORA_API VELNumericDeltaCalculatorBase : public VELDeltaCalculator {
 public:
  std::optional<VELAxisDelta> getDeltaFromRangeMin(const VELGenericType& min, const VELGenericType& max,
                                                   int32_t minorsPerMajor, int32_t maxTicks) override;
  VELNiceDoubleScale getScaleWithMin(double min, double max, int32_t minorsPerMajor, int32_t maxTicks) const {
    return {min, max, minorsPerMajor, maxTicks};
  }
};

/// The calculator of numeric axes.
class VELMORA_API VELNumericDeltaCalculator : public VELNumericDeltaCalculatorBase {
 public:
  /// The one that all numeric axes share.
  static VELNumericDeltaCalculator& instance();
};

/// The calculator of logarithmic axes: the major spacing counts exponents of the base, see `VELNiceLogScale`.
/// A range below zero has the spacing of its magnitudes, a base below 1 that of its reciprocal: the powers
/// are the same ones.
class VELMORA_API VELLogarithmicDeltaCalculator : public VELNumericDeltaCalculatorBase {
 public:
  /// The one that all logarithmic axes share: each sets its base just before it asks. It starts at 10.
  static VELLogarithmicDeltaCalculator& instance();

  double logarithmicBase() const { return _logarithmicBase; }
  void setLogarithmicBase(double base) { _logarithmicBase = base; }

  std::optional<VELAxisDelta> getDeltaFromRangeMin(const VELGenericType& min, const VELGenericType& max,
                                                   int32_t minorsPerMajor, int32_t maxTicks) override;
  VELNiceLogScale getScaleWithMin(double min, double max, int32_t minorsPerMajor, int32_t maxTicks) const;

 private:
  double _logarithmicBase = 10.0;
};

/// The calculator of category axes, whose ranges count indices.
///
/// Always true: both spacings are whole numbers of at least 1, and the minor one divides the major one.
class VELMORA_API VELCategoryDeltaCalculator : public VELNumericDeltaCalculatorBase {
 public:
  /// The one that all category axes share.
  static VELCategoryDeltaCalculator& instance();

  std::optional<VELAxisDelta> getDeltaFromRangeMin(const VELGenericType& min, const VELGenericType& max,
                                                   int32_t minorsPerMajor, int32_t maxTicks) override;
};
