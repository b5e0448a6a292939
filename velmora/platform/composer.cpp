#include "velmora/platform/composer.h"

#include "velmora/platform/view.h"

void VELComposer::composeTree(VELView& root) { composeBranch(root, {}); }

void VELComposer::composeBranch(VELView& view, VELPoint superOrigin) {
  if (view.isHidden()) return;
  const VELRect frame = view.frame().offsetBy(superOrigin.x, superOrigin.y);
  view.compose(*this, frame);
  for (const auto& subview : view.subviews()) composeBranch(*subview, frame.origin());
}
