// platform/tree_fingerprint.h: whether a view tree still looks as it did.
#pragma once

#include <cstdint>

#include "velmora/platform/composer.h"
#include "velmora/platform/export.h"

/// One number for everything that a tree shows: texts, colours, places, order, and how often each layer was
/// presented. Equal trees have equal numbers; unequal ones differ, but for one chance in 2^64.
///
/// A host compares numbers to find out that a label was changed, a view moved or hidden, without any of them
/// keeping a mark.
class VELMORA_API VELTreeFingerprint : public VELComposer {
 public:
  static uint64_t of(VELView& root);

 private:
  void composeLayer(const VELGLLayer& layer, const VELRect& frame) override;
  void composeText(const VELAttributedText& text, uint32_t colorCode, const VELSize& size,
                   const VELAffineTransform& transform, const VELRect& frame) override;
  void add(uint64_t word);
  void add(double number);
  void add(const VELRect& frame);

  uint64_t _value = 0;
};
