#include "velmora/rendering/linear_gradient.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "velmora/axes/coordinate_calculator.h"
#include "velmora/data/range.h"
#include "velmora/rendering/brush_pass_data.h"
#include "velmora/rendering/brush_shader_controller.h"

namespace {

constexpr double columns = 65535.0;
constexpr uint32_t opaque = 0xFF000000u;

/// The smallest and the largest finite coordinate that it was given.
class Bounds {
 public:
  void add(double coordinate) {
    if (!std::isfinite(coordinate)) return;
    _bounds = _bounds ? std::pair(std::min(_bounds->first, coordinate), std::max(_bounds->second, coordinate))
                      : std::pair(coordinate, coordinate);
  }
  void addTo(VELGradientSpan& span) const {
    if (_bounds) span.set(_bounds->first, _bounds->second);
  }

 private:
  std::optional<std::pair<double, double>> _bounds;
};

Bounds boundsOf(const VELBrushPassData& data, bool isAlongY) {
  Bounds bounds;
  const auto& calculator = isAlongY ? data.yCoordinateCalculator() : data.xCoordinateCalculator();
  const auto range = isAlongY ? data.yDataRange() : data.xDataRange();
  // Without data the range is inverted.
  if (!calculator || !range || range->minAsDouble() > range->maxAsDouble()) return bounds;
  bounds.add(calculator->getCoordinateFrom(range->minAsDouble()));
  bounds.add(calculator->getCoordinateFrom(range->maxAsDouble()));
  if (isAlongY) bounds.add(calculator->getCoordinateFrom(data.zeroLineY()));
  return bounds;
}

}  // namespace

void VELGradientSpan::set(double from, double to) {
  if (to < from) std::swap(from, to);
  _min = from;
  _max = to;
  const double step = columns / (to - from);
  _step = step > 0.0 && from < to ? step : 0.0;
}

template <typename Base>
VELLinearGradient<Base>::VELLinearGradient(std::vector<uint32_t> gradient, VELGradientDirection direction)
    : _direction(direction),
      _hasAlpha(std::ranges::any_of(gradient, [](uint32_t code) { return code < opaque; })),
      _gradient(std::move(gradient)) {}

template <typename Base>
uint32_t VELLinearGradient<Base>::colorCode() const {
  return _gradient.empty() ? 0 : _gradient[_gradient.size() / 2];
}

template <typename Base>
uint32_t VELLinearGradient<Base>::colorCodeAtX(double x, double y) const {
  if (_gradient.empty()) return 0;
  const size_t column = _span.column(isHorizontal() ? x : y) - size_t{1};
  return _gradient[column * _gradient.size() / 65536];
}

template <typename Base>
bool VELLinearGradient<Base>::equalsToBrush(const VELBrush2D& other) const {
  const VELShaderType type = other.shaderType();
  return type == VELShaderType_Solid || type == VELShaderType_LinearGradient;
}

template <typename Base>
void VELLinearGradient<Base>::apply(VELShaderAttributes& attributes) const {
  VELBrushShaderController::o_applyDefaultBrushShader(attributes);
}

template <typename Base>
void VELLinearGradient<Base>::setDrawingAreaX(double x, double y, double width, double height) {
  isHorizontal() ? _span.set(x, x + width) : _span.set(y, y + height);
}

template <typename Base>
void VELLinearGradient<Base>::setRenderPassData(const VELBrushPassData* data) {
  if (data && _requireRenderPassData) boundsOf(*data, isHorizontal() == data->isVerticalChart()).addTo(_span);
}

template class VELLinearGradient<VELBrush2D>;
template class VELLinearGradient<VELPen2D>;
