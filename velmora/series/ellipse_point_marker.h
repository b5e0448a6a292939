// series/ellipse_point_marker.h: a dot.
#pragma once

#include <memory>

#include "velmora/platform/export.h"
#include "velmora/rendering/brush.h"
#include "velmora/series/point_marker_base.h"

class VELArrayController;

/// A filled ellipse with a border. Its outline is kept until the size changes: drawing allocates nothing.
class VELMORA_API VELEllipsePointMarker : public VELPointMarkerBase {
 public:
  /// Filled with colour 0xFF50A0F0, without a border.
  VELEllipsePointMarker();
  ~VELEllipsePointMarker() override;

  /// Null fills nothing. A gradient is spanned over each marker.
  const VELBrushPtr& fillBrush() const { return _fillBrush; }
  void setFillBrush(VELBrushPtr brush);
  /// Strokes the outline; null for no border.
  const VELPenPtr& borderPen() const { return _borderPen; }
  void setBorderPen(VELPenPtr pen);

  void drawToContext(VELRenderContext2D& context, float x, float y) override;

 private:
  void updateOutline(VELRenderContext2D& context);
  void drawBorder(VELRenderContext2D& context, float x, float y) const;

  VELBrushPtr _fillBrush;
  VELPenPtr _borderPen;
  std::shared_ptr<VELArrayController> _outlineX;  ///< around (0, 0), 32-bit floats
  std::shared_ptr<VELArrayController> _outlineY;
  float _outlineWidth = 0.0f;  ///< the size that the outline is for
  float _outlineHeight = 0.0f;
};
