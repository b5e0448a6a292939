// rendering/linear_gradient_pen.h: a pen whose colour changes along one axis.
#pragma once

#include "velmora/platform/color.h"
#include "velmora/rendering/gradient_ramp.h"
#include "velmora/rendering/linear_gradient.h"

/// Strokes with a gradient. Widths are in points; a stroke reaches this far to each side of its centre line.
class VELMORA_API VELPenLinearGradient final : public VELLinearGradient<VELPen2D> {
 public:
  VELPenLinearGradient(const VELColor& start, const VELColor& finish, VELGradientDirection direction,
                       float width);
  /// @param start, finish 0xAABBGGRR
  VELPenLinearGradient(uint32_t start, uint32_t finish, VELGradientDirection direction, float width);
  /// Stops, see `VELGradientRamp`. @param coords positions from 0 to 1 @param colorCodes one for each
  /// position
  VELPenLinearGradient(std::span<const double> coords, std::span<const uint32_t> colorCodes,
                       VELGradientDirection direction, float width);
  /// The finished ramp. @param gradientData 256 colour codes, copied; with another number nothing is drawn
  VELPenLinearGradient(std::span<const uint32_t> gradientData, VELGradientDirection direction, float width);

  float strokeThickness() const override { return _width; }
  VELBrushPtr clone() const override;

 private:
  float _width;
};
