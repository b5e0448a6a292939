// rendering/triangle_primitive.h: a filled triangle.
#pragma once

#include "velmora/rendering/drawing_primitive.h"

class VELTrianglePrimitive final : public VELDrawingPrimitive {
 public:
  /// Its corners in any order. @return vertices written: 3
  uint32_t o_drawTrianglePrimitiveWithBrush(const VELBrushPtr& brush, float x1, float y1, float x2, float y2,
                                            float x3, float y3);
};
