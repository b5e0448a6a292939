// rendering/rectangle_primitive.h: a filled rectangle.
#pragma once

#include "velmora/rendering/drawing_primitive.h"

class VELRectanglePrimitive final : public VELDrawingPrimitive {
 public:
  /// Between two opposite corners, given in any order. @return vertices written: 4
  uint32_t o_drawRectPrimitiveWithBrush(const VELBrushPtr& brush, float fromX, float fromY, float toX,
                                        float toY);
};
