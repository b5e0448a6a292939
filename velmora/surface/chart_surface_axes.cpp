// Which axes a surface has, and in which area each of them stands.
#include <utility>

#include "velmora/surface/chart_surface.h"

void VELChartSurface::replaceAxes(std::shared_ptr<VELAxisCollection>& place,
                                  std::shared_ptr<VELAxisCollection> axes) {
  // The pass under way walks the old collection to its end.
  if (_isRendering && place) _retiredAxes.push_back(place);
  place = std::move(axes);
}

void VELChartSurface::attachAxis(const std::shared_ptr<VELAxisBase>& axis, bool isXAxis) {
  const auto& axes = isXAxis ? _xAxes : _yAxes;
  if (!axis || !axes) return;
  axis->setParentSurface(weak_from_this());
  axis->setIsXAxis(isXAxis);
  axes->addItem(axis);
  if (axis->axisAlignment() == VELAxisAlignment_Default)
    axis->setAxisAlignment(isXAxis ? VELAxisAlignment_Bottom : VELAxisAlignment_Right);
  p_VEL_addToAxisContainer(axis, axis->axisAlignment(), axis->isCenterAxis());
  axis->setOnAxisAlignmentChanged([weakSelf = weak_from_this()] {
    if (const auto self = weakSelf.lock()) self->p_VEL_layoutAxes();
  });
  invalidateElement();
}

void VELChartSurface::detachAxis(const std::shared_ptr<VELAxisBase>& axis) {
  if (!axis) return;
  // The argument may be the collection's own reference.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const auto kept = axis;
  const auto& axes = kept->isXAxis() ? _xAxes : _yAxes;
  if (axes) axes->removeItem(kept);
  p_VEL_removeFromAxisContainer(kept, kept->axisAlignment(), kept->isCenterAxis());
  // Its centre flag may have changed since it was attached, so no other area may keep it either.
  p_VEL_removeFromAxisContainer(kept);
  kept->setParentSurface({});
  kept->setOnAxisAlignmentChanged(nullptr);
  invalidateElement();
}

std::shared_ptr<VELAxisArea> VELChartSurface::p_VEL_getContainerFor(const VELAxisBase& axis,
                                                                    VELAxisAlignment alignment,
                                                                    bool isCenterAxis) const {
  if (isCenterAxis) return axis.isXAxis() ? _centerXAxisArea.lock() : _centerYAxisArea.lock();
  switch (alignment) {
    case VELAxisAlignment_Right:
      return _rightAxisArea.lock();
    case VELAxisAlignment_Left:
      return _leftAxisArea.lock();
    case VELAxisAlignment_Top:
      return _topAxisArea.lock();
    case VELAxisAlignment_Bottom:
      return _bottomAxisArea.lock();
    default:
      return nullptr;
  }
}

void VELChartSurface::p_VEL_addToAxisContainer(const std::shared_ptr<VELAxisBase>& axis,
                                               VELAxisAlignment alignment, bool isCenterAxis) {
  const auto container = p_VEL_getContainerFor(*axis, alignment, isCenterAxis);
  if (container && !container->contains(axis)) {
    const bool newestFirst =
        !isCenterAxis && (alignment == VELAxisAlignment_Left || alignment == VELAxisAlignment_Top);
    if (newestFirst)
      container->insertItem(axis, 0);
    else
      container->addItem(axis);
  }
  p_VEL_invalidateIsPolarChartProperty();
}

void VELChartSurface::p_VEL_removeFromAxisContainer(const std::shared_ptr<VELAxisBase>& axis,
                                                    VELAxisAlignment alignment, bool isCenterAxis) {
  const auto container = p_VEL_getContainerFor(*axis, alignment, isCenterAxis);
  if (container && axis->parentSurface()) container->removeItem(axis);
  p_VEL_invalidateIsPolarChartProperty();
}

void VELChartSurface::p_VEL_removeFromAxisContainer(const std::shared_ptr<VELAxisBase>& axis) {
  for (const auto* area : {&_centerXAxisArea, &_centerYAxisArea, &_leftAxisArea, &_rightAxisArea,
                           &_topAxisArea, &_bottomAxisArea})
    if (const auto existing = area->lock()) existing->removeItem(axis);
  p_VEL_invalidateIsPolarChartProperty();
}

void VELChartSurface::p_VEL_layoutAxes() {
  for (const auto& axes : {_xAxes, _yAxes}) {
    for (int32_t i = 0; axes && i < axes->count(); ++i) {
      const auto axis = axes->itemAt(i);
      if (!axis) continue;
      p_VEL_removeFromAxisContainer(axis);
      p_VEL_addToAxisContainer(axis, axis->axisAlignment(), axis->isCenterAxis());
    }
  }
  invalidateElement();
}

void VELChartSurface::p_VEL_invalidateIsPolarChartProperty() {
  const auto xArea = _centerXAxisArea.lock();
  const auto yArea = _centerYAxisArea.lock();
  if (!xArea || !yArea) return;
  const auto isPolar = [](const std::shared_ptr<VELAxisBase>& axis) { return axis && axis->isPolarAxis(); };
  _isPolarChart = false;
  // Meant: the Y area is walked with the X area's count; what it has beyond that does not matter.
  for (int32_t i = 0; i < xArea->count() && !_isPolarChart; ++i)
    _isPolarChart = isPolar(xArea->itemAt(i)) || isPolar(yArea->itemAt(i));
}
