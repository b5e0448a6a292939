#include "velmora/axes/nice_time_span_scale.h"

#include <algorithm>
#include <cmath>

#include "velmora/axes/nice_mantissa.h"
#include "velmora/data/saturate.h"
#include "velmora/platform/exception.h"

VELNiceTimeSpanScale::VELNiceTimeSpanScale(double min, double max, int32_t minorsPerMajor, int32_t maxTicks)
    : _min(min), _max(max), _minorsPerMajor(minorsPerMajor), _maxTicks(maxTicks) {
  // As in the scale of numbers, the message asks for 2 and the check for 1 on purpose.
  if (minorsPerMajor < 1)
    throw VELInternalInconsistencyException("Minors per major must be greater or equal to 2");
  p_VEL_calculate();
}

void VELNiceTimeSpanScale::p_VEL_calculate() {
  const double spacing = p_VEL_niceNumRange(_max - _min, false) / (std::max(_maxTicks, 2) - 1);
  _tickSpacing = spacing > 0.0 ? p_VEL_niceNumRange(spacing, true) : 1.0;
  _niceRange = {VELSaturate<int64_t>(_min), VELSaturate<int64_t>(_max)};
}

double VELNiceTimeSpanScale::p_VEL_niceNumRange(double value, bool round) {
  const double power = std::pow(10.0, std::floor(std::log10(value)));
  const double mantissa = std::ceil(value / power);
  return power * (round ? VELNearestNice(mantissa) : VELNextNice(mantissa));
}
