// surface/surface_element.h: what a surface carries over its series: the chart modifier and the annotation.
#pragma once

#include <memory>

#include "velmora/platform/export.h"

class VELChartSurface;

/// Something attached to one surface that draws into the surface's modifier context.
class VELMORA_API VELSurfaceElement {
 public:
  virtual ~VELSurfaceElement() = default;
  /// Draws itself; called at the end of every pass, after the series.
  virtual void draw() = 0;
  virtual void setParentSurface(const std::weak_ptr<VELChartSurface>& surface) = 0;
  virtual void setIsAttached(bool attached) = 0;
  virtual void onAttached() = 0;
  virtual void onDetached() = 0;
};

/// Turns gestures into changes of the chart, or draws overlays.
class VELMORA_API VELChartModifier : public VELSurfaceElement {};

/// A mark that the user places on the chart.
class VELMORA_API VELAnnotation : public VELSurfaceElement {};
