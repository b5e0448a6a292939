// rendering/brush_shader_programs.h: the four programs that shapes are drawn with.
//
// They differ in their sources and in what they sample; the rest is rendering/brush_shader_program.h.
#pragma once

#include <cstdint>

#include "velmora/rendering/brush_shader_program.h"
#include "velmora/rendering/brush_shaders.h"

/// Of solid brushes, gradients and their pens: samples the brush atlas of the attributes on unit 0.
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

/// Of texture brushes: samples what the brush bound to unit 0.
class VELTextureBrushShaderProgram final : public VELBrushShaderProgram {
 public:
  using VELBrushShaderProgram::VELBrushShaderProgram;

 protected:
  const VELShader& p_VEL_sources() const override { return _shader; }
  void p_VEL_cacheSamplers(VELGL& gl, uint32_t program) override;
  void p_VEL_bindTextures(VELGL& gl, VELShaderAttributes& attributes) override;

 private:
  VELTextureBrushShader _shader;
  int32_t _textureLocationCached = -1;
};

/// Of coloured texture brushes: samples what the brush bound to unit 0.
class VELColoredTextureBrushShaderProgram final : public VELBrushShaderProgram {
 public:
  using VELBrushShaderProgram::VELBrushShaderProgram;

 protected:
  const VELShader& p_VEL_sources() const override { return _shader; }
  void p_VEL_cacheSamplers(VELGL& gl, uint32_t program) override;
  void p_VEL_bindTextures(VELGL& gl, VELShaderAttributes& attributes) override;

 private:
  VELColoredTextureBrushShader _shader;
  int32_t _textureLocationCached = -1;
};

/// Of paletted texture brushes: samples values on unit 0 and the palette on unit 1.
class VELPalettedTextureBrushShaderProgram final : public VELBrushShaderProgram {
 public:
  using VELBrushShaderProgram::VELBrushShaderProgram;

 protected:
  const VELShader& p_VEL_sources() const override { return _shader; }
  void p_VEL_cacheSamplers(VELGL& gl, uint32_t program) override;
  void p_VEL_bindTextures(VELGL& gl, VELShaderAttributes& attributes) override;

 private:
  VELPalettedTextureBrushShader _shader;
  int32_t _mapLocationCached = -1;
  int32_t _paletteLocationCached = -1;
};
