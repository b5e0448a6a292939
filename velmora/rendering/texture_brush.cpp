#include "velmora/rendering/texture_brush.h"

#include "velmora/rendering/brush_shader_controller.h"

void VELBrushTexture::apply(VELShaderAttributes& attributes) const {
  texture()->bind(0);
  VELBrushShaderController::o_applyTextureBrushShader(attributes);
}

VELBrushPtr VELBrushTexture::clone() const { return std::make_shared<VELBrushTexture>(*this); }
