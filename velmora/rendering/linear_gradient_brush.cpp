#include "velmora/rendering/linear_gradient_brush.h"

#include <memory>

VELBrushPtr VELBrush2D::linearGradient(uint32_t start, uint32_t finish, VELGradientDirection direction) {
  return std::make_shared<VELBrushLinearGradient>(start, finish, direction);
}

VELBrushPtr VELBrush2D::linearGradient(std::initializer_list<VELGradientStop> stops,
                                       VELGradientDirection direction) {
  const auto ramp = VELGradientRamp(stops, VELGradientDetalization);
  return std::make_shared<VELBrushLinearGradient>(ramp, direction);
}

VELBrushLinearGradient::VELBrushLinearGradient(const VELColor& start, const VELColor& finish,
                                               VELGradientDirection direction)
    : VELBrushLinearGradient(start.colorCode(), finish.colorCode(), direction) {}

VELBrushLinearGradient::VELBrushLinearGradient(uint32_t start, uint32_t finish,
                                               VELGradientDirection direction)
    : VELLinearGradient(VELGradientRamp({{0.0, start}, {1.0, finish}}, VELGradientDetalization), direction) {}

VELBrushLinearGradient::VELBrushLinearGradient(std::span<const double> coords,
                                               std::span<const uint32_t> colorCodes,
                                               VELGradientDirection direction)
    : VELLinearGradient(VELGradientRamp(VELGradientStops(coords, colorCodes), VELGradientDetalization),
                        direction) {}

VELBrushLinearGradient::VELBrushLinearGradient(std::span<const uint32_t> gradientData,
                                               VELGradientDirection direction)
    : VELLinearGradient({gradientData.begin(), gradientData.end()}, direction) {}

VELBrushPtr VELBrushLinearGradient::clone() const { return std::make_shared<VELBrushLinearGradient>(*this); }
