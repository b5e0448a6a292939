#include "velmora/rendering/solid_pen.h"

#include "velmora/rendering/brush_shader_controller.h"

VELPenPtr VELPen2D::solid(uint32_t colorCode, float width) {
  return std::make_shared<VELPenSolid>(colorCode, width);
}

void VELPenSolid::getColorCode(uint32_t& outColorCode, uint16_t& outTextureX, uint16_t& outTextureY, double,
                               double) const {
  outColorCode = _color;
  outTextureX = outTextureY = 0;  // the transparent texel of the atlas
}

bool VELPenSolid::equalsToBrush(const VELBrush2D& other) const {
  return other.shaderType() == VELShaderType_Solid;
}

void VELPenSolid::apply(VELShaderAttributes& attributes) const {
  VELBrushShaderController::o_applyDefaultBrushShader(attributes);
}

VELBrushPtr VELPenSolid::clone() const { return std::make_shared<VELPenSolid>(*this); }
