#include "velmora/rendering/default_brush_shader_program.h"

#include "velmora/rendering/shader_attributes.h"

void VELDefaultBrushShaderProgram::p_VEL_cacheSamplers(VELGL& gl, uint32_t program) {
  _textureLocationCached = gl.getUniformLocation(program, "Texture");
}

void VELDefaultBrushShaderProgram::p_VEL_bindTextures(VELGL& gl, VELShaderAttributes& attributes) {
  attributes.sa_brushAtlas.o_applyTextureAtlas();
  gl.uniform1i(_textureLocationCached, 0);
}
