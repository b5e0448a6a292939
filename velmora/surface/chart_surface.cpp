#include "velmora/surface/chart_surface.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "velmora/rendering/render_surface_base.h"
#include "velmora/surface/axis_walk.h"
#include "velmora/surface/chart_surface_view.h"

namespace {

// By value: what the element does when it is told may replace the surface's own reference to it.
template <typename Element>
void attachElement(std::shared_ptr<Element> element, const std::weak_ptr<VELChartSurface>& surface) {
  if (!element) return;
  element->setParentSurface(surface);
  element->setIsAttached(true);
  element->onAttached();
}

template <typename Element>
void detachElement(std::shared_ptr<Element> element) {
  if (!element) return;
  element->setParentSurface({});
  element->setIsAttached(false);
  element->onDetached();
}

void clearArea(const std::weak_ptr<VELAxisArea>& area) {
  if (const auto existing = area.lock()) existing->clear();
}

// Brackets a pass, also when the pass raises.
class RenderingFlag {
 public:
  RenderingFlag(bool& flag, std::vector<std::shared_ptr<VELAxisCollection>>& retired)
      : _flag(flag), _retired(retired) {
    _flag = true;
  }
  RenderingFlag(const RenderingFlag&) = delete;
  RenderingFlag& operator=(const RenderingFlag&) = delete;
  ~RenderingFlag() {
    _flag = false;
    _retired.clear();
  }

 private:
  bool& _flag;
  std::vector<std::shared_ptr<VELAxisCollection>>& _retired;
};

}  // namespace

std::shared_ptr<VELChartSurface> VELChartSurface::initWithView(
    const std::shared_ptr<VELChartSurfaceViewBase>& view) {
  if (!view) return nullptr;
  // The constructor is private, so std::make_shared cannot reach it.
  struct Reachable : VELChartSurface {};
  auto surface = std::make_shared<Reachable>();
  surface->setUpWithView(view);
  return surface;
}

void VELChartSurface::setUpWithView(const std::shared_ptr<VELChartSurfaceViewBase>& view) {
  const std::weak_ptr<VELChartSurface> weakSelf = weak_from_this();
  _view = view;
  _style = std::make_shared<VELRenderSurfaceStyle>();
  installStyleBlocks();

  _leftAxisArea = view->leftAxesArea();
  _rightAxisArea = view->rightAxesArea();
  _topAxisArea = view->topAxesArea();
  _bottomAxisArea = view->bottomAxesArea();
  for (const VELChartSide side :
       {VELChartSide_Left, VELChartSide_Right, VELChartSide_Top, VELChartSide_Bottom})
    if (const auto& area = view->area(side))
      area->setOrientation(side == VELChartSide_Left || side == VELChartSide_Right
                               ? VELOrientation_Vertical
                               : VELOrientation_Horizontal);

  setRenderSurface(view->renderSurface());
  if (const auto& renderSurface = view->renderSurface())
    renderSurface->setChartFrameView(view->renderSurfaceSizeView());

  _yAxes = std::make_shared<VELAxisCollection>();
  _xAxes = std::make_shared<VELAxisCollection>();
  setViewportManager(std::make_shared<VELViewportManager>());
  _freed = false;

  view->setOnLayoutSubviews([weakSelf](float left, float right, float top, float bottom) {
    if (const auto self = weakSelf.lock()) self->resizeAxesAreasLeft(left, right, top, bottom);
  });
  // The block holds the style weakly: the style holds the block.
  const std::weak_ptr<VELChartSurfaceViewBase> weakView = view;
  _style->setLayoutChanged([weakSelf, weakView] {
    const auto self = weakSelf.lock();
    const auto strongView = weakView.lock();
    if (!self || !strongView) return;
    strongView->setLeftAxisAreaForcedSize(self->_style->leftAxisAreaSize());
    strongView->setRightAxisAreaForcedSize(self->_style->rightAxisAreaSize());
    strongView->setTopAxisAreaForcedSize(self->_style->topAxisAreaSize());
    strongView->setBottomAxisAreaForcedSize(self->_style->bottomAxisAreaSize());
    strongView->setNeedsLayout();
  });
  _style->layoutChanged()();
  view->layoutSubviews();
  _velmoraRenderer = std::make_unique<VELChartRenderer>(weakSelf);
}

VELChartSurface::~VELChartSurface() {
  if (!_freed) free();
}

