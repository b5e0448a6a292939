// series/palette_provider.h: an application's own style for each point of a series.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/platform/export.h"

class VELRenderPassData;
class VELSeriesStyle;

/// Colours a series point by point. Both operations may change the chart: the pass under way goes on with
/// what it began with.
class VELMORA_API VELPaletteProvider {
 public:
  virtual ~VELPaletteProvider() = default;

  /// Called before the points of a draw are asked for, at least once; a line series calls it twice.
  virtual void updateData(const VELRenderPassData& data) = 0;
  /// The style of a point: of a line, the one of the segment that ends there. Answer with kept styles: the
  /// steady frame allocates nothing then.
  /// @param x, y place on the screen in points, relative to the chart frame. The corner of a digital line
  ///        asks for a style of its own, with the index of the point that it leads to
  /// @param index of the point in the data series
  /// @return null for the series' own style, as does a style of another kind of series; a pen or a marker
  ///         that the style lacks is the series' own. A line series reads `linePen`, `drawPointMarkers` and
  ///         `pointMarker` of a VELLineSeriesStyle. A gradient pen is spanned over the series' data.
  virtual std::shared_ptr<const VELSeriesStyle> styleForX(double x, double y, uint32_t index) = 0;
};
