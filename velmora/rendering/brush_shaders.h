// rendering/brush_shaders.h: the source texts of the four programs that shapes are drawn with.
#pragma once

#include "velmora/rendering/shader.h"

/// Vertex colour plus atlas texel: a solid colour adds a transparent texel, a gradient adds to a colour of 0.
class VELDefaultBrushShader final : public VELShader {
 public:
  std::string_view o_getVertexShader() const override;
  std::string_view o_getFragmentShader() const override;
};

/// The texture as it is.
class VELTextureBrushShader final : public VELShader {
 public:
  std::string_view o_getVertexShader() const override;
  std::string_view o_getFragmentShader() const override;
};

/// The vertex colour, with the smaller of its alpha and that of the texture.
class VELColoredTextureBrushShader final : public VELShader {
 public:
  std::string_view o_getVertexShader() const override;
  std::string_view o_getFragmentShader() const override;
};

/// The alpha of one texture picks a colour from the first row of another.
class VELPalettedTextureBrushShader final : public VELShader {
 public:
  std::string_view o_getVertexShader() const override;
  std::string_view o_getFragmentShader() const override;
};
