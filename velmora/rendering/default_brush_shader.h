// rendering/default_brush_shader.h: the program of solid colours and gradients.
#pragma once

#include "velmora/rendering/shader.h"

/// Vertex colour plus atlas texel: a solid colour adds a transparent texel, a gradient adds to a colour of 0.
class VELDefaultBrushShader final : public VELShader {
 public:
  std::string_view o_getVertexShader() const override;
  std::string_view o_getFragmentShader() const override;
};
