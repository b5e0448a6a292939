// rendering/line_primitive.h: one thick segment.
#pragma once

#include "velmora/rendering/drawing_primitive.h"

class VELLinePrimitive final : public VELDrawingPrimitive {
 public:
  /// @return vertices written: 4
  uint32_t o_drawLinePrimitiveWithBrush(const VELPenPtr& pen, float fromX, float fromY, float toX, float toY);
};
