// rendering/default_brush_shader_program.h: the program of solid brushes, gradients and their pens.
#pragma once

#include <cstdint>

#include "velmora/rendering/brush_shader_program.h"
#include "velmora/rendering/default_brush_shader.h"

/// Samples the brush atlas of the attributes on texture unit 0.
class VELDefaultBrushShaderProgram final : public VELBrushShaderProgram {
 public:
  using VELBrushShaderProgram::VELBrushShaderProgram;

 protected:
  const VELShader& p_VEL_sources() const override { return _shader; }
  void p_VEL_cacheSamplers(VELGL& gl, uint32_t program) override;
  void p_VEL_bindTextures(VELGL& gl, VELShaderAttributes& attributes) override;

 private:
  VELDefaultBrushShader _shader;
  int32_t _textureLocationCached = -1;
};
