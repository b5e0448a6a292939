#include "velmora/surface/chart_renderer.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "velmora/axes/axis_renderer.h"
#include "velmora/data/data_series.h"
#include "velmora/data/recycled.h"
#include "velmora/data/resampler.h"
#include "velmora/data/saturate.h"
#include "velmora/platform/exception.h"
#include "velmora/rendering/render_surface_base.h"
#include "velmora/surface/axis_walk.h"
#include "velmora/surface/chart_surface.h"
#include "velmora/surface/render_pass_data.h"
#include "velmora/surface/renderable_series.h"

namespace {

constexpr double kSmallestSide = 2.0;  // points, inclusive

std::shared_ptr<VELCoordinateCalculator> find(const VELRenderPassInfo::Calculators& calculators,
                                              const std::string& axisId) {
  const auto found = calculators.find(axisId);
  return found == calculators.end() ? nullptr : found->second;
}

void capture(const VELAxisCollection* axes, VELRenderPassInfo::Calculators& calculators) {
  VELForEachAxis(axes, [&](VELAxisBase& axis) {
    auto calculator = axis.getCurrentCoordinateCalculator();
    if (calculator)
      calculators[axis.axisId()] = std::move(calculator);
    else
      calculators.erase(axis.axisId());
  });
}

// Whether the surface still has a series that stood at a place of its list when the pass was prepared.
bool isAttached(const VELChartSurface& surface, const std::shared_ptr<VELRenderableSeries>& series,
                size_t place) {
  const auto& all = surface.renderableSeries();
  if (place < all.size() && all[place] == series) return true;
  return std::find(all.begin(), all.end(), series) != all.end();
}

// Looks at the X axes first and at the Y axes only when no X axis was found.
template <typename Predicate>
bool anyAxis(const VELChartSurface& surface, Predicate holds) {
  return VELFindAxis(surface.xAxes(), holds) || VELFindAxis(surface.yAxes(), holds);
}

}  // namespace

uint32_t VELChartRenderer::o_renderLoop(VELRenderContext2D* context) {
  uint32_t errorCode = VELSurfaceError_None;
  const auto surface = _parent.lock();
  if (!surface) return errorCode;
  if (!p_VEL_o_isSurfaceValid(*surface, errorCode)) {
    VELForEachAxis(surface->xAxes(), [](VELAxisBase& axis) { axis.clear(); });
    VELForEachAxis(surface->yAxes(), [](VELAxisBase& axis) { axis.clear(); });
    if (context) context->clear();
    return errorCode;
  }
  const VELRect frame = p_VEL_o_layoutVelmora(surface.get());
  // Meant: a frame too small to draw leaves the last picture where it is, so nothing is cleared here.
  if (!p_VEL_o_isSurfaceValid(*surface, frame.size(), errorCode) || !context) return errorCode;

  auto info = p_VEL_o_prepareRenderDataWithSurface(*surface, frame.size());
  context->clear();
  VELAxisRenderer::o_onDrawAxes(*surface, *context);
  o_onDrawSeriesToSurface(*surface, *info, *context);
  o_secondaryRenderLoop();
  if (info.use_count() == 1) {
    info->clear();
    _idleInfo = std::move(info);
  }
  return errorCode;
}

void VELChartRenderer::o_secondaryRenderLoop() {
  const auto surface = _parent.lock();
  if (!surface) return;
  if (const auto renderSurface = surface->renderSurface()) {
    if (const auto modifierContext = renderSurface->modifierContext()) modifierContext->clear();
    if (const auto backgroundContext = renderSurface->backgroundContext()) {
      backgroundContext->clear();
      surface->drawBackground(*backgroundContext);
    }
  }
  if (const auto modifier = surface->chartModifier()) modifier->draw();
  if (const auto annotation = surface->annotation()) annotation->draw();
}

bool VELChartRenderer::p_VEL_o_isSurfaceValid(const VELChartSurface& surface, uint32_t& errorCode) const {
  if (!surface.renderSurface()) {
    errorCode = VELSurfaceError_NoRenderSurface;
    return false;
  }
  if (!surface.xAxes() || !surface.yAxes()) {
    errorCode |= VELSurfaceError_NoAxisCollection;
    return false;
  }
  if (surface.xAxes()->count() == 0) {
    errorCode |= VELSurfaceError_NoXAxis;
    return false;
  }
  if (surface.yAxes()->count() == 0) {
    errorCode |= VELSurfaceError_NoYAxis;
    return false;
  }
  return true;
}

