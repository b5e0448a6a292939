// axes/delta_calculator.h: the tick spacing that an axis uses for its visible range.
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
  /// Nothing when a bound is NaN.
  /// @throws VELInternalInconsistencyException when minorsPerMajor is below 1
  virtual std::optional<VELAxisDelta> getDeltaFromRangeMin(const VELGenericType& min,
                                                           const VELGenericType& max, int32_t minorsPerMajor,
                                                           int32_t maxTicks) = 0;
};

/// Spacing from a nice scale over the range.
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
