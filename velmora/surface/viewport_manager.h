// surface/viewport_manager.h: which visible ranges a pass uses.
//
// Units: data units for ranges, seconds for durations.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "velmora/axes/axis_base.h"
#include "velmora/platform/export.h"
#include "velmora/platform/invalidatable_element.h"

class VELChartSurface;
class VELRenderPassInfo;

/// Auto-ranges axes and zooms them to the extents of their data. Does nothing while detached. A manager
/// serves one surface, the last one that it was attached to.
///
/// Blocks that are told of a range may give the surface other axes or another manager: the walk under way
/// goes on over the axes that it began with, and a manager that was replaced begins no other.
class VELMORA_API VELViewportManager : public VELInvalidatableElement,
                                       public std::enable_shared_from_this<VELViewportManager> {
 public:
  /// Axis id to the range given to that axis.
  using Ranges = std::map<std::string, VELRangePtr>;

  bool isAttached() const { return _isAttached; }
  bool isAttachedTo(const VELChartSurface& surface) const { return _scs.lock().get() == &surface; }
  /// The surface is held weakly.
  void attachVelmoraSurface(const std::shared_ptr<VELChartSurface>& surface);
  void detachVelmoraSurface();
  void invalidateElement() override;

  /// The maximum range of an axis that auto-ranges, where it is defined; else its visible range.
  /// @param xRanges for the extent of a Y axis, see `VELAxisBase::getMaximumRange`
  VELRangePtr calculateAutoRange(VELAxisBase& axis, const Ranges* xRanges = nullptr);
  VELRangePtr calculateNewXAxisRange(VELAxisBase& axis) { return onCalculateNewXRange(axis); }
  VELRangePtr calculateNewYAxisRange(VELAxisBase& axis, const VELRenderPassInfo& info) {
    return onCalculateNewYRange(axis, info);
  }

  void zoomExtents() { animateZoomExtents(0.0f); }
  void animateZoomExtents(float duration);
  void zoomExtentsX() { animateZoomExtentsX(0.0f); }
  void animateZoomExtentsX(float duration);
  /// Fits the Y axes to the data inside the visible X ranges.
  void zoomExtentsY() { animateZoomExtentsY(0.0f); }
  void animateZoomExtentsY(float duration);

  /// Runs at the start of every pass: X axes, then Y axes. A Y axis that ranges once takes the data where
  /// animated X axes are going, one that always ranges the data that they show.
  void autorangeAxes();

 protected:
  /// To be overridden by managers with a rule of their own.
  virtual VELRangePtr onCalculateNewXRange(VELAxisBase& axis);
  virtual VELRangePtr onCalculateNewYRange(VELAxisBase& axis, const VELRenderPassInfo& info);

 private:
  Ranges p_VEL_zoomExtentsXInternal(float duration);
  void p_VEL_zoomExtentsYWithRanges(const Ranges* ranges, float duration);
  void p_VEL_zoomExtentsOnYAxis(VELAxisBase& axis, const Ranges* ranges, float duration);
  void p_VEL_o_tryPerformAutorangeOnAxis(VELAxisBase& axis, const Ranges* xRanges);

  bool _isAttached = false;
  std::weak_ptr<VELChartSurface> _scs;
};
