// rendering/linear_gradient_brush.h: a brush whose colour changes along one axis.
#pragma once

#include "velmora/platform/color.h"
#include "velmora/rendering/gradient_ramp.h"
#include "velmora/rendering/linear_gradient.h"

/// Fills with a gradient.
class VELMORA_API VELBrushLinearGradient final : public VELLinearGradient<VELBrush2D> {
 public:
  VELBrushLinearGradient(const VELColor& start, const VELColor& finish, VELGradientDirection direction);
  /// @param start, finish 0xAABBGGRR
  VELBrushLinearGradient(uint32_t start, uint32_t finish, VELGradientDirection direction);
  /// Stops, see `VELGradientRamp`. @param coords positions from 0 to 1 @param colorCodes one for each
  /// position
  VELBrushLinearGradient(std::span<const double> coords, std::span<const uint32_t> colorCodes,
                         VELGradientDirection direction);
  /// The finished ramp. @param gradientData 256 colour codes, copied; with another number nothing is drawn
  VELBrushLinearGradient(std::span<const uint32_t> gradientData, VELGradientDirection direction);

  VELBrushPtr clone() const override;
};
