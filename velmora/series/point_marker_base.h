// series/point_marker_base.h: the small shape at a point.
#pragma once

#include "velmora/platform/export.h"

class VELRenderContext2D;

/// The base of all point markers. A marker may serve several styles; a change of it shows at the next redraw
/// that something else asks for.
class VELMORA_API VELPointMarkerBase {
 public:
  VELPointMarkerBase() = default;
  VELPointMarkerBase(const VELPointMarkerBase&) = delete;
  VELPointMarkerBase& operator=(const VELPointMarkerBase&) = delete;
  virtual ~VELPointMarkerBase();

  /// Size in points, 10 by 10 at first. One that is not positive draws nothing.
  float width() const { return _width; }
  void setWidth(float width) { _width = width; }
  float height() const { return _height; }
  void setHeight(float height) { _height = height; }

  /// Draws the marker around a place in points of the drawing area.
  /// @throws VELInternalInconsistencyException here: every kind of marker overrides it
  virtual void drawToContext(VELRenderContext2D& context, float x, float y);

 private:
  float _width = 10.0f;
  float _height = 10.0f;
};
