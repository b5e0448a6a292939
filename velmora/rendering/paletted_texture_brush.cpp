#include "velmora/rendering/paletted_texture_brush.h"

#include <utility>

#include "velmora/rendering/brush_shader_controller.h"

VELBrushPalettedTexture::VELBrushPalettedTexture(std::shared_ptr<VELTextureOpenGL> texture,
                                                 std::shared_ptr<VELTextureOpenGL> palette)
    : VELTexturedBrush(std::move(texture)),
      _palette(palette ? std::move(palette) : std::make_shared<VELTextureOpenGL>(0, 0)) {}

bool VELBrushPalettedTexture::equalsToBrush(const VELBrush2D& other) const {
  if (!VELTexturedBrush::equalsToBrush(other)) return false;
  const auto* const paletted = dynamic_cast<const VELBrushPalettedTexture*>(&other);
  return paletted && _palette->isSameAs(*paletted->_palette);
}

void VELBrushPalettedTexture::apply(VELShaderAttributes& attributes) const {
  texture()->bind(0);
  // No values is not a plane of the smallest value: the empty texture is transparent as a palette, too.
  (texture()->isEmpty() ? texture() : _palette)->bind(1);
  VELBrushShaderController::o_applyPalettedTextureBrushShader(attributes);
}

VELBrushPtr VELBrushPalettedTexture::clone() const {
  return std::make_shared<VELBrushPalettedTexture>(*this);
}
