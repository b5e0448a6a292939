// platform/color.h: a colour and its 32-bit code.
#pragma once

#include <cstdint>

#include "velmora/platform/export.h"

/// An RGBA colour, components 0 to 1, not premultiplied.
///
/// The colour code holds red in bits 0-7, green 8-15, blue 16-23, alpha 24-31 (0xAABBGGRR), so that it is
/// stored in memory as the bytes R, G, B, A.
class VELMORA_API VELColor {
 public:
  VELColor() = default;  ///< opaque black
  VELColor(double red, double green, double blue, double alpha = 1.0)
      : _red(red), _green(green), _blue(blue), _alpha(alpha) {}

  static VELColor fromBytes(uint8_t red, uint8_t green, uint8_t blue, uint8_t alpha = 255);
  static VELColor fromColorCode(uint32_t code);

  /// Each component × 255, truncated and masked to 8 bits.
  uint32_t colorCode() const;

  double red() const { return _red; }
  double green() const { return _green; }
  double blue() const { return _blue; }
  double alpha() const { return _alpha; }
  bool operator==(const VELColor&) const = default;

 private:
  double _red = 0.0, _green = 0.0, _blue = 0.0, _alpha = 1.0;
};
