// rendering/test_gradient.h: the least pen that the atlas takes for a gradient.
#pragma once

#include <vector>

#include "velmora/rendering/brush.h"
#include "velmora/rendering/brush_shader_controller.h"

class TestGradient final : public VELPen2D {
 public:
  explicit TestGradient(uint32_t code, size_t length = 256) : _ramp(length, code) {}

  std::vector<double> area;  ///< that it was last told to span

  uint32_t colorCode() const override { return _ramp.front(); }
  void getColorCode(uint32_t& code, uint16_t& x, uint16_t& y, double atX, double) const override {
    code = 0;
    x = static_cast<uint16_t>(static_cast<int32_t>(atX));
    y = static_cast<uint16_t>(_index * 256 | 1);
  }
  float strokeThickness() const override { return 1.0f; }
  bool variativeColor() const override { return true; }
  VELShaderType shaderType() const override { return VELShaderType_LinearGradient; }
  bool equalsToBrush(const VELBrush2D& other) const override {
    return other.shaderType() == VELShaderType_Solid || other.shaderType() == VELShaderType_LinearGradient;
  }
  void apply(VELShaderAttributes& attributes) const override {
    VELBrushShaderController::o_applyDefaultBrushShader(attributes);
  }
  void setDrawingAreaX(double x, double y, double w, double h) override { area = {x, y, w, h}; }
  int32_t gradientIndex() const override { return _index; }
  void setGradientIndex(int32_t index) override { _index = index; }
  std::span<const uint32_t> getGradientData() const override { return _ramp; }
  VELBrushPtr clone() const override { return std::make_shared<TestGradient>(*this); }

 private:
  std::vector<uint32_t> _ramp;
  int32_t _index = 0;
};
