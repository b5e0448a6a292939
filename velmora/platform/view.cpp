#include "velmora/platform/view.h"

#include <algorithm>

VELView::~VELView() = default;

void VELView::setFrame(const VELRect& frame) {
  if (frame.size() != _frame.size()) setNeedsLayout();
  _frame = frame;
}

VELRect VELView::frameInRoot() const {
  VELRect result = _frame;
  for (auto view = superview(); view; view = view->superview())
    result = result.offsetBy(view->frame().x, view->frame().y);
  return result;
}

void VELView::addSubview(const std::shared_ptr<VELView>& view) { insertSubview(view, _subviews.size()); }

void VELView::insertSubview(const std::shared_ptr<VELView>& view, size_t index) {
  for (const VELView* ancestor = this; ancestor; ancestor = ancestor->superview().get())
    if (!view || ancestor == view.get()) return;
  view->removeFromSuperview();
  view->_superview = weak_from_this();
  const auto at = static_cast<std::ptrdiff_t>(std::min(index, _subviews.size()));
  _subviews.insert(_subviews.begin() + at, view);
  setNeedsLayout();
}

void VELView::removeFromSuperview() {
  const auto parent = superview();
  if (!parent) return;
  const auto keepAlive = shared_from_this();
  std::erase(parent->_subviews, keepAlive);
  _superview.reset();
  parent->setNeedsLayout();
}

void VELView::layoutIfNeeded() {
  if (_needsLayout) {
    _needsLayout = false;
    layoutSubviews();
  }
  // Laying out may add, remove and reorder subviews, also the one at work: hold it, and go on only when it
  // still is where it was.
  for (size_t i = 0; i < _subviews.size();) {
    const auto subview = _subviews[i];
    subview->layoutIfNeeded();
    if (i < _subviews.size() && _subviews[i] == subview) ++i;
  }
}

void VELView::setTreeContentScale(double pixelsPerPoint) {
  contentScaleChanged(pixelsPerPoint);
  setNeedsLayout();
  const auto subviews = _subviews;
  for (const auto& subview : subviews) subview->setTreeContentScale(pixelsPerPoint);
}

bool VELView::onTouch(const VELTouch&) { return false; }

bool VELView::onWheel(const VELWheel&) { return false; }

std::shared_ptr<VELView> VELView::viewAt(VELPoint point) {
  if (_hidden || !bounds().contains(point)) return nullptr;
  for (auto subview = _subviews.rbegin(); subview != _subviews.rend(); ++subview) {
    const VELRect& place = (*subview)->frame();
    if (auto found = (*subview)->viewAt({point.x - place.x, point.y - place.y})) return found;
  }
  return shared_from_this();
}

bool VELView::isTreeDirty() const {
  return _needsLayout || needsDisplay() ||
         std::any_of(_subviews.begin(), _subviews.end(),
                     [](const auto& view) { return view->isTreeDirty(); });
}

void VELView::compose(VELComposer&, const VELRect&) {}
