// rendering/ellipse_primitive.h: the outline of an ellipse as points, and the shape inside such an outline.
#pragma once

#include "velmora/data/array_controller.h"
#include "velmora/rendering/drawing_primitive.h"

class VELEllipsePrimitive final : public VELDrawingPrimitive {
 public:
  /// Points of the longest outline that the largest buffer takes.
  static constexpr int32_t maximumDetalization = 32766;

  /// The outline around (0, 0): points (rh·cos θ, rv·sin θ) at equal steps of θ from 0 on.
  /// @param xData, yData emptied, then filled; unless both hold 32-bit floats they stay empty
  /// @param detalization number of points; none below 1, at most `maximumDetalization`
  static void o_RenderEllipsePrimitiveToBufferX(VELArrayController& xData, VELArrayController& yData,
                                                float radiusVertical, float radiusHorizontal,
                                                int32_t detalization);

  /// True for columns that `o_drawEllipsePrimitiveWithBrush` draws in some buffer: 32-bit floats of the same
  /// length, at least 1 and at most what the buffer takes when it is empty. Anything else is refused by every
  /// buffer.
  bool o_canDraw(const VELArrayController& xData, const VELArrayController& yData) const;
  /// The inside of an outline, which is as convex as an ellipse, moved to a centre.
  /// @return vertices written: one for each point and the centre; 0 for columns that `o_canDraw` refuses
  uint32_t o_drawEllipsePrimitiveWithBrush(const VELBrushPtr& brush, float centerX, float centerY,
                                           const VELArrayController& xData, const VELArrayController& yData);
};
