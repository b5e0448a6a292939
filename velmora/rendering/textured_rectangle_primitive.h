// rendering/textured_rectangle_primitive.h: a rectangle with the whole of a texture in it.
#pragma once

#include "velmora/rendering/drawing_primitive.h"

class VELTexturedRectanglePrimitive final : public VELDrawingPrimitive {
 public:
  /// Between two corners; the texture's origin is at the first, so that swapped corners mirror it. Unlike
  /// other shapes it takes no texture place from the brush, only a colour. @return vertices written: 4
  uint32_t o_drawTexturedRectWithBrush(const VELBrushPtr& brush, float fromX, float fromY, float toX,
                                       float toY);
};
