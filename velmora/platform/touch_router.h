// platform/touch_router.h: which view gets a finger.
//
// Units: points in the root view; seconds of the host's clock.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "velmora/platform/export.h"
#include "velmora/platform/touch.h"
#include "velmora/platform/view.h"

/// Hands fingers and the wheel of a host to the views below one root.
///
/// The beginning of a touch goes to the topmost view under the finger and from there up until a view takes
/// it; that view, held weakly, gets the rest of the touch. Always true: a view that took a beginning gets one
/// end or one cancellation, unless it dies before; when it leaves the tree it is cancelled.
class VELMORA_API VELTouchRouter {
 public:
  /// @param root held weakly; without it everything is dropped
  explicit VELTouchRouter(std::weak_ptr<VELView> root) : _root(std::move(root)) {}

  /// One step of one finger. Dropped: a beginning or a move whose place is not finite, and the rest of a
  /// touch that no view took. An end without a place cancels. A second beginning cancels the first.
  /// @return true when a view got it
  bool touch(const VELTouch& touch);
  /// A turn of the wheel, to the view under it and up until one takes it.
  /// @return true when a view took it
  bool wheel(const VELWheel& wheel);
  /// Takes every finger away from its view.
  void cancelAll(double seconds);
  /// Number of fingers that a view has.
  size_t heldFingers() const { return _fingers.size(); }

 private:
  struct Finger {
    VELTouch last;
    std::weak_ptr<VELView> view;
  };

  bool begin(const VELTouch& touch);
  bool isInTree(const VELView& view) const;
  void cancel(const Finger& finger, double seconds) const;

  std::weak_ptr<VELView> _root;
  std::vector<Finger> _fingers;
};
