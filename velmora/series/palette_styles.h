// series/palette_styles.h: what a palette answers during one drawing, as styles of a line.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "velmora/rendering/brush.h"
#include "velmora/series/line_series_style.h"

class VELPaletteProvider;
class VELRenderPassData;

/// Asks a palette point by point and falls back to the style of the series.
class VELPaletteStyles {
 public:
  /// All three must outlive it.
  VELPaletteStyles(VELPaletteProvider& palette, const VELRenderPassData& data, const VELLineSeriesStyle& own)
      : _palette(palette), _data(data), _own(own) {}

  /// Pen of the segment that ends at a place on the screen, spanned over the data of the pass; null for none.
  /// The answer is valid until the next question.
  const VELPenPtr& penAt(double x, double y, int32_t index);
  /// Marker of the point at a place on the screen; null for none. Valid until the next question.
  VELPointMarkerBase* markerAt(double x, double y, int32_t index);

 private:
  /// Null for the style of the series.
  const VELLineSeriesStyle* ask(double x, double y, int32_t index);
  /// Gives a pen the data of the pass, once a drawing. With more than a few such pens some get it again.
  void span(const VELPenPtr& pen);

  VELPaletteProvider& _palette;
  const VELRenderPassData& _data;
  const VELLineSeriesStyle& _own;
  std::shared_ptr<const VELSeriesStyle> _last;
  const VELLineSeriesStyle* _lastLine = nullptr;  ///< the same as a style of a line, null when it is none
  std::array<VELPenPtr, 16> _spanned;             ///< held, so that no other pen comes to stand there
  size_t _spannedCount = 0;
};