void VELChartSurface::free() {
  _freed = true;
  for (const auto* area : {&_topAxisArea, &_bottomAxisArea, &_rightAxisArea, &_leftAxisArea,
                           &_centerXAxisArea, &_centerYAxisArea})
    clearArea(*area);
  // One call leaves every other series attached. Counted, so that a series that comes back each time ends it.
  for (size_t calls = _renderableSeries.size(); calls > 0 && !_renderableSeries.empty(); --calls)
    clearSeries();
  _renderableSeries.clear();
  _selectedRenderableSeries.clear();
  if (_xAxes) _xAxes->clear();
  if (_yAxes) _yAxes->clear();
  setGestureController(nullptr);
}

// Series.

void VELChartSurface::attachRenderableSeries(const std::shared_ptr<VELRenderableSeries>& series) {
  if (!series) return;
  if (renderSurface()) {
    series->setParentSurface(weak_from_this());
    auto& selected = _selectedRenderableSeries;
    if (series->isSelected() && std::find(selected.begin(), selected.end(), series) == selected.end())
      selected.push_back(series);
  }
  _renderableSeries.push_back(series);
  invalidateElement();
}

void VELChartSurface::detachRenderableSeries(const std::shared_ptr<VELRenderableSeries>& series) {
  if (!series) return;
  // The argument may be an element of the list that is about to lose it.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const auto kept = series;
  kept->setParentSurface({});
  std::erase(_renderableSeries, kept);
  std::erase(_selectedRenderableSeries, kept);
  // Also in destruction, where the surface's own is the one that is meant.
  VELChartSurface::invalidateElement();
}

void VELChartSurface::clearSeries() {
  for (size_t i = 0; i < _renderableSeries.size(); ++i) {
    if (_renderableSeries[i])
      detachRenderableSeries(_renderableSeries[i]);
    else
      _renderableSeries.erase(_renderableSeries.begin() + static_cast<std::ptrdiff_t>(i));
  }
}

VELAxisSeries* VELChartSurface::axisSeriesAt(size_t index) const {
  return index < _renderableSeries.size() ? _renderableSeries[index].get() : nullptr;
}

// Modifier, annotation, manager, gestures.

void VELChartSurface::p_VEL_attachModifier(const std::shared_ptr<VELChartModifier>& modifier) {
  attachElement(modifier, weak_from_this());
}
void VELChartSurface::p_VEL_detachModifier(const std::shared_ptr<VELChartModifier>& modifier) {
  detachElement(modifier);
}
void VELChartSurface::p_VEL_attachAnnotation(const std::shared_ptr<VELAnnotation>& annotation) {
  attachElement(annotation, weak_from_this());
}
void VELChartSurface::p_VEL_detachAnnotation(const std::shared_ptr<VELAnnotation>& annotation) {
  detachElement(annotation);
}

void VELChartSurface::setChartModifier(const std::shared_ptr<VELChartModifier>& modifier) {
  const auto self = weak_from_this().lock();
  // The argument may be the surface's own reference.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const auto next = modifier;
  p_VEL_detachModifier(std::exchange(_chartModifier, nullptr));
  // The one that went may have set another, which gives way as well.
  p_VEL_detachModifier(std::exchange(_chartModifier, nullptr));
  _chartModifier = next;
  p_VEL_attachModifier(_chartModifier);
}

void VELChartSurface::setAnnotation(const std::shared_ptr<VELAnnotation>& annotation) {
  const auto self = weak_from_this().lock();
  // As with the modifier.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const auto next = annotation;
  p_VEL_detachAnnotation(std::exchange(_annotation, nullptr));
  p_VEL_detachAnnotation(std::exchange(_annotation, nullptr));
  _annotation = next;
  p_VEL_attachAnnotation(_annotation);
}

void VELChartSurface::setViewportManager(const std::shared_ptr<VELViewportManager>& manager) {
  // One that was given to another surface meanwhile stays there.
  if (_viewportManager && _viewportManager->isAttachedTo(*this)) _viewportManager->detachVelmoraSurface();
  _viewportManager = manager;
  if (_viewportManager) _viewportManager->attachVelmoraSurface(shared_from_this());
}

void VELChartSurface::setGestureController(const std::shared_ptr<VELSurfaceGestures>& gestures) {
  if (_gestureController) {
    _gestureController->disablePanGesture();
    _gestureController->disablePinchGesture();
    _gestureController->disableTapGesture();
    _gestureController->disableDoubleTapGesture();
  }
  _gestureController = gestures;
  if (!_gestureController) return;
  _gestureController->enablePanGesture();
  _gestureController->enablePinchGesture();
  _gestureController->enableTapGesture();
  _gestureController->enableDoubleTapGesture();
}

