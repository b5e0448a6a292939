// axes/axis_renderer.h: in which order the axes of a chart draw.
#pragma once

#include "velmora/axes/axis_surface.h"
#include "velmora/platform/export.h"
#include "velmora/rendering/render_context.h"

/// Draws axes under the series of a chart.
class VELMORA_API VELAxisRenderer {
 public:
  /// Ticks and labels of every axis, then all bands, all minor and all major grid lines; X axes before Y
  /// axes each time. Leaves the drawing area on the chart frame.
  static void o_onDrawAxes(VELAxisSurface& surface, VELRenderContext2D& context);
};
