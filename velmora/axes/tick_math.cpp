#include "velmora/axes/tick_math.h"

#include <cmath>
#include <limits>

// For fractions it multiplies and divides by a whole power of ten: that power is exact where its reciprocal
// is not.
double VELRoundTo15Digits(double value) {
  if (value == 0.0) return 0.0;
  const double digits = 14.0 - std::floor(std::log10(std::abs(value)));
  const double power = std::pow(10.0, std::abs(digits));
  if (!std::isfinite(power)) return value;
  return digits > 0.0 ? std::floor(value * power + 0.5) / power : std::floor(value / power + 0.5) * power;
}

bool VELIsMultiple(double value, double step) {
  constexpr double kTolerance = 4.0 * std::numeric_limits<double>::epsilon();
  const double times = std::abs(VELRoundTo15Digits(value) / step);
  return std::abs(times - std::round(times)) <= times * kTolerance;
}
