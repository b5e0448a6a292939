// rendering/colored_texture_brush.h: a brush of one colour in the shape of a texture.
#pragma once

#include <utility>

#include "velmora/rendering/textured_brush.h"

/// Fills sprites with a colour through the alpha of a texture; the smaller of both alphas counts. Sprites of
/// many colours share one texture and one draw call.
class VELMORA_API VELBrushColoredTexture final : public VELTexturedBrush {
 public:
  /// @param colorCode 0xAABBGGRR
  explicit VELBrushColoredTexture(std::shared_ptr<VELTextureOpenGL> texture, uint32_t colorCode = 0xFFFFFFFFu)
      : VELTexturedBrush(std::move(texture)), _color(colorCode) {}

  uint32_t colorCode() const override { return _color; }
  VELShaderType shaderType() const override { return VELShaderType_ColoredTexture; }
  void apply(VELShaderAttributes& attributes) const override;
  VELBrushPtr clone() const override;

 private:
  uint32_t _color;
};
