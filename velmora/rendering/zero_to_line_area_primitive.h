// rendering/zero_to_line_area_primitive.h: the filled area between a line and a straight base.
#pragma once

#include "velmora/rendering/area_primitive.h"

/// A step writes the point and its foot on the base. Where the line crosses the base, the crossing is written
/// before them, its index twice, so that both sides of the base are whole.
class VELZeroToLineAreaPrimitive final : public VELAreaPrimitive {
 public:
  /// The first point, which begins a new piece.
  /// @param zero where the base lies, in points: a y, or an x where @p isVertical
  /// @return vertices written: 2
  uint32_t o_beginZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x, float y, float zero,
                                          bool isVertical);
  /// The next point. The very point of the last step again begins a new piece, and so does the first point
  /// behind a gap, which a point that is not finite or has no brush leaves.
  /// @return vertices written: 2, or 3 with a crossing; 2 more where the last pair is repeated in a new
  /// buffer
  uint32_t o_expandZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x, float y, float zero,
                                           bool isVertical);

 private:
  [[gnu::noinline]] void p_VEL_writeCrossing(const VELBrush2D& brush, double x, double y, double zero,
                                             bool isVertical, bool variative, const Tint& whole);
  template <bool variative>
  uint32_t p_VEL_step(const VELBrushPtr& brush, float x, float y, float zero, bool isVertical);

  float _lastX = 0.0f;
  float _lastY = 0.0f;
};
