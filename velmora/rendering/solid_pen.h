// rendering/solid_pen.h: a pen of one colour.
#pragma once

#include "velmora/rendering/brush.h"

/// Strokes with one colour; opaque white and a width of 1 unless told otherwise.
class VELMORA_API VELPenSolid final : public VELPen2D {
 public:
  VELPenSolid() = default;
  /// @param width in points; a stroke reaches this far to each side of its centre line
  VELPenSolid(const VELColor& color, float width) : _color(color.colorCode()), _width(width) {}
  /// @param colorCode 0xAABBGGRR
  VELPenSolid(uint32_t colorCode, float width) : _color(colorCode), _width(width) {}

  uint32_t colorCode() const override { return _color; }
  float strokeThickness() const override { return _width; }
  void getColorCode(uint32_t& outColorCode, uint16_t& outTextureX, uint16_t& outTextureY, double x,
                    double y) const override;
  VELShaderType shaderType() const override { return VELShaderType_Solid; }
  bool equalsToBrush(const VELBrush2D& other) const override;
  void apply(VELShaderAttributes& attributes) const override;
  bool requireRenderPassData() const override { return _requireRenderPassData; }
  void setRequireRenderPassData(bool require) override { _requireRenderPassData = require; }
  VELBrushPtr clone() const override;

 private:
  uint32_t _color = 0xFFFFFFFFu;
  float _width = 1.0f;
  bool _requireRenderPassData = false;
};
