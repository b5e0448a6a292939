#include "velmora/axes/category_tick_provider.h"

#include <algorithm>
#include <cmath>

#include "velmora/axes/category_axis_base.h"
#include "velmora/data/category_array_controller.h"

namespace {

struct Steps {
  double step;  ///< a tick stands on each multiple
  double skip;  ///< but on none of these; 0 for all
};

std::shared_ptr<VELCategoryArrayController> p_VEL_categoryControllerFromAxis(const VELAxisCore& axis) {
  const auto* categoryAxis = dynamic_cast<const VELCategoryAxisBase*>(&axis);
  return categoryAxis ? categoryAxis->categoryController() : nullptr;
}

// Indices are whole, and so are steps; 0 for one that is no use.
double wholeStep(const VELGenericType& delta) {
  const double step = std::round(VELGenericDouble(delta));
  return VELGenericDouble(delta) > 0.0 && std::isfinite(step) ? std::max(step, 1.0) : 0.0;
}

void p_VEL_getTicksFrom(const VELAxisCore& axis, const Steps& steps, VELArrayController& ticks) {
  const auto categories = p_VEL_categoryControllerFromAxis(axis);
  const VELRangePtr& range = axis.visibleRange();
  if (!categories || !range || !(steps.step > 0.0)) return;
  const double last = std::min(range->maxAsDouble(), static_cast<double>(categories->count()) - 1.0);
  const double first = std::ceil(std::max(range->minAsDouble(), 0.0) / steps.step) * steps.step;
  constexpr int64_t kMaxSteps = 2 * VELTickProvider::maxTicksPerPass;
  for (int64_t k = 0; k < kMaxSteps && ticks.count() < VELTickProvider::maxTicksPerPass; ++k) {
    const double index = first + static_cast<double>(k) * steps.step;
    if (!(index <= last)) return;
    if (steps.skip == 0.0 || std::fmod(index, steps.skip) != 0.0) ticks.append(index);
  }
}

Steps majorSteps(const VELAxisDelta& delta) { return {wholeStep(delta.majorDelta), 0.0}; }

Steps minorSteps(const VELAxisDelta& delta) {
  return {wholeStep(delta.minorDelta), wholeStep(delta.majorDelta)};
}

}  // namespace

std::shared_ptr<VELArrayController> VELCategoryNumericTickProvider::getMajorTicksFromAxis(
    const VELAxisCore& axis) {
  auto ticks = emptyList(_majorTicks, VELDataType_Double);
  p_VEL_getTicksFrom(axis, majorSteps(deltaOf(axis)), *ticks);
  return ticks;
}

std::shared_ptr<VELArrayController> VELCategoryNumericTickProvider::getMinorTicksFromAxis(
    const VELAxisCore& axis) {
  auto ticks = emptyList(_minorTicks, VELDataType_Double);
  p_VEL_getTicksFrom(axis, minorSteps(deltaOf(axis)), *ticks);
  return ticks;
}

std::shared_ptr<VELArrayController> VELCategoryDateTimeTickProvider::getMajorTicksFromAxis(
    const VELAxisCore& axis) {
  auto ticks = emptyList(_majorTicks, VELDataType_Double);
  p_VEL_getTicksFrom(axis, majorSteps(deltaOf(axis)), *ticks);
  return ticks;
}

std::shared_ptr<VELArrayController> VELCategoryDateTimeTickProvider::getMinorTicksFromAxis(
    const VELAxisCore& axis) {
  auto ticks = emptyList(_minorTicks, VELDataType_Double);
  p_VEL_getTicksFrom(axis, minorSteps(deltaOf(axis)), *ticks);
  return ticks;
}
