#include "velmora/rendering/brush_atlas_controller.h"

#include <algorithm>
#include <span>

#include "velmora/platform/gl_context.h"

VELBrushAtlasController::VELBrushAtlasController() : _textureData(size_t{size} * size) {}

void VELBrushAtlasController::o_addBrush(const VELBrushPtr& brush) {
  if (!brush || brush->shaderType() != VELShaderType_LinearGradient) return;
  if (_lastBrushIndex == size - 1 || std::ranges::find(_storedBrushes, brush) != _storedBrushes.end()) return;
  const std::span<const uint32_t> ramp = brush->getGradientData();
  if (ramp.size() != size_t{size}) return;
  _storedBrushes.push_back(brush);
  brush->setGradientIndex(++_lastBrushIndex);
  const auto row = std::span(_textureData).subspan(static_cast<size_t>(_lastBrushIndex) * size, size);
  if (std::ranges::equal(ramp, row)) return;
  std::ranges::copy(ramp, row.begin());
  _atlasValid = false;
}

void VELBrushAtlasController::o_clearAtlas() {
  // The texture stays valid: it still equals the texels, and the same gradients usually get the same rows
  // again. An upload per cleared frame would send 256 KiB for nothing.
  _storedBrushes.clear();
  _lastBrushIndex = 0;
}

void VELBrushAtlasController::o_applyTextureAtlas() {
  VELGLContext* const context = VELGLContext::current();
  if (!context) return;
  context->gl().activeTexture(VELGL_TEXTURE0);
  if (!_atlasValid || !_atlas) {
    const std::span texels(_textureData);
    const std::span bytes(reinterpret_cast<const uint8_t*>(texels.data()), texels.size_bytes());
    if (_atlas && _atlas->isValid())
      _atlas->updateWithByteData(bytes, size, size);
    else
      _atlas = std::make_unique<VELTextureOpenGL>(bytes, size, size);
    _atlasValid = true;
  }
  context->gl().bindTexture(VELGL_TEXTURE_2D, _atlas->textureId());
}
