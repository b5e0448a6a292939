#include "velmora/surface/chart_surface_view.h"

#include <algorithm>
#include <cmath>

#include "velmora/platform/scoped_mark.h"
#include "velmora/rendering/brush.h"
#include "velmora/rendering/visual_style.h"
#include "velmora/surface/chart_surface.h"

namespace {
constexpr std::array kSides = {VELChartSide_Left, VELChartSide_Right, VELChartSide_Top, VELChartSide_Bottom};

}  // namespace

VELChartSurfaceViewBase::~VELChartSurfaceViewBase() {
  if (_renderSurface) _renderSurface->free();
}

float VELChartSurfaceViewBase::axisAreaSize(VELChartSide side) const {
  const PanelSize& panel = _panelSizes[static_cast<size_t>(side)];
  return std::min(panel.size, panel.limit);
}

void VELChartSurfaceViewBase::setAxisAreaSize(VELChartSide side, float size) {
  if (!std::isfinite(size) || size < 0.0f) return;
  _panelSizes[static_cast<size_t>(side)] = {size, size};
}

float VELChartSurfaceViewBase::wantedSize(VELChartSide side) const {
  const float forced = axisAreaForcedSize(side);
  if (!std::isnan(forced)) return forced;
  const auto& sideArea = area(side);
  return sideArea ? static_cast<float>(sideArea->recommendedSize()) : kNaN;
}

bool VELChartSurfaceViewBase::axisAreasNeedResizing() const {
  // A forced side has its size whatever its axes want.
  return std::any_of(kSides.begin(), kSides.end(), [this](VELChartSide side) {
    return std::isnan(axisAreaForcedSize(side)) && area(side) && area(side)->needResizing();
  });
}

void VELChartSurfaceViewBase::layoutSubviews() {
  // The surface answers the block by setting sizes and asking for this layout again.
  if (_layingOut) return;
  // Both held: the block may replace itself or let go of the view.
  const auto self = weak_from_this().lock();
  const auto block = _onLayoutSubviews;
  const VELScopedMark guard(_layingOut);
  if (*block)
    (*block)(wantedSize(VELChartSide_Left), wantedSize(VELChartSide_Right), wantedSize(VELChartSide_Top),
             wantedSize(VELChartSide_Bottom));
  placeSubviews();
  for (const VELChartSide side : kSides)
    if (area(side)) area(side)->layout();
}

void VELChartSurfaceViewBase::contentScaleChanged(double pixelsPerPoint) {
  if (!(pixelsPerPoint > 0.0) || !std::isfinite(pixelsPerPoint) || pixelsPerPoint == _contentScale) return;
  _contentScale = pixelsPerPoint;
  if (_renderSurface) _renderSurface->invalidateElement();
}

VELChartSurfaceView::VELChartSurfaceView(const VELRect& frame, double contentScale)
    : VELChartSurfaceViewBase(frame, contentScale) {}

VELChartSurfaceView::~VELChartSurfaceView() = default;

std::shared_ptr<VELChartSurfaceView> VELChartSurfaceView::initWithFrame(const VELRect& frame, VELHost& host) {
  // The constructor is private, so std::make_shared cannot reach it.
  struct Reachable : VELChartSurfaceView {
    Reachable(const VELRect& f, double scale) : VELChartSurfaceView(f, scale) {}
  };
  std::shared_ptr<VELChartSurfaceView> view = std::make_shared<Reachable>(frame, host.contentScale());
  if (!view->p_VEL_setupSubViews(host)) return nullptr;
  view->_surface = VELChartSurface::initWithView(view);
  view->applyStandardLook();
  return view;
}

bool VELChartSurfaceView::p_VEL_setupSubViews(VELHost& host) {
  if (_subViewsSetUp) return true;
  _renderSurface = VELOpenGLRenderSurface::initWithFrame(bounds(), host);
  if (!_renderSurface) return false;
  // The render surface comes first: what it shows lies below the labels of the axes.
  addSubview(_renderSurface);
  for (const VELChartSide side : kSides) {
    auto& sideArea = _areas[static_cast<size_t>(side)];
    sideArea = std::make_shared<VELAxisArea>();
    addSubview(sideArea);
  }
  _renderSurfaceSizeView = std::make_shared<VELView>();
  addSubview(_renderSurfaceSizeView);
  _titleLabel = std::make_shared<VELLabelView>();
  addSubview(_titleLabel);
  _subViewsSetUp = true;
  return true;
}

void VELChartSurfaceView::applyStandardLook() {
  const VELVisualStyle& look = VELVisualStyle::standard();
  const auto& style = _surface->style();
  style->setBackgroundBrush(VELBrush2D::solid(look.background));
  style->setSeriesBackgroundBrush(VELBrush2D::solid(look.chartArea));
  style->setBorderPen(VELPen2D::solid(look.chartBorder, static_cast<float>(look.chartBorderWidth / 2.0)));
  _titleLabel->setFont({"", look.chartTitleFontSize, true});
  _titleLabel->setTextColor(VELColor::fromColorCode(look.chartTitleColor));
}

double VELChartSurfaceView::titleHeight() const {
  if (!_surface || _surface->chartTitle().empty()) return 0.0;
  return std::ceil(_titleLabel->textSize().height + VELVisualStyle::standard().chartTitleGap);
}

void VELChartSurfaceView::layoutSubviews() {
  if (_titleLabel && _surface) {
    _titleLabel->setText(_surface->chartTitle());
    _titleLabel->shortenToWidth(frame().width - 2.0 * VELVisualStyle::standard().padding);
    _titleLabel->setHidden(_surface->chartTitle().empty());
    _titleLabel->sizeToFit();
  }
  VELChartSurfaceViewBase::layoutSubviews();
}

void VELChartSurfaceView::placeSubviews() {
  const double padding = VELVisualStyle::standard().padding;
  const double left = leftAxisAreaSize(), right = rightAxisAreaSize();
  const double top = topAxisAreaSize(), bottom = bottomAxisAreaSize();
  const double title = titleHeight();

  // Whole points, so that the frame's edges and everything aligned with them are sharp at any density.
  const double x = std::floor(padding + left);
  const double y = std::floor(padding + title + top);
  const double width = std::max(0.0, std::floor(frame().width - padding - right) - x);
  const double height = std::max(0.0, std::floor(frame().height - padding - bottom) - y);

  _renderSurface->setFrame(bounds());
  _renderSurfaceSizeView->setFrame({x, y, width, height});
  area(VELChartSide_Left)->setFrame({x - left, y, left, height});
  area(VELChartSide_Right)->setFrame({x + width, y, right, height});
  area(VELChartSide_Top)->setFrame({x, y - top, width, top});
  area(VELChartSide_Bottom)->setFrame({x, y + height, width, bottom});

  const VELSize titleSize = _titleLabel->frame().size();
  // Over the middle of the chart frame, unless a long one would leave the view there.
  const double wanted = x + (width - titleSize.width) / 2.0;
  const double titleX = std::max(padding, std::min(wanted, frame().width - padding - titleSize.width));
  _titleLabel->setFrame({std::round(titleX), padding, titleSize.width, titleSize.height});
}
