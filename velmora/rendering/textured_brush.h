// rendering/textured_brush.h: what the brushes that show a texture have in common.
#pragma once

#include <memory>

#include "velmora/rendering/brush.h"
#include "velmora/rendering/texture.h"

/// Shows a texture over the sprites of a render context (`drawSpriteWithBrush`), which name the places in it.
/// Every other shape shows the corner texel alone.
///
/// Always true: there is a texture; a brush that was made without one has an empty one and draws nothing.
class VELMORA_API VELTexturedBrush : public VELBrush2D {
 public:
  const std::shared_ptr<VELTextureOpenGL>& texture() const { return _texture; }

  /// Opaque white unless a brush says otherwise: the colour comes from the texture.
  uint32_t colorCode() const override { return 0xFFFFFFFFu; }
  void getColorCode(uint32_t& outColorCode, uint16_t& outTextureX, uint16_t& outTextureY, double x,
                    double y) const override;
  /// Always true: what a texture lets through is not looked at.
  bool hasAlpha() const override { return true; }
  bool equalsToBrush(const VELBrush2D& other) const override;

 protected:
  /// @param texture shared; null for an empty one
  explicit VELTexturedBrush(std::shared_ptr<VELTextureOpenGL> texture);

 private:
  std::shared_ptr<VELTextureOpenGL> _texture;
};
