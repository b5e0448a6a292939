#include "velmora/platform/composer.h"

#include "velmora/platform/view.h"

void VELComposer::composeTree(VELView& root) { composeBranch(root, {}); }

void VELComposer::composeBranch(VELView& view, VELPoint superOrigin) {
  if (view.isHidden()) return;
  const VELRect frame = view.frame().offsetBy(superOrigin.x, superOrigin.y);
  view.compose(*this, frame);
  // What a view of the application's own does in its `compose` may change the tree.
  for (size_t i = 0; i < view.subviews().size(); ++i) {
    const auto subview = view.subviews()[i];
    composeBranch(*subview, frame.origin());
  }
}
