// rendering/linear_gradient.h: what brushes and pens with a gradient along one axis have in common.
//
// Units: points relative to the current drawing area; places in a texture 0 to 65535 for 0 to 1.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "velmora/platform/export.h"
#include "velmora/rendering/brush.h"

/// The part of a gradient's extent that depends on the position: from where to where it runs.
///
/// Always true: `min` is not above `max` unless one is NaN, and every place that comes out is a number.
class VELMORA_API VELGradientSpan {
 public:
  double min() const { return _min; }    ///< points
  double max() const { return _max; }    ///< points
  double step() const { return _step; }  ///< places of a texture per point; 0 without a usable span

  /// Bounds in points, in any order. Equal, infinite and NaN bounds have no usable span.
  void set(double from, double to);
  /// Column in the texture, 1 to 65534, so that a sample stays inside of the row. 1 without a usable span and
  /// for NaN.
  uint16_t column(double position) const {
    if (!(position >= _min)) return 1;
    if (position > _max) return _step > 0.0 ? lastColumn : uint16_t{1};
    const double product = _step * (position - _min);
    if (!(product > 0.0)) return 1;
    return product < lastColumn - 1 ? static_cast<uint16_t>(static_cast<int32_t>(product) + 1) : lastColumn;
  }

 private:
  static constexpr uint16_t lastColumn = 65534;

  double _min = 0.0;
  double _max = 0.0;
  double _step = 0.0;
};

/// A brush or pen (@p Base) whose colour changes along one axis.
///
/// The colours are a ramp of 256 codes that the atlas of a render context takes as one of its rows; a vertex
/// only names the place in it. A gradient with another number of colours gets no row and draws nothing.
/// Until it is spanned over an area or over data, it shows its first colour.
template <typename Base>
class VELMORA_API VELLinearGradient : public Base {
 public:
  VELGradientDirection direction() const { return _direction; }
  int32_t detalization() const { return static_cast<int32_t>(_gradient.size()); }  ///< colours in the ramp
  double min() const { return _span.min(); }    ///< where the first colour stands, in points
  double max() const { return _span.max(); }    ///< where the last colour stands, in points
  double step() const { return _span.step(); }  ///< places of a texture per point; 0 without a usable span

  /// Bounds that whoever made the gradient wants to find again with it; nothing is drawn by them.
  double minCoord() const { return _minCoord; }
  void setMinCoord(double coord) { _minCoord = coord; }
  double maxCoord() const { return _maxCoord; }
  void setMaxCoord(double coord) { _maxCoord = coord; }

  /// The colour in the middle of the ramp; 0 without colours.
  uint32_t colorCode() const override;
  uint32_t colorCodeAtX(double x, double y) const override;
  void getColorCode(uint32_t& outColorCode, uint16_t& outTextureX, uint16_t& outTextureY, double x,
                    double y) const final {
    outColorCode = 0;  // the shader adds the texel
    outTextureX = _span.column(isHorizontal() ? x : y);
    outTextureY = static_cast<uint16_t>(static_cast<uint32_t>(_gradientIndex) * 256 | 1);
  }
  bool variativeColor() const override { return true; }
  bool hasAlpha() const override { return _hasAlpha; }
  VELShaderType shaderType() const override { return VELShaderType_LinearGradient; }
  bool equalsToBrush(const VELBrush2D& other) const override;
  void apply(VELShaderAttributes& attributes) const override;

  /// From the left to the right edge, or from the top to the bottom one.
  void setDrawingAreaX(double x, double y, double width, double height) override;
  bool requireRenderPassData() const override { return _requireRenderPassData; }
  void setRequireRenderPassData(bool require) override { _requireRenderPassData = require; }
  /// From the smallest to the largest value of the series' data, not of what the screen shows of it; along
  /// the Y axis the zero line is included. A vertical gradient runs along the axis that is vertical in this
  /// pass. Coordinates that are no finite numbers are ignored; without any the span stays as it is.
  void setRenderPassData(const VELBrushPassData* data) override;

  int32_t gradientIndex() const override { return _gradientIndex; }
  void setGradientIndex(int32_t index) override { _gradientIndex = index; }
  std::span<const uint32_t> getGradientData() const override { return _gradient; }

 protected:
  VELLinearGradient(std::vector<uint32_t> gradient, VELGradientDirection direction);

 private:
  bool isHorizontal() const { return _direction != VELGradientDirection_Vertical; }

  VELGradientDirection _direction;
  bool _hasAlpha;
  bool _requireRenderPassData = true;
  int32_t _gradientIndex = 0;
  VELGradientSpan _span;
  double _minCoord = 0.0;
  double _maxCoord = 0.0;
  std::vector<uint32_t> _gradient;
};

extern template class VELLinearGradient<VELBrush2D>;
extern template class VELLinearGradient<VELPen2D>;
