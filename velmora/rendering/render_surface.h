// rendering/render_surface.h: the surface that owns the render contexts, as charts see it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"
#include "velmora/platform/invalidatable_element.h"

class VELRenderContext2D;
class VELRenderSurfaceStyle;
class VELView;

/// Who fills the contexts of a render surface when a refresh finds them invalidated.
class VELMORA_API VELRenderSurfaceCallbackDelegate {
 public:
  virtual ~VELRenderSurfaceCallbackDelegate() = default;
  /// Clear and refill everything.
  virtual void onRenderSurfaceDraw() = 0;
  /// Clear and refill the modifier and background contexts only.
  virtual void onRenderSurfaceDrawModifiers() = 0;
};

/// Owns three render contexts and shows them, background first, at the refreshes that need it.
class VELMORA_API VELRenderSurface : public VELInvalidatableElement {
 public:
  /// What a rendered callback gets: 1 for a frame that was asked for, 2 for one that merely came around.
  using RenderedCallback = std::function<void(int32_t reason)>;

  /// Clears the render and the modifier context.
  virtual void clear() = 0;
  /// Leaves the display's beat and the GL context. Runs once; later calls do nothing.
  virtual void free() = 0;
  virtual void clearRenderSurface() = 0;
  virtual void clearModifiers() = 0;

  /// Series, grid lines, annotations; null before one was added.
  virtual const std::shared_ptr<VELRenderContext2D>& renderContext() const = 0;
  /// Cursors, rubber bands and other overlays.
  virtual const std::shared_ptr<VELRenderContext2D>& modifierContext() const = 0;
  /// What lies behind everything.
  virtual const std::shared_ptr<VELRenderContext2D>& backgroundContext() const = 0;

  /// In points, in the superview. A surface has as many whole pixels as its frame touches, counted from its
  /// top left corner.
  virtual const VELRect& frame() const = 0;
  /// Frame of the chart frame view (zero when that view is gone), or the own frame when none was set.
  virtual VELRect chartFrame() const = 0;
  /// True when the point lies in the chart frame, edges included.
  virtual bool isPointWithinBounds(VELPoint point) const = 0;
  /// The point relative to the chart frame view; unchanged without one.
  virtual VELPoint pointInChartFrame(VELPoint point) const = 0;
  /// Draws background, series background and border of @p style.
  virtual void drawBackground(VELRenderContext2D& context, const VELRenderSurfaceStyle& style) = 0;

  /// Held weakly; null when there is none.
  virtual std::shared_ptr<VELRenderSurfaceCallbackDelegate> delegate() const = 0;
  virtual void setDelegate(const std::shared_ptr<VELRenderSurfaceCallbackDelegate>& delegate) = 0;
  /// Smooth edges, where the GL driver can.
  virtual bool multisampling() const = 0;
  virtual void setMultisampling(bool multisampling) = 0;
  /// The view whose frame is the chart frame, held weakly.
  virtual std::shared_ptr<VELView> chartFrameView() const = 0;
  virtual void setChartFrameView(const std::shared_ptr<VELView>& view) = 0;
  /// True: the delegate draws only after an invalidation. False: at every refresh after the first one.
  virtual bool reduceCPUFrames() const = 0;
  virtual void setReduceCPUFrames(bool reduce) = 0;
  /// True: GL runs only when something was redrawn. False: at every refresh.
  virtual bool reduceGPUFrames() const = 0;
  virtual void setReduceGPUFrames(bool reduce) = 0;
  virtual const RenderedCallback& renderedCallback() const = 0;
  virtual void setRenderedCallback(RenderedCallback callback) = 0;
};
