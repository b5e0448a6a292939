#include "velmora/axes/delta_calculator.h"

#include <cmath>

std::optional<VELAxisDelta> VELNumericDeltaCalculatorBase::getDeltaFromRangeMin(const VELGenericType& min,
                                                                                const VELGenericType& max,
                                                                                int32_t minorsPerMajor,
                                                                                int32_t maxTicks) {
  const double low = VELGenericDouble(min), high = VELGenericDouble(max);
  if (std::isnan(low) || std::isnan(high)) return std::nullopt;
  VELNiceDoubleScale scale = getScaleWithMin(low, high, minorsPerMajor, maxTicks);
  scale.calculateDelta();
  return scale.tickSpacing();
}

VELNumericDeltaCalculator& VELNumericDeltaCalculator::instance() {
  static VELNumericDeltaCalculator calculator;
  return calculator;
}
