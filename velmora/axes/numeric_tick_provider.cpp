#include "velmora/axes/numeric_tick_provider.h"

#include <cmath>
#include <limits>

#include "velmora/axes/tick_math.h"

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
// Of a step: nearer than this to the end of the range, a tick is there.
constexpr double kNoise = 1e-10;
// At most every second minor tick falls on a major one, or else all do: so many steps fill a list or never.
constexpr int64_t kMaxSteps = 2 * VELTickProvider::maxTicksPerPass;

}  // namespace

bool VELNumericTickProvider::p_VEL_isParamsValidRange(const VELRange& range, const VELAxisDelta& delta) {
  // Comparisons with NaN are false, so that NaN is no use.
  return range.minAsDouble() <= range.maxAsDouble() && VELGenericDouble(delta.minorDelta) >= MinDeltaValue;
}

// Lists start + k × step within the range; the major list keeps multiples of the major step, the minor list
// all others.
void VELNumericTickProvider::p_VEL_calculateTicksWithRange(const VELRange& range, double step,
                                                           double majorDelta, VELArrayController& ticks) {
  if (!(step > 0.0)) return;
  const double min = range.minAsDouble(), max = range.maxAsDouble();
  // The start counted in steps: start + k × step is then one product, with one rounding. Sums of fractions
  // would leave a trace of zero at zero, and a "-0" for its label.
  const double first = VELIsMultiple(min, step) ? std::round(min / step) : std::ceil(min / step);
  if (!std::isfinite(first) || !std::isfinite(max)) return;
  const bool isMajorPass = std::abs(step - majorDelta) <= kEpsilon;
  const bool hasMajors = !(std::abs(majorDelta) < kEpsilon);
  double last = -std::numeric_limits<double>::infinity();
  for (int64_t k = 0; k < kMaxSteps && ticks.count() < maxTicksPerPass; ++k) {
    double tick = (first + static_cast<double>(k)) * step;
    const bool isMajor = VELIsMultiple(tick, majorDelta);
    // Rounding loses no tick at the end of the range: 0.1 × 3 is a hair above 0.3.
    if (tick > max && tick - max < kNoise * step) tick = max;
    if (!(tick <= max)) return;
    if (!(tick > last)) continue;
    last = tick;
    const bool keep = hasMajors ? isMajorPass == isMajor : !isMajorPass;
    if (keep) ticks.append(tick);
  }
}

std::shared_ptr<VELArrayController> VELNumericTickProvider::getMajorTicksFromAxis(const VELAxisCore& axis) {
  const VELRangePtr range = rangeOf(axis);
  return range ? calculateMajorTicksWithRange(*range, deltaOf(axis)) : nullptr;
}

std::shared_ptr<VELArrayController> VELNumericTickProvider::getMinorTicksFromAxis(const VELAxisCore& axis) {
  const VELRangePtr range = rangeOf(axis);
  return range ? calculateMinorTicksWithRange(*range, deltaOf(axis)) : nullptr;
}

std::shared_ptr<VELArrayController> VELNumericTickProvider::calculateMajorTicksWithRange(
    const VELRange& range, const VELAxisDelta& delta) {
  if (!p_VEL_isParamsValidRange(range, delta)) return nullptr;
  const double major = VELGenericDouble(delta.majorDelta);
  auto ticks = emptyList(_majorTicks, VELDataType_Double);
  p_VEL_calculateTicksWithRange(range, major, major, *ticks);
  return ticks;
}

std::shared_ptr<VELArrayController> VELNumericTickProvider::calculateMinorTicksWithRange(
    const VELRange& range, const VELAxisDelta& delta) {
  if (!p_VEL_isParamsValidRange(range, delta)) return nullptr;
  auto ticks = emptyList(_minorTicks, VELDataType_Double);
  p_VEL_calculateTicksWithRange(range, VELGenericDouble(delta.minorDelta), VELGenericDouble(delta.majorDelta),
                                *ticks);
  return ticks;
}
