#include "velmora/rendering/brush_shader_program.h"

#include <cstdio>
#include <string>

#include "velmora/rendering/shader_attributes.h"

namespace {

constexpr size_t logLimit = 256;

void logFailure(const std::string& words) { std::fprintf(stderr, "%s\n", words.c_str()); }

}  // namespace

VELBrushShaderProgram::VELBrushShaderProgram(const VELShaderAttributes& attributes)
    : _positionBuffer(attributes.sa_positionBuffer),
      _colorBuffer(attributes.sa_colorBuffer),
      _texCoordBuffer(attributes.sa_textureBuffer) {}

uint32_t VELBrushShaderProgram::p_VEL_compile(VELGL& gl, uint32_t type, std::string_view source) const {
  const uint32_t shader = gl.createShader(type);
  gl.shaderSource(shader, source);
  gl.compileShader(shader);
  if (gl.getShader(shader, VELGL_COMPILE_STATUS) == 0) logFailure(gl.getShaderInfoLog(shader, logLimit));
  return shader;
}

void VELBrushShaderProgram::o_compileShaderProgram() {
  VELGLContext* const context = VELGLContext::current();
  if (!context) return;
  VELGL& gl = context->gl();
  _vertexShader = p_VEL_compile(gl, VELGL_VERTEX_SHADER, p_VEL_sources().o_getVertexShader());
  _fragmentShader = p_VEL_compile(gl, VELGL_FRAGMENT_SHADER, p_VEL_sources().o_getFragmentShader());
  _shaderProgram = gl.createProgram();
  gl.attachShader(_shaderProgram, _vertexShader);
  gl.attachShader(_shaderProgram, _fragmentShader);
  gl.bindAttribLocation(_shaderProgram, _positionBuffer, "Position");
  gl.bindAttribLocation(_shaderProgram, _colorBuffer, "SourceColor");
  gl.bindAttribLocation(_shaderProgram, _texCoordBuffer, "TexCoordIn");
  gl.linkProgram(_shaderProgram);
  if (gl.getProgram(_shaderProgram, VELGL_LINK_STATUS) == 0)
    logFailure(gl.getProgramInfoLog(_shaderProgram, logLimit));
  _positionSlotCached = static_cast<uint32_t>(gl.getAttribLocation(_shaderProgram, "Position"));
  _colorSlotCached = static_cast<uint32_t>(gl.getAttribLocation(_shaderProgram, "SourceColor"));
  _texCoordSlotCached = static_cast<uint32_t>(gl.getAttribLocation(_shaderProgram, "TexCoordIn"));
  _projectionUniformCached = static_cast<uint32_t>(gl.getUniformLocation(_shaderProgram, "Projection"));
  p_VEL_cacheSamplers(gl, _shaderProgram);
}

void VELBrushShaderProgram::o_freeShader() {
  VELGLContext* const context = VELGLContext::current();
  if (!context || _shaderProgram == 0) return;
  context->gl().deleteShader(_vertexShader);
  context->gl().deleteShader(_fragmentShader);
  context->gl().deleteProgram(_shaderProgram);
  _vertexShader = _fragmentShader = _shaderProgram = 0;
  _currentMatrix.reset();
}

void VELBrushShaderProgram::o_apply(VELShaderAttributes& attributes, bool isInUse) {
  VELGLContext* const context = VELGLContext::current();
  if (!context) return;
  VELGL& gl = context->gl();
  if (!isInUse) gl.useProgram(_shaderProgram);
  attributes.sa_positionSlot = _positionSlotCached;
  attributes.sa_colorSlot = _colorSlotCached;
  attributes.sa_texCoordSlot = _texCoordSlotCached;
  attributes.sa_projectionUniform = _projectionUniformCached;
  if (isInUse) {
    if (_currentMatrix != attributes.sa_totalMatrix) p_VEL_upload(gl, attributes.sa_totalMatrix);
    return;
  }
  p_VEL_upload(gl, attributes.sa_totalMatrix);
  p_VEL_bindTextures(gl, attributes);
}

void VELBrushShaderProgram::p_VEL_upload(VELGL& gl, const VELMatrix& matrix) {
  gl.uniformMatrix4fv(static_cast<int32_t>(_projectionUniformCached), matrix);
  _currentMatrix = matrix;
}
