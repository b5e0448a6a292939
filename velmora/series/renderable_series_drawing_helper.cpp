#include "velmora/series/renderable_series_drawing_helper.h"

#include <cmath>

#include "velmora/series/point_marker_base.h"
#include "velmora/series/point_marker_clusterizer.h"
#include "velmora/series/screen_points.h"
#include "velmora/surface/render_pass_data.h"

namespace {
VELScreenPointsForm formOf(bool isDigitalLine) {
  return isDigitalLine ? VELScreenPointsForm_Steps : VELScreenPointsForm_Line;
}
}  // namespace

void VELRenderableSeriesDrawingHelper::drawPolylineToContext(VELRenderContext2D& context,
                                                             const VELRenderPassData& data,
                                                             const VELPenPtr& pen, bool isDigitalLine, bool) {
  if (!pen) return;
  const VELScreenPoints points(data, formOf(isDigitalLine));
  if (points.isEmpty()) return;
  context.beginNewPrimitive();
  context.drawPolylineWithBrush(pen, points.screenX(), points.screenY(), 0);
}

void VELRenderableSeriesDrawingHelper::drawMountainAreaToContext(VELRenderContext2D& context,
                                                                 const VELRenderPassData& data,
                                                                 const VELBrushPtr& brush, double zeroCoord,
                                                                 bool isDigitalLine, bool) {
  if (!brush || std::isnan(zeroCoord)) return;
  const VELScreenPoints points(data, formOf(isDigitalLine));
  if (points.isEmpty()) return;
  const bool isVertical = data.isVerticalChart();
  const auto zero = static_cast<float>(zeroCoord);
  const auto xs = points.screenX().doubles(), ys = points.screenY().doubles();
  context.beginNewPrimitive();
  context.beginZeroToLineAreaWithBrush(brush, static_cast<float>(xs[0]), static_cast<float>(ys[0]), zero,
                                       isVertical);
  for (size_t i = 1; i < xs.size(); ++i)
    context.extendZeroToLineAreaWithBrush(brush, static_cast<float>(xs[i]), static_cast<float>(ys[i]), zero,
                                          isVertical);
}

void VELRenderableSeriesDrawingHelper::drawPointMarkers(
    const std::shared_ptr<VELPointMarkerBase>& marker, VELRenderContext2D& context,
    const VELRenderPassData& data, const std::shared_ptr<VELPointMarkerClusterizer>& cluster) {
  // Held: they are a style's own, and what a marker does while it draws may give the style others.
  // NOLINTBEGIN(performance-unnecessary-copy-initialization)
  const auto heldMarker = marker;
  const auto heldCluster = cluster;
  // NOLINTEND(performance-unnecessary-copy-initialization)
  if (!heldMarker || !heldCluster) return;
  heldCluster->setArea(context.viewportSize());
  heldCluster->clear();
  const VELScreenPoints points(data, VELScreenPointsForm_All);
  if (points.isEmpty()) return;
  const auto across = points.across(), xs = points.screenX().doubles(), ys = points.screenY().doubles();
  context.beginNewPrimitive();
  for (size_t i = 0; i < across.size(); ++i)
    if (!std::isnan(across[i]))
      heldCluster->drawPointMarker(*heldMarker, static_cast<float>(xs[i]), static_cast<float>(ys[i]),
                                   context);
}
