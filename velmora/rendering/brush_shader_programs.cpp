#include "velmora/rendering/brush_shader_programs.h"

#include "velmora/rendering/shader_attributes.h"

void VELDefaultBrushShaderProgram::p_VEL_cacheSamplers(VELGL& gl, uint32_t program) {
  _textureLocationCached = gl.getUniformLocation(program, "Texture");
}

void VELDefaultBrushShaderProgram::p_VEL_bindTextures(VELGL& gl, VELShaderAttributes& attributes) {
  attributes.sa_brushAtlas.o_applyTextureAtlas();
  gl.uniform1i(_textureLocationCached, 0);
}

void VELTextureBrushShaderProgram::p_VEL_cacheSamplers(VELGL& gl, uint32_t program) {
  _textureLocationCached = gl.getUniformLocation(program, "Texture");
}

void VELTextureBrushShaderProgram::p_VEL_bindTextures(VELGL& gl, VELShaderAttributes&) {
  gl.uniform1i(_textureLocationCached, 0);
}

void VELColoredTextureBrushShaderProgram::p_VEL_cacheSamplers(VELGL& gl, uint32_t program) {
  _textureLocationCached = gl.getUniformLocation(program, "Texture");
}

void VELColoredTextureBrushShaderProgram::p_VEL_bindTextures(VELGL& gl, VELShaderAttributes&) {
  gl.uniform1i(_textureLocationCached, 0);
}

void VELPalettedTextureBrushShaderProgram::p_VEL_cacheSamplers(VELGL& gl, uint32_t program) {
  _mapLocationCached = gl.getUniformLocation(program, "TextureMap");
  _paletteLocationCached = gl.getUniformLocation(program, "Palette");
}

void VELPalettedTextureBrushShaderProgram::p_VEL_bindTextures(VELGL& gl, VELShaderAttributes&) {
  gl.uniform1i(_mapLocationCached, 0);
  gl.uniform1i(_paletteLocationCached, 1);
}
