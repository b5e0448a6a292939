// platform/composer.h: what a view can show of itself on the host's screen.
#pragma once

#include <cstdint>
#include <string>

#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"
#include "velmora/platform/text.h"

class VELGLLayer;
class VELView;

/// Takes the contents of views, in view order, and puts them on the screen or into a picture.
class VELMORA_API VELComposer {
 public:
  virtual ~VELComposer() = default;
  /// The pixels of a layer, over the rectangle @p frame (points, in the topmost view).
  virtual void composeLayer(const VELGLLayer& layer, const VELRect& frame) = 0;
  /// A line of text of natural size @p size, turned by @p transform around the centre of @p frame.
  virtual void composeText(const VELAttributedText& text, uint32_t colorCode, const VELSize& size,
                           const VELAffineTransform& transform, const VELRect& frame) = 0;

  /// Walks a view tree: every shown view, then its subviews, in order.
  void composeTree(VELView& root);

 private:
  void composeBranch(VELView& view, VELPoint superOrigin);
};
