#include "velmora/rendering/linear_gradient_pen.h"

#include <memory>

VELPenPtr VELPen2D::linearGradient(uint32_t start, uint32_t finish, VELGradientDirection direction,
                                   float width) {
  return std::make_shared<VELPenLinearGradient>(start, finish, direction, width);
}

VELPenPtr VELPen2D::linearGradient(std::initializer_list<VELGradientStop> stops,
                                   VELGradientDirection direction, float width) {
  const auto ramp = VELGradientRamp(stops, VELGradientDetalization);
  return std::make_shared<VELPenLinearGradient>(ramp, direction, width);
}

VELPenLinearGradient::VELPenLinearGradient(const VELColor& start, const VELColor& finish,
                                           VELGradientDirection direction, float width)
    : VELPenLinearGradient(start.colorCode(), finish.colorCode(), direction, width) {}

VELPenLinearGradient::VELPenLinearGradient(uint32_t start, uint32_t finish, VELGradientDirection direction,
                                           float width)
    : VELLinearGradient(VELGradientRamp({{0.0, start}, {1.0, finish}}, VELGradientDetalization), direction),
      _width(width) {}

VELPenLinearGradient::VELPenLinearGradient(std::span<const double> coords,
                                           std::span<const uint32_t> colorCodes,
                                           VELGradientDirection direction, float width)
    : VELLinearGradient(VELGradientRamp(VELGradientStops(coords, colorCodes), VELGradientDetalization),
                        direction),
      _width(width) {}

VELPenLinearGradient::VELPenLinearGradient(std::span<const uint32_t> gradientData,
                                           VELGradientDirection direction, float width)
    : VELLinearGradient({gradientData.begin(), gradientData.end()}, direction), _width(width) {}

VELBrushPtr VELPenLinearGradient::clone() const { return std::make_shared<VELPenLinearGradient>(*this); }
