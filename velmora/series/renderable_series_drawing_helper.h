// series/renderable_series_drawing_helper.h: from a point series to shapes, for every kind of series.
#pragma once

#include "velmora/platform/export.h"
#include "velmora/rendering/brush.h"
#include "velmora/rendering/render_context.h"

class VELRenderPassData;

/// Drawing shared by the kinds of series.
class VELMORA_API VELRenderableSeriesDrawingHelper {
 public:
  /// The points of a pass as one polyline. Leading points whose Y coordinate is NaN are left out.
  /// @param isDigitalLine two segments a point: along the X axis, then along the Y axis
  /// @param closeGaps has no effect: a NaN between points always leaves a gap
  static void drawPolylineToContext(VELRenderContext2D& context, const VELRenderPassData& data,
                                    const VELPenPtr& pen, bool isDigitalLine, bool closeGaps);
};
