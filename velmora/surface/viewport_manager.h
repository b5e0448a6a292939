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

/// Auto-ranges axes and zooms them to the extents of their data. Does nothing while detached.
class VELMORA_API VELViewportManager : public VELInvalidatableElement {
 public:
  /// Axis id to the range given to that axis.
  using Ranges = std::map<std::string, VELRangePtr>;

  bool isAttached() const { return _isAttached; }
  /// The surface is held weakly.
  void attachVelmoraSurface(const std::shared_ptr<VELChartSurface>& surface);
  void detachVelmoraSurface();
  void invalidateElement() override;

  /// The maximum range of an axis that auto-ranges, where it is defined; else its visible range.
  VELRangePtr calculateAutoRange(VELAxisBase& axis);
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

  /// Runs at the start of every pass: X axes, then Y axes.
  void autorangeAxes();

 protected:
  /// To be overridden by managers with a rule of their own.
  virtual VELRangePtr onCalculateNewXRange(VELAxisBase& axis);
  virtual VELRangePtr onCalculateNewYRange(VELAxisBase& axis, const VELRenderPassInfo& info);

 private:
  Ranges p_VEL_zoomExtentsXInternal(float duration);
  void p_VEL_zoomExtentsYWithRanges(const Ranges* ranges, float duration);
  void p_VEL_zoomExtentsOnYAxis(VELAxisBase& axis, const Ranges* ranges, float duration);
  void p_VEL_o_tryPerformAutorangeOnAxis(VELAxisBase& axis);

  bool _isAttached = false;
  std::weak_ptr<VELChartSurface> _scs;
};