bool VELChartRenderer::p_VEL_o_isSurfaceValid(const VELChartSurface& surface, const VELSize& size,
                                              uint32_t& errorCode) const {
  const bool rangesValid = !anyAxis(surface, [](const VELAxisBase& axis) {
    return !axis.hasValidVisibleRange() && axis.autoRange() == VELAutoRange_Never;
  });
  const bool ticksProvided = !anyAxis(surface, [](const VELAxisBase& axis) { return !axis.tickProvider(); });
  const auto& series = surface.renderableSeries();
  const bool dataMissing =
      std::any_of(series.begin(), series.end(), [](const auto& one) { return !one || !one->dataSeries(); });
  // Written so that a NaN size counts as too small.
  const bool largeEnough = size.width >= kSmallestSide && size.height >= kSmallestSide;

  if (!largeEnough) errorCode = VELSurfaceError_TooSmall;
  if (!rangesValid) errorCode |= VELSurfaceError_InvalidRange;
  if (!ticksProvided) errorCode |= VELSurfaceError_NoTickProvider;
  if (series.empty()) errorCode |= VELSurfaceError_NoSeries;
  if (dataMissing) errorCode |= VELSurfaceError_NoDataSeries;
  if (!surface.renderSurface()) errorCode |= VELSurfaceError_RenderSurfaceGone;
  return largeEnough && rangesValid && ticksProvided;
}

VELRect VELChartRenderer::p_VEL_o_layoutVelmora(const VELChartSurface* surface) {
  if (!surface) return {};
  const auto manager = surface->viewportManager();
  if (!manager) throw VELInternalInconsistencyException("VelmoraSurface.viewport manager is null");
  manager->autorangeAxes();
  return surface->chartFrame();
}

std::shared_ptr<VELRenderPassInfo> VELChartRenderer::p_VEL_o_prepareRenderDataWithSurface(
    const VELChartSurface& surface, const VELSize& size) {
  // Read once: series that are added during the pass wait for the next one.
  SeriesList series = std::exchange(_idleSeries, {});
  series.assign(surface.renderableSeries().begin(), surface.renderableSeries().end());
  auto info = _idleInfo ? std::exchange(_idleInfo, nullptr) : std::make_shared<VELRenderPassInfo>();
  info->setViewportSize(size);
  constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
  if (size.width < kEpsilon || size.height < kEpsilon) return info;

  VELPointResampler resampler;
  p_VEL_o_prepareXAxes(surface);
  capture(surface.yAxes(), info->yCalculators());
  capture(surface.xAxes(), info->xCalculators());
  for (size_t i = 0; i < series.size(); ++i) {
    const auto& one = series[i];
    // What prepares itself on the way may take series and axes from the surface.
    if (!one || !surface.xAxes() || !isAttached(surface, one, i)) continue;
    std::shared_ptr<VELDataSeries> data;
    std::shared_ptr<VELIndexRange> range;
    std::shared_ptr<VELPointSeries> points;
    p_VEL_o_resampleSeriesWithXAxis(*surface.xAxes(), *one, size.width, resampler, data, range, points);
    info->addRenderPassData(VELMakeRecycled<VELRenderPassData>(std::move(range), std::move(points), data, one,
                                                               find(info->yCalculators(), one->yAxisId()),
                                                               find(info->xCalculators(), one->xAxisId())));
    one->prepareForDrawing();
  }
  series.clear();
  _idleSeries = std::move(series);
  return info;
}

void VELChartRenderer::p_VEL_o_prepareXAxes(const VELChartSurface& surface) {
  // Held for the walk: what runs in it may give the surface another manager.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const auto manager = surface.viewportManager();
  if (!manager) return;
  VELForEachAxis(surface.xAxes(),
                 [&](VELAxisBase& axis) { VELApplyRange(axis, manager->calculateNewXAxisRange(axis)); });
}