// View, render surface, look.

void VELChartSurface::setRenderSurface(const std::shared_ptr<VELRenderSurfaceBase>& renderSurface) {
  if (const auto old = _renderSurface.lock()) old->setDelegate(nullptr);
  _renderSurface = renderSurface;
  if (renderSurface) renderSurface->setDelegate(shared_from_this());
}

void VELChartSurface::installStyleBlocks() {
  _style->setStyleChanged([weakSelf = weak_from_this()] {
    if (const auto self = weakSelf.lock()) self->invalidateElement();
  });
}

void VELChartSurface::setStyle(const VELRenderSurfaceStyle& style) {
  const auto layoutChanged = _style->layoutChanged();
  const auto copy = style.clone();
  _style->setStyleChanged(nullptr);
  _style->setLayoutChanged(nullptr);
  _style = copy;
  installStyleBlocks();
  // A new style may force other area sizes, so the block moves over and runs once.
  _style->setLayoutChanged(layoutChanged);
  if (layoutChanged) layoutChanged();
  p_VEL_resizeAxesAreas();
  invalidateElement();
}

void VELChartSurface::setChartTitle(std::string title) {
  _chartTitle = std::move(title);
  p_VEL_resizeAxesAreas();
  invalidateElement();
}

void VELChartSurface::invalidateElement() {
  if (const auto surface = _renderSurface.lock()) surface->invalidateElement();
}

void VELChartSurface::onRenderSurfaceDraw() {
  if (!_velmoraRenderer) return;
  // Held: whatever runs in the pass may let go of the chart, or of its view.
  const auto self = weak_from_this().lock();
  // A label provider or a modifier may cause a refresh in the middle of a pass: it waits for the next one.
  if (_isRendering) return invalidateElement();
  {
    const RenderingFlag rendering(_isRendering, _retiredAxes);
    const auto renderSurface = _renderSurface.lock();
    // Held for the pass: what runs in it may give the render surface other contexts.
    const auto context = renderSurface ? renderSurface->renderContext() : nullptr;
    _lastErrorCode = _velmoraRenderer->o_renderLoop(context.get());
  }
  const auto strongView = _view.lock();
  if (strongView && strongView->axisAreasNeedResizing()) p_VEL_axisAreaResizeRequest();
}

void VELChartSurface::onRenderSurfaceDrawModifiers() {
  if (!_velmoraRenderer) return;
  const auto self = weak_from_this().lock();
  if (_isRendering) return invalidateElement();
  const RenderingFlag rendering(_isRendering, _retiredAxes);
  _velmoraRenderer->o_secondaryRenderLoop();
}

VELRect VELChartSurface::chartFrame() const {
  const auto surface = _renderSurface.lock();
  return surface ? surface->chartFrame() : VELRect{};
}

void VELChartSurface::drawBackground(VELRenderContext2D& context) {
  if (const auto surface = _renderSurface.lock()) surface->drawBackground(context, *_style);
}

void VELChartSurface::p_VEL_resizeAxesAreas() {
  if (const auto strongView = _view.lock()) strongView->layoutSubviews();
}

void VELChartSurface::resizeAxesAreasLeft(float left, float right, float top, float bottom) {
  const auto strongView = _view.lock();
  if (!strongView) return;
  const float wanted[] = {left, right, top, bottom};
  bool anyDiffers = false;
  for (const VELChartSide side :
       {VELChartSide_Left, VELChartSide_Right, VELChartSide_Top, VELChartSide_Bottom}) {
    const float size = wanted[side];
    if (size == strongView->axisAreaSize(side)) continue;
    // A size that no side can take leaves it as it is, and is no reason for another layout.
    if (!std::isfinite(size) || size < 0.0f) continue;
    strongView->setAxisAreaSize(side, size);
    anyDiffers = true;
  }
  if (!anyDiffers) return;
  strongView->layoutSubviews();
  invalidateElement();
}

double VELChartSurface::contentScale() const {
  const auto strongView = _view.lock();
  return strongView ? strongView->contentScale() : 1.0;
}

std::shared_ptr<VELDisplayLink> VELChartSurface::displayLink() const {
  const auto surface = _renderSurface.lock();
  return surface ? surface->displayLink() : nullptr;
}

VELRect VELChartSurface::viewBounds() const {
  const auto strongView = _view.lock();
  return strongView ? strongView->bounds() : VELRect{};
}
