// rendering/band_area_primitive.h: the filled band between two lines.
#pragma once

#include "velmora/rendering/area_primitive.h"

/// A step writes a point on either line, in the colour of the side that is in front there. Where the lines
/// cross, the crossing is written before them in both colours, so that the colour changes exactly there.
///
/// The first brush chooses the shader, both colour vertices. A brush that is missing leaves its side
/// transparent.
class VELBandAreaPrimitive final : public VELAreaPrimitive {
 public:
  /// The first pair of points, which begins a new piece. Arguments as `o_expandAreaBrush1`.
  /// @return vertices written: 2
  uint32_t o_beginAreaBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2, float x, float y1,
                             float y2, bool isVertical);
  /// The next pair of points, by the orientation. The very pair of the last step again begins a new piece,
  /// and so does the first one behind a gap.
  /// @param x place along the X axis, which lies upright where @p isVertical
  /// @return vertices written: 2, or 4 with a crossing; 2 more where the last pair is repeated in a new
  /// buffer
  uint32_t o_expandAreaBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2, float x, float y1,
                              float y2, bool isVertical);
  /// Points (x, y1) and (x, y2); the first brush where y2 > y1.
  uint32_t o_expandHorizontalAreaBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2, float x,
                                        float y1, float y2);
  /// Points (x1, y) and (x2, y); the first brush where x1 > x2.
  uint32_t o_expandVerticalAreaBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2, float x1,
                                      float x2, float y);

 private:
  template <bool isVertical>
  uint32_t p_VEL_expand(const VELBrushPtr& brush1, const VELBrushPtr& brush2, float along, float across1,
                        float across2);

  // Along the X axis, and across it on either line.
  float _lastX = 0.0f;
  float _lastY1 = 0.0f;
  float _lastY2 = 0.0f;
};