void VELChartRenderer::p_VEL_o_resampleSeriesWithXAxis(const VELAxisCollection& xAxes,
                                                       const VELRenderableSeries& series,
                                                       double viewportWidth, VELPointResampler& resampler,
                                                       std::shared_ptr<VELDataSeries>& outDataSeries,
                                                       std::shared_ptr<VELIndexRange>& outPointRange,
                                                       std::shared_ptr<VELPointSeries>& outResampledSeries) {
  outPointRange.reset();
  outResampledSeries.reset();
  outDataSeries = series.dataSeries();
  if (!outDataSeries) return;

  const auto axis = xAxes.getAxisById(series.xAxisId(), true);
  axis->assertDataType(outDataSeries->xType());
  const VELRangePtr visible = axis->visibleRange();
  if (!visible) return;
  outPointRange = VELMakeRecycled<VELIndexRange>();
  outDataSeries->getIndicesRangeWithVisibleRange(*visible, *outPointRange);
  int32_t min = VELGenericInt(outPointRange->min());
  int32_t max = VELGenericInt(outPointRange->max());
  if (max < min || min < 0) return;

  if (axis->isCategoryAxis()) {
    // One more point on each side keeps the lines to the neighbours just outside.
    min = std::max(min - 1, 0);
    max = std::min(max + 1, static_cast<int32_t>(outDataSeries->count()) - 1);
    outPointRange->setMin(min);
    outPointRange->setMax(max);
  }
  outResampledSeries = outDataSeries->toPointSeriesWithResamplingMode(
      series.resamplingMode(), *outPointRange, VELSaturate<int32_t>(viewportWidth), axis->isCategoryAxis(),
      *visible, resampler);
}

void VELChartRenderer::o_onDrawSeriesToSurface(const VELChartSurface& surface, const VELRenderPassInfo& info,
                                               VELRenderContext2D& context) {
  const auto renderSurface = context.parentRenderSurface();
  context.setDrawingArea(renderSurface ? renderSurface->chartFrame() : VELRect{});
  std::vector<int32_t> selected = std::exchange(_idleSelected, {});
  for (int32_t i = 0; i < info.renderPassDataCount(); ++i) {
    const auto data = info.renderPassDataAt(i);
    const auto series = data ? data->renderableSeries() : nullptr;
    if (!series || !surface.xAxes() || !surface.yAxes()) continue;
    if (!isAttached(surface, series, static_cast<size_t>(i))) continue;
    series->setXAxis(surface.xAxes()->getAxisById(series->xAxisId(), true));
    series->setYAxis(surface.yAxes()->getAxisById(series->yAxisId(), true));
    if (series->isSelected())
      selected.push_back(i);
    else
      o_drawSeriesToSurface(surface, data, context);
  }
  for (const int32_t i : selected) {
    const auto data = info.renderPassDataAt(i);
    const auto series = data ? data->renderableSeries() : nullptr;
    if (series && isAttached(surface, series, static_cast<size_t>(i)))
      o_drawSeriesToSurface(surface, data, context);
  }
  selected.clear();
  _idleSelected = std::move(selected);
}

void VELChartRenderer::o_drawSeriesToSurface(const VELChartSurface&,
                                             const std::shared_ptr<const VELRenderPassData>& data,
                                             VELRenderContext2D& context) {
  if (!data || !data->xCoordinateCalculator() || !data->yCoordinateCalculator()) return;
  if (const auto series = data->renderableSeries()) series->onDrawWithContext(context, data);
}

void VELChartRenderer::o_prepareXAxes(const VELChartSurface& surface, const VELRenderPassInfo&) {
  VELForEachAxis(surface.xAxes(), [](VELAxisBase& axis) { axis.onBeginRenderPass(); });
}

void VELChartRenderer::o_prepareYAxes(const VELChartSurface& surface, const VELRenderPassInfo& info) {
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const auto manager = surface.viewportManager();
  VELForEachAxis(surface.yAxes(), [&](VELAxisBase& axis) {
    if (manager) VELApplyRange(axis, manager->calculateNewYAxisRange(axis, info));
    axis.onBeginRenderPass();
  });
}
