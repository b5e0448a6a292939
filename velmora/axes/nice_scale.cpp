#include "velmora/axes/nice_scale.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "velmora/axes/nice_mantissa.h"
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
  return power * (round ? VELNearestNice(mantissa) : VELNextNice(mantissa));
}

VELNiceLogScale::VELNiceLogScale(double min, double max, int32_t minorsPerMajor, int32_t maxTicks,
                                 double logBase)
    : VELNiceDoubleScale(min, max, minorsPerMajor, maxTicks), _logBase(logBase) {}

void VELNiceLogScale::calculateDelta() {
  const double min = _minDelta;
  const double logMax = std::log(_maxDelta) / std::log(_logBase);
  const double top = logMax > 0.0 ? std::ceil(logMax) : std::floor(logMax);
  const double bottom = std::floor(std::log(std::abs(min)) / std::log(_logBase));
  _range = niceNumWithRange(top - bottom, true);
  // By all ticks and not by the gaps between them, unlike the linear scale: that is meant.
  _tickSpacing = niceNumWithRange(_range / _maxTicks, true);
  const bool reachesBelowZero = min < 0.0 && std::abs(min) >= std::numeric_limits<double>::epsilon();
  const double span = std::abs(reachesBelowZero ? top + bottom : top - bottom);
  const double niceMax = std::pow(_logBase, top);
  _niceRange = VELDoubleRange(niceMax / std::pow(_logBase, std::max(span, 1.0)), niceMax);
  _maxDelta = _tickSpacing;
  _minDelta = (std::pow(_logBase, _tickSpacing) - 1.0) / _minorsPerMajor;
}
