// rendering/texture_brush.h: a brush that shows a texture as it is.
#pragma once

#include <utility>

#include "velmora/rendering/textured_brush.h"

/// Fills sprites with a picture.
class VELMORA_API VELBrushTexture final : public VELTexturedBrush {
 public:
  explicit VELBrushTexture(std::shared_ptr<VELTextureOpenGL> texture)
      : VELTexturedBrush(std::move(texture)) {}

  VELShaderType shaderType() const override { return VELShaderType_Texture; }
  void apply(VELShaderAttributes& attributes) const override;
  VELBrushPtr clone() const override;
};
