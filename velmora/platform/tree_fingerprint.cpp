#include "velmora/platform/tree_fingerprint.h"

#include <bit>
#include <functional>
#include <string>

#include "velmora/platform/gl_layer.h"

uint64_t VELTreeFingerprint::of(VELView& root) {
  VELTreeFingerprint fingerprint;
  fingerprint.composeTree(root);
  return fingerprint._value;
}

void VELTreeFingerprint::add(uint64_t word) {
  // Multiplication spreads upwards, the shift brings it down again: every bit reaches every other.
  _value = (_value ^ word) * 0x9E3779B97F4A7C15u;
  _value ^= _value >> 32;
}

void VELTreeFingerprint::add(double number) { add(std::bit_cast<uint64_t>(number)); }

void VELTreeFingerprint::add(const VELRect& frame) {
  for (const double number : {frame.x, frame.y, frame.width, frame.height}) add(number);
}

void VELTreeFingerprint::composeLayer(const VELGLLayer& layer, const VELRect& frame) {
  add(uint64_t{layer.texture()} << 32 | 1u);
  add(static_cast<uint64_t>(static_cast<uint32_t>(layer.width())) << 32 |
      static_cast<uint32_t>(layer.height()));
  add(layer.presentedCount());
  add(frame);
}

void VELTreeFingerprint::composeText(const VELAttributedText& text, uint32_t colorCode,
                                     const VELSize& /*size*/, const VELAffineTransform& transform,
                                     const VELRect& frame) {
  add(uint64_t{colorCode} << 32 | 2u);
  for (const VELTextRun& run : text) {
    add(uint64_t{std::hash<std::string>{}(run.text)});
    add(uint64_t{std::hash<std::string>{}(run.font.name)} ^ (run.font.isBold ? 1u : 0u));
    add(run.font.size);
    add(run.baselineOffset);
  }
  for (const double number : {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty})
    add(number);
  add(frame);
}
