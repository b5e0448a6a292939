#include "velmora/rendering/render_surface_base.h"

#include <utility>

#include "velmora/platform/exception.h"

std::function<void()> VELRenderSurfaceBase::p_VEL_flagSetter(bool VELRenderSurfaceBase::*flag) {
  return [weak = weak_from_this(), this, flag] {
    if (const auto alive = weak.lock()) this->*flag = true;
  };
}

void VELRenderSurfaceBase::addRenderContext(std::shared_ptr<VELRenderContext2D> context) {
  _renderContext = std::move(context);
  if (_renderContext)
    _renderContext->setInvalidated(p_VEL_flagSetter(&VELRenderSurfaceBase::_renderContextInvalidated));
}

void VELRenderSurfaceBase::addModifierContext(std::shared_ptr<VELRenderContext2D> context) {
  _modifierContext = std::move(context);
  if (_modifierContext)
    _modifierContext->setInvalidated(p_VEL_flagSetter(&VELRenderSurfaceBase::_modifierContextInvalidated));
}

void VELRenderSurfaceBase::addBackgroundContext(std::shared_ptr<VELRenderContext2D> context) {
  _backgroundContext = std::move(context);
  if (_backgroundContext)
    _backgroundContext->setInvalidated(p_VEL_flagSetter(&VELRenderSurfaceBase::_modifierContextInvalidated));
}

void VELRenderSurfaceBase::onRenderTimeElapsed() {
  const auto target = delegate();
  if (_renderContextInvalidated) {
    if (_reduceCPUFrames) _renderContextInvalidated = _modifierContextInvalidated = false;
    if (target) target->onRenderSurfaceDraw();
  } else if (_modifierContextInvalidated) {
    if (_reduceCPUFrames) _modifierContextInvalidated = false;
    if (target) target->onRenderSurfaceDrawModifiers();
  }
}

void VELRenderSurfaceBase::invalidateElement() {
  // Held: the callback of a context may replace it.
  const auto render = _renderContext, modifier = _modifierContext;
  if (render) render->invalidate();
  if (modifier) modifier->invalidate();
}

void VELRenderSurfaceBase::clear() {
  clearRenderSurface();
  clearModifiers();
}

void VELRenderSurfaceBase::clearRenderSurface() {
  if (_renderContext) _renderContext->clear();
}

void VELRenderSurfaceBase::clearModifiers() {
  if (_modifierContext) _modifierContext->clear();
}

VELRect VELRenderSurfaceBase::chartFrame() const {
  if (!_hasChartFrameView) return frame();
  const auto view = chartFrameView();
  return view ? view->frame() : VELRect{};
}

bool VELRenderSurfaceBase::isPointWithinBounds(VELPoint point) const { return chartFrame().contains(point); }

VELPoint VELRenderSurfaceBase::pointInChartFrame(VELPoint point) const {
  const auto view = chartFrameView();
  if (!view) return point;
  return {point.x - view->frame().x, point.y - view->frame().y};
}

void VELRenderSurfaceBase::drawBackground(VELRenderContext2D&, const VELRenderSurfaceStyle&) {
  throw VELInternalInconsistencyException("drawBackground:Style: must be implemented in subclass");
}

void VELRenderSurfaceBase::setDelegate(const std::shared_ptr<VELRenderSurfaceCallbackDelegate>& delegate) {
  _delegate = delegate;
}

void VELRenderSurfaceBase::setMultisampling(bool multisampling) {
  _multisampling = multisampling;
  invalidateElement();
}

void VELRenderSurfaceBase::setChartFrameView(const std::shared_ptr<VELView>& view) {
  _chartFrameView = view;
  _hasChartFrameView = view != nullptr;
}

void VELRenderSurfaceBase::setReduceCPUFrames(bool reduce) {
  _reduceCPUFrames = reduce;
  invalidateElement();
}

void VELRenderSurfaceBase::setReduceGPUFrames(bool reduce) {
  _reduceGPUFrames = reduce;
  invalidateElement();
}

void VELRenderSurfaceBase::setRenderedCallback(RenderedCallback callback) {
  _renderedCallback = std::make_shared<const RenderedCallback>(std::move(callback));
}

void VELRenderSurfaceBase::p_VEL_callRendered(int32_t reason) const {
  // Shared, not copied: a frame copies no closure.
  const auto callback = _renderedCallback;
  if (*callback) (*callback)(reason);
}
