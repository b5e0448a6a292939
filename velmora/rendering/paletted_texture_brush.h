// rendering/paletted_texture_brush.h: a brush that gives the values of a texture their colours.
#pragma once

#include "velmora/rendering/textured_brush.h"

/// Fills sprites with colours of a palette, by the alpha of a texture of values: a heat map. Alpha 0 is the
/// left end of the palette's first row, alpha 255 the right one.
class VELMORA_API VELBrushPalettedTexture final : public VELTexturedBrush {
 public:
  /// @param texture values, such as from `VELTextureOpenGL::withValues`
  /// @param palette one row of colours, such as from gradient stops; null or empty draws nothing
  VELBrushPalettedTexture(std::shared_ptr<VELTextureOpenGL> texture,
                          std::shared_ptr<VELTextureOpenGL> palette);

  const std::shared_ptr<VELTextureOpenGL>& palette() const { return _palette; }
  VELShaderType shaderType() const override { return VELShaderType_PalettedTexture; }
  bool equalsToBrush(const VELBrush2D& other) const override;
  void apply(VELShaderAttributes& attributes) const override;
  bool requireRenderPassData() const override { return _requireRenderPassData; }
  void setRequireRenderPassData(bool require) override { _requireRenderPassData = require; }
  VELBrushPtr clone() const override;

 private:
  bool _requireRenderPassData = false;
  std::shared_ptr<VELTextureOpenGL> _palette;
};
