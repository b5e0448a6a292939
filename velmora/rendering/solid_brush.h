// rendering/solid_brush.h: a brush of one colour.
#pragma once

#include "velmora/rendering/brush.h"

/// Fills with one colour, opaque white unless told otherwise.
class VELMORA_API VELBrushSolid final : public VELBrush2D {
 public:
  VELBrushSolid() = default;
  explicit VELBrushSolid(const VELColor& color) : _color(color.colorCode()) {}
  /// @param colorCode 0xAABBGGRR
  explicit VELBrushSolid(uint32_t colorCode) : _color(colorCode) {}

  uint32_t colorCode() const override { return _color; }
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
  bool _requireRenderPassData = false;
};
