#include "velmora/platform/color.h"

#include <algorithm>

namespace {

// Truncated and masked: a component above 1 keeps its low 8 bits. Values beyond an integer saturate first.
uint32_t channel(double component) {
  const double scaled = component * 255.0;
  if (!(scaled == scaled)) return 0;
  return static_cast<uint32_t>(static_cast<int32_t>(std::clamp(scaled, -2147483648.0, 2147483647.0))) & 0xFFu;
}

}  // namespace

VELColor VELColor::fromBytes(uint8_t red, uint8_t green, uint8_t blue, uint8_t alpha) {
  return {red / 255.0, green / 255.0, blue / 255.0, alpha / 255.0};
}

VELColor VELColor::fromColorCode(uint32_t code) {
  const auto byte = [code](int shift) { return static_cast<uint8_t>(code >> shift); };
  return fromBytes(byte(0), byte(8), byte(16), byte(24));
}

uint32_t VELColor::colorCode() const {
  return channel(_red) | channel(_green) << 8 | channel(_blue) << 16 | channel(_alpha) << 24;
}
