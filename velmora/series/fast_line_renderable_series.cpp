#include "velmora/series/fast_line_renderable_series.h"

#include <utility>

#include "velmora/data/point_series.h"
#include "velmora/series/renderable_series_drawing_helper.h"
#include "velmora/surface/render_pass_data.h"

VELFastLineRenderableSeries::VELFastLineRenderableSeries() {
  adoptStyle(std::make_shared<VELLineSeriesStyle>());
  setResamplingMode(VELResamplingMode_MinMax);
}

VELFastLineRenderableSeries::~VELFastLineRenderableSeries() { adoptStyle(nullptr); }

void VELFastLineRenderableSeries::setStyle(const VELLineSeriesStyle& style) {
  adoptStyle(style.clone());
  invalidateParentSurface();
}

// A style may outlive its place in the series, so the one that goes loses the callback, and a copy of the
// callback finds nobody once the series is gone.
void VELFastLineRenderableSeries::adoptStyle(std::shared_ptr<VELLineSeriesStyle> style) {
  if (_style) _style->setStyleChanged(nullptr);
  _style = std::move(style);
  if (!_style) return;
  _style->setStyleChanged([alive = std::weak_ptr(_alive)] {
    if (const auto self = alive.lock()) (*self)->invalidateParentSurface();
  });
}

void VELFastLineRenderableSeries::internalDrawWithContext(VELRenderContext2D& context,
                                                          const VELRenderPassData& data) {
  if (!data.pointSeries() || data.pointSeries()->count() == 0) return;
  if (const auto& pen = _style->linePen()) pen->setRenderPassData(&data);
  VELRenderableSeriesDrawingHelper::drawPolylineToContext(context, data, _style->linePen(),
                                                          _style->isDigitalLine(), true);
}
