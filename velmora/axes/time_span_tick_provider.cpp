#include "velmora/axes/time_span_tick_provider.h"

#include <cmath>
#include <limits>
#include <string>

#include "velmora/platform/exception.h"

namespace {

constexpr int64_t kMaxSteps = 2 * VELTickProvider::maxTicksPerPass;

[[noreturn]] void raiseAbstract(const char* selector) {
  throw VELInternalInconsistencyException(std::string(selector) + " must be implemented in subclass");
}

}  // namespace

double VELTimeSpanTickProviderBase::getTicks(const VELGenericType&) const { raiseAbstract("getTicks:"); }

double VELTimeSpanTickProviderBase::roundUp(double, double) const { raiseAbstract("roundUp:Delta:"); }

double VELTimeSpanTickProviderBase::addDelta(double, double) const { raiseAbstract("addDelta:Delta:"); }

bool VELTimeSpanTickProviderBase::isAdditionValid(double, double) const {
  raiseAbstract("isAdditionValid:Delta:");
}

bool VELTimeSpanTickProviderBase::isDateDivisible(double, double) const {
  raiseAbstract("isDateDivisible:ByDelta:");
}

bool VELTimeSpanTickProviderBase::p_VEL_assertRangesValid(const VELRange& range, double delta) const {
  const double min = getTicks(range.min()), max = getTicks(range.max());
  // NaN fails each comparison. No walk goes backwards, so that a step below zero is no more use than none.
  return min <= max && !range.isZero() && delta > 0.0;
}

std::shared_ptr<VELArrayController> VELTimeSpanTickProviderBase::getMajorTicksFromAxis(
    const VELAxisCore& axis) {
  auto ticks = emptyList(_majorTicks, VELDataType_DateTime);
  const VELRangePtr range = rangeOf(axis);
  const VELAxisDelta delta = deltaOf(axis);
  if (range && p_VEL_assertRangesValid(*range, VELGenericDouble(delta.majorDelta)))
    p_VEL_getMajorTicksWithRange(*range, delta, *ticks);
  return ticks;
}

std::shared_ptr<VELArrayController> VELTimeSpanTickProviderBase::getMinorTicksFromAxis(
    const VELAxisCore& axis) {
  auto ticks = emptyList(_minorTicks, VELDataType_DateTime);
  const VELRangePtr range = rangeOf(axis);
  const VELAxisDelta delta = deltaOf(axis);
  if (range && p_VEL_assertRangesValid(*range, VELGenericDouble(delta.minorDelta)))
    p_VEL_getMinorTicksWithRange(*range, delta, *ticks);
  return ticks;
}

void VELTimeSpanTickProviderBase::p_VEL_getMajorTicksWithRange(const VELRange& range,
                                                               const VELAxisDelta& delta,
                                                               VELArrayController& ticks) {
  const double max = getTicks(range.max()), step = VELGenericDouble(delta.majorDelta);
  double tick = roundUp(getTicks(range.min()), step);
  for (int64_t k = 0; k < maxTicksPerPass && tick <= max && isAdditionValid(tick, step); ++k) {
    ticks.append(tick);
    const double next = addDelta(tick, step);
    // A step too small for doubles leads nowhere.
    if (!(next > tick)) return;
    tick = next;
  }
}

void VELTimeSpanTickProviderBase::p_VEL_getMinorTicksWithRange(const VELRange& range,
                                                               const VELAxisDelta& delta,
                                                               VELArrayController& ticks) {
  constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
  const double min = getTicks(range.min()), max = getTicks(range.max());
  const double step = VELGenericDouble(delta.minorDelta), major = VELGenericDouble(delta.majorDelta);
  double tick = isDateDivisible(min, step) ? min : roundUp(min, step);
  for (int64_t k = 0; k < kMaxSteps && ticks.count() < maxTicksPerPass; ++k) {
    if (!(tick < max) || !isAdditionValid(tick, step)) return;
    const bool isInside = std::abs(tick - min) > kEpsilon && std::abs(tick - max) > kEpsilon;
    if (isInside && !isDateDivisible(tick, major)) ticks.append(tick);
    const double next = addDelta(tick, step);
    if (!(next > tick)) return;
    tick = next;
  }
}
