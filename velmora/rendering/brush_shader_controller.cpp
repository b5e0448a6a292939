#include "velmora/rendering/brush_shader_controller.h"

#include "velmora/rendering/opengl_context_controller.h"

namespace {

/// @param flag of the program among the four of the attributes
template <typename GetProgram>
void apply(GetProgram getProgram, VELShaderAttributes& attributes, bool& flag) {
  VELBrushShaderController::o_enableBuffers();
  VELBrushShaderProgram* const program = getProgram(attributes);
  if (!program) return;
  program->o_apply(attributes, flag);
  VELBrushShaderController::o_reset(attributes);
  flag = true;
}

}  // namespace

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
  apply(VELOpenGLContextController::o_defaultBrushShader, attributes, attributes.sa_defaultShaderActivated);
}

void VELBrushShaderController::o_applyTextureBrushShader(VELShaderAttributes& attributes) {
  apply(VELOpenGLContextController::o_textureBrushShader, attributes, attributes.sa_textureShaderActivated);
}

void VELBrushShaderController::o_applyPalettedTextureBrushShader(VELShaderAttributes& attributes) {
  apply(VELOpenGLContextController::o_palettedTextureBrushShader, attributes,
        attributes.sa_palettedTextureShaderActivated);
}

void VELBrushShaderController::o_applyColoredTextureBrushShader(VELShaderAttributes& attributes) {
  apply(VELOpenGLContextController::o_coloredTextureBrushShader, attributes,
        attributes.sa_coloredTextureShaderActivated);
}
