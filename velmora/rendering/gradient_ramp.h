// rendering/gradient_ramp.h: which colour stands where between the stops of a gradient.
//
// Colour codes are 0xAABBGGRR. Positions run from 0 to 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

#include "velmora/platform/export.h"

/// A colour at a place of a gradient.
struct VELGradientStop {
  double position = 0.0;  ///< 0 to 1; one beyond leads there, NaN and infinity are left out
  uint32_t colorCode = 0;
};

/// Colours in the ramp of a brush or pen.
constexpr size_t VELGradientDetalization = 256;

/// The colours of a gradient in @p length equal steps; entry i is the colour at (i + 0.5) / length.
///
/// Between two stops each of the four channels is mixed on its own, linearly in its 8 bits and rounded half
/// up. Before the first stop and after the last one their colours are held. Stops may come in any order;
/// where several stand at one place, the first one given ends what comes before and the last one begins what
/// comes after.
/// @return empty without a stop at a finite position
VELMORA_API std::vector<uint32_t> VELGradientRamp(std::span<const VELGradientStop> stops, size_t length);
inline std::vector<uint32_t> VELGradientRamp(std::initializer_list<VELGradientStop> stops, size_t length) {
  return VELGradientRamp(std::span(stops.begin(), stops.size()), length);
}

/// Stops from two columns; what one column has more than the other is left out.
VELMORA_API std::vector<VELGradientStop> VELGradientStops(std::span<const double> positions,
                                                          std::span<const uint32_t> colorCodes);
