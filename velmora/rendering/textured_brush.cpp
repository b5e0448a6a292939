#include "velmora/rendering/textured_brush.h"

#include <utility>

VELTexturedBrush::VELTexturedBrush(std::shared_ptr<VELTextureOpenGL> texture)
    : _texture(texture ? std::move(texture) : std::make_shared<VELTextureOpenGL>(0, 0)) {}

void VELTexturedBrush::getColorCode(uint32_t& outColorCode, uint16_t& outTextureX, uint16_t& outTextureY,
                                    double, double) const {
  outColorCode = colorCode();
  outTextureX = outTextureY = 0;
}

bool VELTexturedBrush::equalsToBrush(const VELBrush2D& other) const {
  if (other.shaderType() != shaderType()) return false;
  const auto* const textured = dynamic_cast<const VELTexturedBrush*>(&other);
  return textured && _texture->isSameAs(*textured->_texture);
}
