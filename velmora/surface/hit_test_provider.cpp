#include "velmora/surface/hit_test_provider.h"

#include <cmath>

#include "velmora/surface/render_pass_data.h"
#include "velmora/surface/renderable_series.h"

VELHitTestInfo VELHitTestProvider::hitTestSeries(const VELRenderableSeries& series, VELPoint point,
                                                 double radius) const {
  VELHitTestInfo nothing;
  nothing.hitPoint = point;
  const auto data = series.currentRenderPassData();
  if (!data || !series.isValidForDrawing() || !std::isfinite(point.x) || !std::isfinite(point.y))
    return nothing;
  if (!data->pointSeries() || !data->xCoordinateCalculator() || !data->yCoordinateCalculator())
    return nothing;
  VELHitTestInfo found = hitTestPass(*data, point, radius);
  found.hitPoint = point;
  return found;
}
