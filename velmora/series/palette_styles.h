// series/palette_styles.h: what a palette answers during one drawing, as styles of a line.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "velmora/rendering/brush.h"
#include "velmora/series/line_series_style.h"

class VELPaletteProvider;
class VELRenderPassData;

/// Asks a palette point by point and falls back to the style of the series.
class VELPaletteStyles {
 public:
  /// The first three must outlive it.
  /// @param spanned a pen that has the data of the pass already; null for none
  VELPaletteStyles(VELPaletteProvider& palette, const VELRenderPassData& data, const VELLineSeriesStyle& own,
                   const VELPenPtr& spanned);
  ~VELPaletteStyles();
  VELPaletteStyles(const VELPaletteStyles&) = delete;
  VELPaletteStyles& operator=(const VELPaletteStyles&) = delete;

  /// Pen of the segment that ends at a place on the screen, spanned over the data of the pass; null for none.
  /// The answer is valid until the next question.
  const VELPenPtr& penAt(double x, double y, int32_t index);
  /// Marker of the point at a place on the screen; null for none.
  std::shared_ptr<VELPointMarkerBase> markerAt(double x, double y, int32_t index);

 private:
  /// Null for the style of the series.
  const VELLineSeriesStyle* ask(double x, double y, int32_t index);
  /// Gives a pen the data of the pass, once a drawing.
  void span(const VELPenPtr& pen);

  VELPaletteProvider& _palette;
  const VELRenderPassData& _data;
  const VELLineSeriesStyle& _own;
  std::shared_ptr<const VELSeriesStyle> _last;
  const VELLineSeriesStyle* _lastLine = nullptr;  ///< the same as a style of a line, null when it is none
  /// In the order of their addresses; held, so that no other pen comes to stand there.
  std::vector<VELPenPtr> _spanned;
};
