#include "velmora/platform/touch_router.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

bool isPlace(VELPoint point) { return std::isfinite(point.x) && std::isfinite(point.y); }

/// The views from the topmost one at a point up to the root; asks for the superview only after the call,
/// which may change the tree.
template <typename Offer>
std::shared_ptr<VELView> offered(const std::shared_ptr<VELView>& root, VELPoint point, Offer offer) {
  if (!root || !isPlace(point)) return nullptr;
  for (auto view = root->viewAt(point); view; view = view->superview())
    if (offer(*view)) return view;
  return nullptr;
}

}  // namespace

bool VELTouchRouter::isInTree(const VELView& view) const {
  const auto root = _root.lock();
  if (!root || &view == root.get()) return root != nullptr;
  for (auto ancestor = view.superview(); ancestor; ancestor = ancestor->superview())
    if (ancestor == root) return true;
  return false;
}

void VELTouchRouter::cancel(const Finger& finger, double seconds) const {
  const auto view = finger.view.lock();
  if (!view) return;
  VELTouch touch = finger.last;
  touch.phase = VELTouchPhase_Cancelled;
  touch.seconds = std::max(touch.seconds, seconds);
  view->onTouch(touch);
}

bool VELTouchRouter::begin(const VELTouch& touch) {
  const auto view =
      offered(_root.lock(), touch.location, [&](VELView& candidate) { return candidate.onTouch(touch); });
  if (view) _fingers.push_back({touch, view});
  return view != nullptr;
}

bool VELTouchRouter::touch(const VELTouch& touch) {
  const bool isBeginning = touch.phase == VELTouchPhase_Began;
  const bool hasPlace = isPlace(touch.location);
  if (!hasPlace && (isBeginning || touch.phase == VELTouchPhase_Moved)) return false;

  const auto found = std::find_if(_fingers.begin(), _fingers.end(),
                                  [&](const Finger& finger) { return finger.last.id == touch.id; });
  if (found == _fingers.end()) return isBeginning && begin(touch);

  // Views may begin, end and cancel touches inside the calls below: the list is in order before each.
  const auto view = found->view.lock();
  const bool goesOn = touch.phase == VELTouchPhase_Moved && view && isInTree(*view);
  if (goesOn) {
    found->last = touch;
    view->onTouch(touch);
    return true;
  }
  const Finger finger = *found;
  _fingers.erase(found);
  if (isBeginning) {
    cancel(finger, touch.seconds);
    return begin(touch);
  }
  if (!view) return false;
  if (touch.phase == VELTouchPhase_Moved || !hasPlace || !isInTree(*view))
    cancel(finger, touch.seconds);
  else
    view->onTouch(touch);
  return true;
}

bool VELTouchRouter::wheel(const VELWheel& wheel) {
  if (!std::isfinite(wheel.deltaX) || !std::isfinite(wheel.deltaY)) return false;
  return offered(_root.lock(), wheel.location, [&](VELView& view) { return view.onWheel(wheel); }) != nullptr;
}

void VELTouchRouter::cancelAll(double seconds) {
  const auto fingers = std::exchange(_fingers, {});
  for (const Finger& finger : fingers) cancel(finger, seconds);
}
