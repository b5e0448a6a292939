#include "velmora/series/renderable_series_base.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "velmora/axes/axis_base.h"
#include "velmora/axes/calculator_stage.h"
#include "velmora/data/point_series.h"
#include "velmora/platform/exception.h"
#include "velmora/surface/chart_surface.h"
#include "velmora/surface/render_pass_data.h"
#include "velmora/surface/series_info.h"

namespace {
std::string cursorText(const std::shared_ptr<VELAxisBase>& axis, double value) {
  return axis ? axis->formatCursorText(axis->labelValue(value)) : std::string();
}
}  // namespace

VELRenderableSeriesBase::VELRenderableSeriesBase()
    : _xAxisId(VELAxisBase::defaultAxisId), _yAxisId(VELAxisBase::defaultAxisId) {}

VELRenderableSeriesBase::~VELRenderableSeriesBase() {
  if (_dataSeries) _dataSeries->removeDisplay(this);
}

void VELRenderableSeriesBase::onDrawWithContext(VELRenderContext2D& context,
                                                const std::shared_ptr<const VELRenderPassData>& data) {
  _currentRenderPassData = data;
  if (!isValidForDrawing()) return;
  const VELSize size = context.viewportSize();
  if (size != _lastViewportSize) {
    onParentSurfaceViewportSizeChanged();
    _lastViewportSize = size;
  }
  // One by one point is the size of a context that was never laid out.
  const bool neverLaidOut = size == VELSize{1.0, 1.0};
  if (size.width == 0.0 || size.height == 0.0 || neverLaidOut) return;
  internalDrawWithContext(context, *data);
}

bool VELRenderableSeriesBase::isValidForDrawing() const {
  return _dataSeries && _dataSeries->hasValues() && _isVisible && _currentRenderPassData &&
         _currentRenderPassData->pointSeries();
}

void VELRenderableSeriesBase::internalDrawWithContext(VELRenderContext2D&, const VELRenderPassData&) {
  throw VELInternalInconsistencyException(
      "internalDrawWithContext:WithData: must be implemented in subclass");
}

double VELRenderableSeriesBase::getYZeroCoord() const {
  const auto& data = _currentRenderPassData;
  if (std::isnan(_zeroLineY) || !data || !data->yCoordinateCalculator())
    return std::numeric_limits<double>::quiet_NaN();
  const double extent = data->isVerticalChart() ? _lastViewportSize.width : _lastViewportSize.height;
  return std::min(extent + 1.0, data->yCoordinateCalculator()->getCoordinateFrom(_zeroLineY));
}

double VELRenderableSeriesBase::getChartRotationAngle(const VELRenderPassData& data) const {
  const bool flipped = data.yCoordinateCalculator() && data.yCoordinateCalculator()->hasFlippedCoordinates();
  return (data.isVerticalChart() ? std::numbers::pi / 2.0 : 0.0) + (flipped ? std::numbers::pi : 0.0);
}

float VELRenderableSeriesBase::getDatapointWidthFrom(const VELPointSeries& points, double,
                                                     const VELCoordinateCalculator& calculator,
                                                     double widthFraction) const {
  if (!(widthFraction >= 0.0 && widthFraction <= 1.0))
    throw VELInvalidArgumentException("WidthFraction should be between 0.0 and 1.0 inclusive");
  const bool horizontal = calculator.isHorizontalAxisCalculator();
  double width = horizontal ? _lastViewportSize.width : _lastViewportSize.height;
  const auto xs = points.xSpan();
  if (xs.size() >= 2) {
    width = std::numeric_limits<double>::max();
    VELWithCalculatorStage(calculator.getCalculatorHelper(), [&](const auto& toCoordinate) {
      double last = toCoordinate(xs[0]);
      for (size_t i = 1; i < xs.size(); ++i) {
        const double here = toCoordinate(xs[i]);
        width = std::min(width, std::abs(here - last));
        last = here;
      }
    });
  }
  // Points without a place in common leave the largest double, which no float holds.
  return static_cast<float>(std::min(width * widthFraction, double{std::numeric_limits<float>::max()}));
}

void VELRenderableSeriesBase::iterationInRenderPassData(
    const VELRenderPassData& data, const std::function<void(double, double, int32_t)>& block) const {
  const auto& points = data.pointSeries();
  const auto& x = data.xCoordinateCalculator();
  const auto& y = data.yCoordinateCalculator();
  if (!points || !x || !y || !block) return;
  const auto xs = points->xSpan();
  const auto ys = points->ySpan();
  const auto indices = points->indexSpan();
  for (size_t i = 0; i < xs.size(); ++i) {
    const double along = x->getCoordinateFrom(xs[i]), across = y->getCoordinateFrom(ys[i]);
    if (data.isVerticalChart())
      block(across, along, indices[i]);
    else
      block(along, across, indices[i]);
  }
}

VELRangePtr VELRenderableSeriesBase::getXRange() const {
  return _dataSeries ? _dataSeries->getXRange() : nullptr;
}

VELRangePtr VELRenderableSeriesBase::getYRange(const VELRange& xRange, bool positive) const {
  return _dataSeries ? _dataSeries->getWindowYRangeWithXRange(xRange, positive) : nullptr;
}

std::shared_ptr<VELSeriesInfo> VELRenderableSeriesBase::toSeriesInfoWithHitTest(
    const VELHitTestInfo& hitTest) const {
  auto info = std::make_shared<VELSeriesInfo>();
  info->series = std::const_pointer_cast<VELRenderableSeriesBase>(weak_from_this().lock());
  if (_dataSeries) info->seriesName = _dataSeries->seriesName();
  info->seriesColor = seriesColor();
  info->hitTest = hitTest;
  if (!hitTest.hasPoint()) return info;
  info->xText = cursorText(_xAxis, hitTest.xValue);
  info->yText = cursorText(_yAxis, hitTest.yValue);
  return info;
}

void VELRenderableSeriesBase::setPaletteProvider(const std::shared_ptr<VELPaletteProvider>& palette) {
  _paletteProvider = palette;
  invalidateParentSurface();
}

void VELRenderableSeriesBase::setAxisId(std::string& field, std::string id) {
  if (field == id) return;
  field = std::move(id);
  invalidateParentSurface();
}

void VELRenderableSeriesBase::setParentSurface(const std::weak_ptr<VELChartSurface>& surface) {
  // Compared by owner: the former surface may be the one that is being destroyed.
  const bool isSame = !surface.owner_before(_parentSurface) && !_parentSurface.owner_before(surface);
  _parentSurface = surface;
  // A finger must not find what is no longer on the screen.
  if (!isSame) _currentRenderPassData.reset();
}

void VELRenderableSeriesBase::invalidateParentSurface() {
  if (const auto surface = _parentSurface.lock()) surface->invalidateElement();
}

void VELRenderableSeriesBase::setDataSeries(const std::shared_ptr<VELDataSeries>& dataSeries) {
  if (_dataSeries) _dataSeries->removeDisplay(this);
  _dataSeries = dataSeries;
  // Nobody else tells the chart that the data changed.
  const auto self = weak_from_this().lock();
  if (_dataSeries && self) _dataSeries->addDisplay(self);
  invalidateParentSurface();
}

void VELRenderableSeriesBase::setResamplingMode(VELResamplingMode mode) {
  _resamplingMode = mode;
  invalidateParentSurface();
}
