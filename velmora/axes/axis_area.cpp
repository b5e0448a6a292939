#include "velmora/axes/axis_area.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "velmora/axes/axis_panel.h"

namespace {

// However long the labels are, so much of the chart's width or height is the most for one side.
constexpr double kLargestShare = 0.4;
// Points between two axes of one side: the title of the inner one is not to touch the ticks of the outer one.
constexpr double kGap = 10.0;

double gaps(size_t axisCount) { return axisCount < 2 ? 0.0 : kGap * static_cast<double>(axisCount - 1); }

}  // namespace

VELAxisArea::~VELAxisArea() = default;

void VELAxisArea::setOrientation(VELOrientation orientation) {
  _orientation = orientation;
  setNeedsLayout();
}

std::shared_ptr<VELAxisBase> VELAxisArea::itemAt(int32_t index) const {
  return index >= 0 && index < count() ? _items[static_cast<size_t>(index)] : nullptr;
}

bool VELAxisArea::contains(const std::shared_ptr<VELAxisBase>& axis) const {
  return std::find(_items.begin(), _items.end(), axis) != _items.end();
}

void VELAxisArea::addItem(const std::shared_ptr<VELAxisBase>& axis) { insertItem(axis, count()); }

void VELAxisArea::insertItem(const std::shared_ptr<VELAxisBase>& axis, int32_t at) {
  if (!axis || at < 0 || at > count() || contains(axis)) return;
  _items.insert(_items.begin() + at, axis);
  addSubview(axis->axisPanel());
}

void VELAxisArea::removeItem(const std::shared_ptr<VELAxisBase>& axis) {
  const auto found = std::find(_items.begin(), _items.end(), axis);
  if (found == _items.end()) return;
  const auto panel = (*found)->axisPanel();
  _items.erase(found);
  // A panel that another area has taken meanwhile stays there.
  if (panel->superview().get() == this) panel->removeFromSuperview();
}

void VELAxisArea::clear() {
  while (!_items.empty()) removeItem(_items.back());
}

float VELAxisArea::recommendedSize() const {
  double size = gaps(_items.size());
  for (const auto& item : _items) size += item->axisPanel()->recommendedSize();
  if (const auto chart = superview()) {
    const VELSize all = chart->frame().size();
    const double extent = _orientation == VELOrientation_Vertical ? all.width : all.height;
    if (size > extent * kLargestShare) size = std::floor(extent * kLargestShare);
  }
  return static_cast<float>(size);
}

bool VELAxisArea::needResizing() const {
  const double present = _orientation == VELOrientation_Vertical ? frame().width : frame().height;
  return std::abs(static_cast<double>(recommendedSize()) - present) >= 1.0;
}

void VELAxisArea::layout() {
  const bool vertical = _orientation == VELOrientation_Vertical;
  const double depth = vertical ? frame().width : frame().height;
  // A panel that has not been drawn does not know its depth: it gets the area's.
  const auto depthOf = [depth](const VELAxisBase& axis) {
    const double wanted = axis.axisPanel()->recommendedSize();
    return std::isnan(wanted) ? depth : wanted;
  };
  double total = gaps(_items.size());
  for (const auto& item : _items) total += depthOf(*item);
  const VELAxisAlignment side =
      _items.empty() ? VELAxisAlignment_Default : _items.front()->effectiveAlignment();
  const bool frameIsFar = side == VELAxisAlignment_Left || side == VELAxisAlignment_Top;
  double at = frameIsFar ? depth - total : 0.0;
  for (const auto& item : _items) {
    const double own = depthOf(*item);
    item->axisPanel()->setFrame(vertical ? VELRect{at, 0.0, own, frame().height}
                                         : VELRect{0.0, at, frame().width, own});
    at += own + kGap;
  }
}
