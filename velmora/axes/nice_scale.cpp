#include "velmora/axes/nice_scale.h"

#include <algorithm>
#include <cmath>

#include "velmora/platform/exception.h"

namespace {

// Single precision on purpose: log10 of a power of ten then lands on the whole number and not below it.
// Beyond what a float holds there is only the double.
double powerOfTenBelow(double value) {
  if (value <= 0.0) return 1.0;
  const float exponent = std::floor(std::log10(static_cast<float>(value)));
  if (std::isfinite(exponent)) return std::pow(10.0, static_cast<double>(exponent));
  return std::pow(10.0, std::floor(std::log10(value)));
}

double nearestNice(double mantissa) {
  if (mantissa < 1.5) return 1.0;
  if (mantissa < 3.0) return 2.0;
  return mantissa < 7.0 ? 5.0 : 10.0;
}

double nextNice(double mantissa) {
  if (mantissa <= 1.0) return 1.0;
  if (mantissa <= 2.0) return 2.0;
  return mantissa <= 5.0 ? 5.0 : 10.0;
}

}  // namespace

VELNiceDoubleScale::VELNiceDoubleScale(double min, double max, int32_t minorsPerMajor, int32_t maxTicks)
    : _minDelta(min), _maxDelta(max), _minorsPerMajor(minorsPerMajor), _maxTicks(maxTicks) {
  // The message asks for 2 and the check for 1, both on purpose: with one part a major, minors are the
  // majors.
  if (minorsPerMajor < 1)
    throw VELInternalInconsistencyException("Minors per major must be greater or equal to 2");
}

void VELNiceDoubleScale::calculateDelta() {
  const double min = _minDelta, max = _maxDelta;
  _range = niceNumWithRange(max - min, false);
  _tickSpacing = niceNumWithRange(_range / (std::max(_maxTicks, 2) - 1), true);
  _niceRange = VELDoubleRange(std::floor(min / _tickSpacing) * _tickSpacing,
                              std::ceil(max / _tickSpacing) * _tickSpacing);
  _maxDelta = _tickSpacing;
  _minDelta = _tickSpacing / _minorsPerMajor;
}

double VELNiceDoubleScale::niceNumWithRange(double value, bool round) {
  const double power = powerOfTenBelow(value);
  const double mantissa = std::floor(value / power * 10.0) / 10.0;
  return power * (round ? nearestNice(mantissa) : nextNice(mantissa));
}
