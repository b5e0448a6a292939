// rendering/render_surface_base.h: when a render surface redraws.
//
// How it redraws is rendering/opengl_render_surface.h.
#pragma once

#include <memory>

#include "velmora/platform/display_link.h"
#include "velmora/platform/view.h"
#include "velmora/rendering/render_context.h"
#include "velmora/rendering/render_surface.h"

/// The view, the contexts and the invalidation flags of every render surface. Create it with
/// `std::make_shared`: the contexts reach it weakly.
class VELMORA_API VELRenderSurfaceBase : public VELView, public VELRenderSurface {
 public:
  VELRenderSurfaceBase() = default;
  explicit VELRenderSurfaceBase(const VELRect& frame) : VELView(frame) {}

  const VELRect& frame() const override { return VELView::frame(); }
  /// The beat at which this surface redraws; null for none.
  virtual std::shared_ptr<VELDisplayLink> displayLink() const { return nullptr; }

  /// Stores a context and lets its invalidation set the flag of its kind; to be called after construction.
  /// A changed background sets the modifier flag on purpose: the lighter of the two steps draws it.
  void addRenderContext(std::shared_ptr<VELRenderContext2D> context);
  void addModifierContext(std::shared_ptr<VELRenderContext2D> context);
  void addBackgroundContext(std::shared_ptr<VELRenderContext2D> context);

  void setRenderContextInvalidated(bool invalidated) { _renderContextInvalidated = invalidated; }
  void setModifierContextInvalidated(bool invalidated) { _modifierContextInvalidated = invalidated; }
  /// True when a context was invalidated and not redrawn since.
  bool needRedraw() const { return _renderContextInvalidated || _modifierContextInvalidated; }
  /// True when a context was invalidated, and for as long as every refresh draws.
  bool needsDisplay() const override { return needRedraw() || !_reduceGPUFrames; }
  /// One refresh of the display: asks the delegate for what is invalidated.
  virtual void onRenderTimeElapsed();

  void invalidateElement() override;
  void clear() override;
  void clearRenderSurface() override;
  void clearModifiers() override;
  void free() override {}

  const std::shared_ptr<VELRenderContext2D>& renderContext() const override { return _renderContext; }
  const std::shared_ptr<VELRenderContext2D>& modifierContext() const override { return _modifierContext; }
  const std::shared_ptr<VELRenderContext2D>& backgroundContext() const override { return _backgroundContext; }

  VELRect chartFrame() const override;
  bool isPointWithinBounds(VELPoint point) const override;
  VELPoint pointInChartFrame(VELPoint point) const override;
  /// @throws VELInternalInconsistencyException always: a surface that draws overrides it
  void drawBackground(VELRenderContext2D& context, const VELRenderSurfaceStyle& style) override;

  std::shared_ptr<VELRenderSurfaceCallbackDelegate> delegate() const override { return _delegate.lock(); }
  void setDelegate(const std::shared_ptr<VELRenderSurfaceCallbackDelegate>& delegate) override;
  bool multisampling() const override { return _multisampling; }
  void setMultisampling(bool multisampling) override;
  std::shared_ptr<VELView> chartFrameView() const override { return _chartFrameView.lock(); }
  void setChartFrameView(const std::shared_ptr<VELView>& view) override;
  bool reduceCPUFrames() const override { return _reduceCPUFrames; }
  void setReduceCPUFrames(bool reduce) override;
  bool reduceGPUFrames() const override { return _reduceGPUFrames; }
  void setReduceGPUFrames(bool reduce) override;
  const RenderedCallback& renderedCallback() const override { return *_renderedCallback; }
  void setRenderedCallback(RenderedCallback callback) override;

 protected:
  /// The chart frame where the surface draws, whose origin is that of its drawing: wherever the surface
  /// stands in its superview, without a chart frame view it is all of the surface.
  VELRect p_VEL_chartFrameInSurface() const { return _hasChartFrameView ? chartFrame() : bounds(); }
  /// Calls the rendered callback, if there is one; it may replace itself.
  void p_VEL_callRendered(int32_t reason) const;

 private:
  std::function<void()> p_VEL_flagSetter(bool VELRenderSurfaceBase::*flag);

  bool _multisampling = true;
  bool _renderContextInvalidated = false;
  bool _modifierContextInvalidated = false;
  std::shared_ptr<VELRenderContext2D> _renderContext;
  std::shared_ptr<VELRenderContext2D> _modifierContext;
  std::shared_ptr<VELRenderContext2D> _backgroundContext;
  bool _reduceCPUFrames = true;
  bool _reduceGPUFrames = true;
  std::weak_ptr<VELRenderSurfaceCallbackDelegate> _delegate;
  std::weak_ptr<VELView> _chartFrameView;
  bool _hasChartFrameView = false;  ///< tells a view that is gone from none at all
  std::shared_ptr<const RenderedCallback> _renderedCallback = std::make_shared<RenderedCallback>();
};
