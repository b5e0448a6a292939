#include "velmora/surface/viewport_manager.h"

#include "velmora/axes/axis_collection.h"
#include "velmora/surface/axis_walk.h"
#include "velmora/surface/chart_surface.h"

void VELViewportManager::attachVelmoraSurface(const std::shared_ptr<VELChartSurface>& surface) {
  _scs = surface;
  _isAttached = true;
}

void VELViewportManager::detachVelmoraSurface() {
  _scs.reset();
  _isAttached = false;
}

void VELViewportManager::invalidateElement() {
  if (const auto surface = _scs.lock()) surface->invalidateElement();
}

VELRangePtr VELViewportManager::calculateAutoRange(VELAxisBase& axis, const Ranges* xRanges) {
  const VELAutoRange mode = axis.autoRange();
  if (mode != VELAutoRange_Once && mode != VELAutoRange_Always) return axis.visibleRange();
  const VELRangePtr maximum = axis.getMaximumRange(xRanges);
  return maximum && maximum->isDefined() ? maximum : axis.visibleRange();
}

VELRangePtr VELViewportManager::onCalculateNewXRange(VELAxisBase& axis) {
  return axis.autoRange() == VELAutoRange_Always ? calculateAutoRange(axis) : axis.visibleRange();
}

VELRangePtr VELViewportManager::onCalculateNewYRange(VELAxisBase& axis, const VELRenderPassInfo& info) {
  return axis.autoRange() == VELAutoRange_Always ? axis.calculateYRangeWithRenderPassInfo(info)
                                                 : axis.visibleRange();
}

void VELViewportManager::animateZoomExtents(float duration) {
  const auto self = weak_from_this().lock();
  const auto surface = _scs.lock();
  if (!surface || !surface->xAxes() || !surface->yAxes()) return;
  if (surface->xAxes()->count() == 0 || surface->yAxes()->count() == 0) return;
  const Ranges xRanges = p_VEL_zoomExtentsXInternal(duration);
  p_VEL_zoomExtentsYWithRanges(&xRanges, duration);
}

void VELViewportManager::animateZoomExtentsX(float duration) { p_VEL_zoomExtentsXInternal(duration); }

void VELViewportManager::animateZoomExtentsY(float duration) {
  p_VEL_zoomExtentsYWithRanges(nullptr, duration);
}

VELViewportManager::Ranges VELViewportManager::p_VEL_zoomExtentsXInternal(float duration) {
  const auto self = weak_from_this().lock();
  Ranges ranges;
  const auto surface = _scs.lock();
  if (!surface) return ranges;
  VELForEachAxis(surface->xAxes(), [&](VELAxisBase& axis) {
    const VELRangePtr range = axis.getMaximumRange();
    axis.trySetOrAnimateVisibleRange(range, duration);
    ranges[axis.axisId()] = range;
  });
  return ranges;
}

void VELViewportManager::p_VEL_zoomExtentsYWithRanges(const Ranges* ranges, float duration) {
  const auto self = weak_from_this().lock();
  const auto surface = _scs.lock();
  if (!surface) return;
  VELForEachAxis(surface->yAxes(),
                 [&](VELAxisBase& axis) { p_VEL_zoomExtentsOnYAxis(axis, ranges, duration); });
}

void VELViewportManager::p_VEL_zoomExtentsOnYAxis(VELAxisBase& axis, const Ranges* ranges, float duration) {
  axis.trySetOrAnimateVisibleRange(axis.getWindowedYRangeWithXRanges(ranges), duration);
}

void VELViewportManager::autorangeAxes() {
  const auto self = weak_from_this().lock();
  const auto surface = _scs.lock();
  if (!surface) return;
  // Only axes in flight, so that a steady pass allocates nothing.
  Ranges targets;
  VELForEachAxis(surface->xAxes(), [&](VELAxisBase& axis) {
    p_VEL_o_tryPerformAutorangeOnAxis(axis, nullptr);
    if (axis.isAnimating()) targets[axis.axisId()] = axis.visibleRangeTarget();
  });
  VELForEachAxis(surface->yAxes(), [&](VELAxisBase& axis) {
    p_VEL_o_tryPerformAutorangeOnAxis(axis, axis.autoRange() == VELAutoRange_Once ? &targets : nullptr);
  });
}

void VELViewportManager::p_VEL_o_tryPerformAutorangeOnAxis(VELAxisBase& axis, const Ranges* xRanges) {
  const VELAutoRange mode = axis.autoRange();
  const bool stillOpen = !axis.hasValidVisibleRange() || axis.hasDefaultVisibleRange();
  if (mode != VELAutoRange_Always && !(mode == VELAutoRange_Once && stillOpen)) return;
  VELApplyRange(axis, calculateAutoRange(axis, xRanges));
}
