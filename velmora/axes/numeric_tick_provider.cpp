#include "velmora/axes/numeric_tick_provider.h"

#include <cmath>
#include <limits>

#include "velmora/axes/axis_core.h"
#include "velmora/data/range.h"

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
// Of a step: nearer than this to the end of the range, a tick is there.
constexpr double kNoise = 1e-10;
constexpr int64_t kListCapacity = 128;
// At most every second minor tick falls on a major one, or else all do: so many steps fill a list or never.
constexpr int64_t kMaxSteps = 2 * VELNumericTickProvider::maxTicksPerPass;

// A value with 15 significant digits. For fractions it multiplies and divides by a whole power of ten: that
// power is exact where its reciprocal is not.
double roundTo15Digits(double value) {
  if (value == 0.0) return 0.0;
  const double digits = 14.0 - std::floor(std::log10(std::abs(value)));
  const double power = std::pow(10.0, std::abs(digits));
  if (!std::isfinite(power)) return value;
  return digits > 0.0 ? std::floor(value * power + 0.5) / power : std::floor(value / power + 0.5) * power;
}

// The tolerance covers the rounding of steps and powers of ten that no double holds exactly (1e-9, 1e23), and
// is still less than a step of the 15th digit.
bool isMultiple(double value, double step) {
  const double times = std::abs(roundTo15Digits(value) / step);
  return std::abs(times - std::round(times)) <= times * 4.0 * kEpsilon;
}

bool isUseful(double min, double max, const VELAxisDelta& delta) {
  const double minor = VELGenericDouble(delta.minorDelta);
  // Both lists look at the minor step. Comparisons with NaN are false, so that NaN is no use.
  return min <= max && minor >= VELNumericTickProvider::MinDeltaValue;
}

// Lists start + k × step within the range; the major list keeps multiples of the major step, the minor list
// all others.
void listTicks(double min, double max, double step, double major, VELArrayController& ticks) {
  if (!(step > 0.0)) return;
  // The start counted in steps: start + k × step is then one product, with one rounding. Sums of fractions
  // would leave a trace of zero at zero, and a "-0" for its label.
  const double first = isMultiple(min, step) ? std::round(min / step) : std::ceil(min / step);
  if (!std::isfinite(first) || !std::isfinite(max)) return;
  const bool isMajorPass = std::abs(step - major) <= kEpsilon;
  const bool hasMajors = !(std::abs(major) < kEpsilon);
  double last = -std::numeric_limits<double>::infinity();
  for (int64_t k = 0; k < kMaxSteps && ticks.count() < VELNumericTickProvider::maxTicksPerPass; ++k) {
    double tick = (first + static_cast<double>(k)) * step;
    const bool isMajor = isMultiple(tick, major);
    // Rounding loses no tick at the end of the range: 0.1 × 3 is a hair above 0.3.
    if (tick > max && tick - max < kNoise * step) tick = max;
    if (!(tick <= max)) return;
    if (!(tick > last)) continue;
    last = tick;
    const bool keep = hasMajors ? isMajorPass == isMajor : !isMajorPass;
    if (keep) ticks.append(tick);
  }
}

std::shared_ptr<VELArrayController> emptyList(std::shared_ptr<VELArrayController>& list) {
  if (list && list.use_count() == 1)
    list->clear();
  else
    list = VELArrayController::initWithType(VELDataType_Double, kListCapacity);
  return list;
}

VELAxisDelta deltaOf(const VELAxisCore& axis) { return {axis.minorDelta(), axis.majorDelta()}; }

}  // namespace

std::shared_ptr<VELArrayController> VELNumericTickProvider::getMajorTicksFromAxis(const VELAxisCore& axis) {
  const VELRangePtr& range = axis.visibleRange();
  if (!range) return nullptr;
  return calculateMajorTicksWithRange(VELGenericDouble(range->min()), VELGenericDouble(range->max()),
                                      deltaOf(axis));
}

std::shared_ptr<VELArrayController> VELNumericTickProvider::getMinorTicksFromAxis(const VELAxisCore& axis) {
  const VELRangePtr& range = axis.visibleRange();
  if (!range) return nullptr;
  return calculateMinorTicksWithRange(VELGenericDouble(range->min()), VELGenericDouble(range->max()),
                                      deltaOf(axis));
}

std::shared_ptr<VELArrayController> VELNumericTickProvider::calculateMajorTicksWithRange(
    double min, double max, const VELAxisDelta& delta) {
  if (!isUseful(min, max, delta)) return nullptr;
  const double major = VELGenericDouble(delta.majorDelta);
  auto ticks = emptyList(_majorTicks);
  listTicks(min, max, major, major, *ticks);
  return ticks;
}

std::shared_ptr<VELArrayController> VELNumericTickProvider::calculateMinorTicksWithRange(
    double min, double max, const VELAxisDelta& delta) {
  if (!isUseful(min, max, delta)) return nullptr;
  auto ticks = emptyList(_minorTicks);
  listTicks(min, max, VELGenericDouble(delta.minorDelta), VELGenericDouble(delta.majorDelta), *ticks);
  return ticks;
}
