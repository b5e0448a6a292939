// surface/surface_element.h: what a surface carries over its series: the chart modifier and the annotation.
#pragma once

#include <memory>

#include "velmora/platform/export.h"

class VELChartSurface;
class VELGestureRecognizer;
class VELPinchGestureRecognizer;
class VELView;

/// Something attached to one surface that draws into the surface's modifier context.
class VELMORA_API VELSurfaceElement {
 public:
  virtual ~VELSurfaceElement() = default;
  /// Draws itself; called at the end of every pass, after the series. The context is the modifier context of
  /// the surface, just cleared: `parentSurface->renderSurface()->modifierContext()`. Its drawing area is the
  /// whole surface until it is set to another.
  virtual void draw() = 0;
  virtual void setParentSurface(const std::weak_ptr<VELChartSurface>& surface) = 0;
  virtual void setIsAttached(bool attached) = 0;
  virtual void onAttached() = 0;
  virtual void onDetached() = 0;
};

/// Turns gestures into changes of the chart, or draws overlays.
class VELMORA_API VELChartModifier : public VELSurfaceElement {};

/// A mark that the user places on the chart. Every gesture comes to it first, and goes on to the chart
/// modifier only when it was not taken.
class VELMORA_API VELAnnotation : public VELSurfaceElement {
 public:
  /// @param gesture the gesture as it is now
  /// @param view the chart view, in which its places are asked for
  /// @return true to take the gesture; an annotation takes none unless it says so
  virtual bool onTapGesture(const VELGestureRecognizer& /*gesture*/, const VELView& /*view*/) {
    return false;
  }
  virtual bool onDoubleTapGesture(const VELGestureRecognizer& /*gesture*/, const VELView& /*view*/) {
    return false;
  }
  virtual bool onPanGesture(const VELGestureRecognizer& /*gesture*/, const VELView& /*view*/) {
    return false;
  }
  virtual bool onPinchGesture(const VELPinchGestureRecognizer& /*gesture*/, const VELView& /*view*/) {
    return false;
  }
};
