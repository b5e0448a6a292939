#include "velmora/series/fast_line_renderable_series.h"

#include <cmath>
#include <span>
#include <utility>

#include "velmora/data/point_series.h"
#include "velmora/series/line_hit_test_provider.h"
#include "velmora/series/palette_styles.h"
#include "velmora/series/point_marker_base.h"
#include "velmora/series/point_marker_clusterizer.h"
#include "velmora/series/renderable_series_drawing_helper.h"
#include "velmora/series/screen_points.h"
#include "velmora/surface/render_pass_data.h"

namespace {

/// Begins a polyline at its first point and extends it at every later one, each in a pen of its own.
class PalettedLine {
 public:
  PalettedLine(VELRenderContext2D& context, VELPaletteStyles& styles, bool isVertical)
      : _context(context), _styles(styles), _isVertical(isVertical) {}

  bool isBegun() const { return _isBegun; }
  /// To a place along and across the X axis of the chart.
  void to(double along, double across, int32_t index) {
    const double x = _isVertical ? across : along, y = _isVertical ? along : across;
    const VELPenPtr& pen = _styles.penAt(x, y, index);
    if (_isBegun)
      _context.extendPolylineWithBrush(pen, static_cast<float>(x), static_cast<float>(y));
    else
      _context.beginPolylineWithBrush(pen, static_cast<float>(x), static_cast<float>(y));
    _isBegun = true;
  }

 private:
  VELRenderContext2D& _context;
  VELPaletteStyles& _styles;
  bool _isVertical;
  bool _isBegun = false;
};

void drawLine(PalettedLine line, const VELScreenPoints& points, std::span<const int32_t> indices,
              bool isDigitalLine) {
  const auto along = points.along(), across = points.across();
  double height = 0.0;
  for (size_t i = 0; i < across.size(); ++i) {
    if (std::isnan(across[i])) continue;
    if (isDigitalLine && line.isBegun()) line.to(along[i], height, indices[i]);
    height = across[i];
    line.to(along[i], height, indices[i]);
  }
}

void drawMarkers(VELRenderContext2D& context, VELPaletteStyles& styles, const VELScreenPoints& points,
                 std::span<const int32_t> indices, VELPointMarkerClusterizer& cluster) {
  cluster.setArea(context.viewportSize());
  cluster.clear();
  context.beginNewPrimitive();
  const auto across = points.across(), xs = points.screenX().doubles(), ys = points.screenY().doubles();
  for (size_t i = 0; i < across.size(); ++i) {
    if (std::isnan(across[i])) continue;
    if (const auto marker = styles.markerAt(xs[i], ys[i], indices[i]))
      cluster.drawPointMarker(*marker, static_cast<float>(xs[i]), static_cast<float>(ys[i]), context);
  }
}

}  // namespace

VELFastLineRenderableSeries::VELFastLineRenderableSeries()
    : _hitTest(std::make_shared<VELLineHitTestProvider>()) {
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

// The provider is replaced only when the kind of line has changed, so that a steady frame allocates nothing.
void VELFastLineRenderableSeries::fitHitTest(bool isDigitalLine) {
  if (_hitTest->isDigitalLine() == isDigitalLine) return;
  const VELHitTestMode mode = _hitTest->hitTestMode();
  if (isDigitalLine)
    _hitTest = std::make_shared<VELDigitalLineHitTestProvider>();
  else
    _hitTest = std::make_shared<VELLineHitTestProvider>();
  _hitTest->setHitTestMode(mode);
}

std::shared_ptr<VELHitTestProvider> VELFastLineRenderableSeries::hitTestProvider() const { return _hitTest; }

VELColor VELFastLineRenderableSeries::seriesColor() const {
  return _style->linePen() ? _style->linePen()->color() : VELRenderableSeriesBase::seriesColor();
}

void VELFastLineRenderableSeries::internalDrawWithContext(VELRenderContext2D& context,
                                                          const VELRenderPassData& data) {
  if (!data.pointSeries() || data.pointSeries()->count() == 0) return;
  // Held: a palette may give the series another style or palette.
  const std::shared_ptr<VELLineSeriesStyle> style = _style;
  const auto palette = paletteProvider();
  const bool isDigitalLine = style->isDigitalLine();
  fitHitTest(isDigitalLine);
  const VELPenPtr pen = style->linePen();
  if (pen) pen->setRenderPassData(&data);
  if (palette) {
    // The palette is told of the data here and again where it is drawn with; both are meant.
    palette->updateData(data);
    return drawPalettedLine(context, data, palette, isDigitalLine, pen);
  }
  VELRenderableSeriesDrawingHelper::drawPolylineToContext(context, data, pen, isDigitalLine, true);
  if (style->drawPointMarkers())
    VELRenderableSeriesDrawingHelper::drawPointMarkers(style->pointMarker(), context, data, style->cluster());
}

void VELFastLineRenderableSeries::drawLineSeriesToContext(VELRenderContext2D& context,
                                                          const VELRenderPassData& data,
                                                          const std::shared_ptr<VELPaletteProvider>& palette,
                                                          bool isDigitalLine, bool) {
  drawPalettedLine(context, data, palette, isDigitalLine, nullptr);
}

void VELFastLineRenderableSeries::drawPalettedLine(VELRenderContext2D& context, const VELRenderPassData& data,
                                                   const std::shared_ptr<VELPaletteProvider>& palette,
                                                   bool isDigitalLine, const VELPenPtr& spanned) {
  // Held, the argument too: what the palette does may replace both.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const auto held = palette;
  const std::shared_ptr<VELLineSeriesStyle> style = _style;
  if (!held || !data.pointSeries()) return;
  held->updateData(data);
  const VELScreenPoints points(data, VELScreenPointsForm_All);
  if (points.isEmpty()) return;
  const auto indices = data.pointSeries()->indexSpan();
  const auto cluster = style->cluster();
  VELPaletteStyles styles(*held, data, *style, spanned);
  context.beginNewPrimitive();
  drawLine({context, styles, data.isVerticalChart()}, points, indices, isDigitalLine);
  if (cluster) drawMarkers(context, styles, points, indices, *cluster);
}
