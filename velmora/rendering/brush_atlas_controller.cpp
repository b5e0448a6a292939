#include "velmora/rendering/brush_atlas_controller.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <span>

VELBrushAtlasController::VELBrushAtlasController() : _atlas(size, size) {
  // Rows must not bleed into each other.
  _atlas.setFilter(VELTextureFilter_Nearest);
}

void VELBrushAtlasController::o_addBrush(const VELBrushPtr& brush) {
  if (!brush || brush->shaderType() != VELShaderType_LinearGradient || hasRowOf(*brush)) return;
  const auto stored = std::ranges::find(_storedBrushes, brush);
  if (stored != _storedBrushes.end()) {
    brush->setGradientIndex(static_cast<int32_t>(stored - _storedBrushes.begin()) + 1);
    return;
  }
  const std::span<const uint32_t> ramp = brush->getGradientData();
  if (_lastBrushIndex == size - 1 || ramp.size() != size_t{size}) return;
  _storedBrushes.push_back(brush);
  brush->setGradientIndex(++_lastBrushIndex);
  const size_t start = static_cast<size_t>(_lastBrushIndex) * ramp.size_bytes();
  // Compared first: the gradients of a frame are usually those of the frame before.
  if (std::memcmp(_atlas.pixels().data() + start, ramp.data(), ramp.size_bytes()) == 0) return;
  std::memcpy(_atlas.editRows(_lastBrushIndex, 1).data(), ramp.data(), ramp.size_bytes());
}

void VELBrushAtlasController::o_clearAtlas() {
  _storedBrushes.clear();
  _lastBrushIndex = 0;
  _atlasValid = false;
}

void VELBrushAtlasController::o_applyTextureAtlas() {
  if (!_atlasValid) _atlas.makeAgainIfLost();
  _atlasValid = true;
  _atlas.bind(0);
}
