#include "velmora/rendering/brush_shader_controller.h"

#include "velmora/rendering/opengl_context_controller.h"

void VELBrushShaderController::o_getBufferValuesForPostion(uint32_t& position, uint32_t& color,
                                                           uint32_t& texture) {
  VELOpenGLContextController::o_getBufferForPostion(position, color, texture);
}

void VELBrushShaderController::o_reset(VELShaderAttributes& attributes) {
  attributes.sa_defaultShaderActivated = false;
  attributes.sa_textureShaderActivated = false;
  attributes.sa_palettedTextureShaderActivated = false;
  attributes.sa_coloredTextureShaderActivated = false;
}

void VELBrushShaderController::o_enableBuffers() {
  if (!VELOpenGLContextController::o_buffersEnabled()) VELOpenGLContextController::o_enableContextBuffers();
}

void VELBrushShaderController::o_disableBuffers() {
  if (VELOpenGLContextController::o_buffersEnabled()) VELOpenGLContextController::o_disableContextBuffers();
}

void VELBrushShaderController::o_applyDefaultBrushShader(VELShaderAttributes& attributes) {
  o_enableBuffers();
  VELBrushShaderProgram* const program = VELOpenGLContextController::o_defaultBrushShader(attributes);
  if (!program) return;
  program->o_apply(attributes, attributes.sa_defaultShaderActivated);
  o_reset(attributes);
  attributes.sa_defaultShaderActivated = true;
}
