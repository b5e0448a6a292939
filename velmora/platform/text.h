// platform/text.h: fonts, measured strings and their pixels.
//
// Units: points for sizes, pixels (= points × scale) for bitmaps. Strings are UTF-8.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"

/// A font by name; an empty name is the platform's sans-serif.
struct VELFont {
  std::string name;
  double size = 12.0;  ///< points
  bool isBold = false;
  bool operator==(const VELFont&) const = default;
};

/// A piece of text in one font, raised by `baselineOffset` points.
struct VELTextRun {
  std::string text;
  VELFont font;
  double baselineOffset = 0.0;
  bool operator==(const VELTextRun&) const = default;
};

/// One line of text, as pieces from left to right. What would end a line is shown as a space.
using VELAttributedText = std::vector<VELTextRun>;

/// How much of each pixel the text covers: width × height bytes, rows top down, 255 = all.
struct VELTextMask {
  int32_t width = 0;   ///< pixels
  int32_t height = 0;  ///< pixels
  std::vector<uint8_t> coverage;

  /// Of one pixel, which must be inside.
  uint8_t at(int32_t x, int32_t y) const {
    return coverage[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)];
  }
};

/// Measures and rasterises text. One instance serves the process.
class VELMORA_API VELTextEngine {
 public:
  /// The engine of the platform, made on first use; never null. Without any font on the machine every text
  /// measures zero and `hasFonts()` is false.
  static VELTextEngine& instance();

  virtual ~VELTextEngine() = default;
  virtual bool hasFonts() = 0;
  /// Size in points: the advance width, or the width of the ink where that is wider, by the line height;
  /// independent of the scale. A text without letters, or in a font size that is not positive, has none.
  /// Bytes that are no UTF-8 show as replacement characters; beyond 1000 characters a text is cut, beyond 250
  /// points a font grows no further.
  virtual VELSize measure(const VELAttributedText& text) = 0;
  /// Height of a capital letter above the baseline, in points.
  virtual double capHeight(const VELFont& font) = 0;
  /// The text as it covers a box of `measure(text)`, rounded up to whole pixels, with room for edges that
  /// fade or reach out: one pixel more on the left and the right, at least two above and, just as many,
  /// below. At most 4096 pixels a side. The baseline lies on a whole pixel. Empty when the text has no size
  /// or the
  /// @p scale, in pixels a point and at most 16, is not positive.
  virtual VELTextMask rasterise(const VELAttributedText& text, double scale) = 0;
};
