#include "velmora/axes/delta_calculator.h"

#include <algorithm>
#include <cmath>

namespace {

struct Bounds {
  double min, max;
  bool known() const { return !std::isnan(min) && !std::isnan(max); }
};

Bounds boundsOf(const VELGenericType& min, const VELGenericType& max) {
  return {VELGenericDouble(min), VELGenericDouble(max)};
}

template <class Scale>
VELAxisDelta spacingOf(Scale scale) {
  scale.calculateDelta();
  return scale.tickSpacing();
}

// The whole step nearest to what was asked for that divides the major step evenly, not below it.
double wholeMinor(double major, int32_t minorsPerMajor) {
  constexpr double kMostParts = 1000.0;
  double parts = std::min({static_cast<double>(minorsPerMajor), major, kMostParts});
  while (parts > 1.0 && std::fmod(major, parts) != 0.0) --parts;
  return major / parts;
}

}  // namespace

std::optional<VELAxisDelta> VELNumericDeltaCalculatorBase::getDeltaFromRangeMin(const VELGenericType& min,
                                                                                const VELGenericType& max,
                                                                                int32_t minorsPerMajor,
                                                                                int32_t maxTicks) {
  const Bounds range = boundsOf(min, max);
  if (!range.known()) return std::nullopt;
  return spacingOf(getScaleWithMin(range.min, range.max, minorsPerMajor, maxTicks));
}

VELNumericDeltaCalculator& VELNumericDeltaCalculator::instance() {
  static VELNumericDeltaCalculator calculator;
  return calculator;
}

VELLogarithmicDeltaCalculator& VELLogarithmicDeltaCalculator::instance() {
  static VELLogarithmicDeltaCalculator calculator;
  return calculator;
}

std::optional<VELAxisDelta> VELLogarithmicDeltaCalculator::getDeltaFromRangeMin(const VELGenericType& min,
                                                                                const VELGenericType& max,
                                                                                int32_t minorsPerMajor,
                                                                                int32_t maxTicks) {
  Bounds range = boundsOf(min, max);
  if (!range.known()) return std::nullopt;
  if (range.max < 0.0) range = {-range.max, -range.min};
  return spacingOf(getScaleWithMin(range.min, range.max, minorsPerMajor, maxTicks));
}

VELNiceLogScale VELLogarithmicDeltaCalculator::getScaleWithMin(double min, double max, int32_t minorsPerMajor,
                                                               int32_t maxTicks) const {
  const double base = _logarithmicBase < 1.0 ? 1.0 / _logarithmicBase : _logarithmicBase;
  return {min, max, minorsPerMajor, maxTicks, base};
}

VELCategoryDeltaCalculator& VELCategoryDeltaCalculator::instance() {
  static VELCategoryDeltaCalculator calculator;
  return calculator;
}

std::optional<VELAxisDelta> VELCategoryDeltaCalculator::getDeltaFromRangeMin(const VELGenericType& min,
                                                                             const VELGenericType& max,
                                                                             int32_t minorsPerMajor,
                                                                             int32_t maxTicks) {
  const auto spacing =
      VELNumericDeltaCalculatorBase::getDeltaFromRangeMin(min, max, minorsPerMajor, maxTicks);
  if (!spacing) return std::nullopt;
  const double major = std::max(1.0, std::round(VELGenericDouble(spacing->majorDelta)));
  return VELDoubleAxisDelta(wholeMinor(major, minorsPerMajor), major);
}
