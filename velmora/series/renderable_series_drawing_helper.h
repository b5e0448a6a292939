// series/renderable_series_drawing_helper.h: from a point series to shapes, for every kind of series.
#pragma once

#include <memory>

#include "velmora/platform/export.h"
#include "velmora/rendering/brush.h"
#include "velmora/rendering/render_context.h"

class VELPointMarkerBase;
class VELPointMarkerClusterizer;
class VELRenderPassData;

/// Drawing shared by the kinds of series. A pass without points or calculators draws nothing.
class VELMORA_API VELRenderableSeriesDrawingHelper {
 public:
  /// The points of a pass as one polyline. Leading points whose Y coordinate is NaN are left out.
  /// @param pen null draws nothing
  /// @param isDigitalLine two segments a point: along the X axis, then along the Y axis
  /// @param closeGaps has no effect: a NaN between points always leaves a gap
  static void drawPolylineToContext(VELRenderContext2D& context, const VELRenderPassData& data,
                                    const VELPenPtr& pen, bool isDigitalLine, bool closeGaps);
  /// The area between the points of a pass and a base, with the same points, steps and gaps as above.
  /// @param brush null draws nothing
  /// @param zeroCoord coordinate of the base along the Y axis in points, see
  ///        `VELRenderableSeries::getYZeroCoord`; NaN draws nothing
  static void drawMountainAreaToContext(VELRenderContext2D& context, const VELRenderPassData& data,
                                        const VELBrushPtr& brush, double zeroCoord, bool isDigitalLine,
                                        bool closeGaps);
  /// A marker at each point with a Y coordinate, where the clusterizer has a free place. Spans the
  /// clusterizer over the context's viewport and frees its cells first.
  /// @param marker, cluster null draws nothing
  static void drawPointMarkers(const std::shared_ptr<VELPointMarkerBase>& marker, VELRenderContext2D& context,
                               const VELRenderPassData& data,
                               const std::shared_ptr<VELPointMarkerClusterizer>& cluster);
};
