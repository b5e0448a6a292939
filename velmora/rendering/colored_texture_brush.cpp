#include "velmora/rendering/colored_texture_brush.h"

#include "velmora/rendering/brush_shader_controller.h"

void VELBrushColoredTexture::apply(VELShaderAttributes& attributes) const {
  texture()->bind(0);
  VELBrushShaderController::o_applyColoredTextureBrushShader(attributes);
}

VELBrushPtr VELBrushColoredTexture::clone() const { return std::make_shared<VELBrushColoredTexture>(*this); }
