#include "velmora/rendering/solid_brush.h"

#include "velmora/rendering/brush_shader_controller.h"

VELBrushPtr VELBrush2D::solid(uint32_t colorCode) { return std::make_shared<VELBrushSolid>(colorCode); }

void VELBrushSolid::getColorCode(uint32_t& outColorCode, uint16_t& outTextureX, uint16_t& outTextureY, double,
                                 double) const {
  outColorCode = _color;
  outTextureX = outTextureY = 0;  // the transparent texel of the atlas
}

bool VELBrushSolid::equalsToBrush(const VELBrush2D& other) const {
  return other.shaderType() == VELShaderType_Solid;
}

void VELBrushSolid::apply(VELShaderAttributes& attributes) const {
  VELBrushShaderController::o_applyDefaultBrushShader(attributes);
}

VELBrushPtr VELBrushSolid::clone() const { return std::make_shared<VELBrushSolid>(*this); }
