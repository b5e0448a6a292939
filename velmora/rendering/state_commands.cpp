#include "velmora/rendering/state_commands.h"

#include "velmora/data/saturate.h"
#include "velmora/platform/gl_context.h"
#include "velmora/rendering/opengl_context_controller.h"

void VELSetDrawingBufferCommand::o_performCommand() {
  if (!_buffer) return;
  _buffer->o_selectVertexBuffers();
  _buffer->o_uploadBuffersForDrawing();
  _buffer->o_setupAttribPointersForPosition(_position, _color, _texture);
}

void VELSetShaderCommand::o_performCommand() {
  if (_brush && _attributes) _brush->apply(*_attributes);
}

void VELSetBrushCommand::o_performCommand() {
  if (_brush && _attributes) _brush->apply(*_attributes);
}

void VELAlphaBlendingModeCommand::o_performCommand() {
  VELGLState* const state = VELOpenGLContextController::o_currentState();
  if (state && _mode <= 1) state->setBlending(_mode == 1);
}

bool VELSetDrawingAreaCommand::isEqual(const VELSetDrawingAreaCommand* other) const {
  const VELRect zero;
  return _frame == (other ? other->_frame : zero) && _scissor == (other ? other->_scissor : zero);
}

void VELSetDrawingAreaCommand::o_performCommand() {
  if (!_attributes) return;
  VELShaderAttributes& attributes = *_attributes;
  const VELMatrix view = VELMatrixTranslate(attributes.sa_viewMatrix, static_cast<float>(_frame.x),
                                            static_cast<float>(_frame.y));
  attributes.sa_totalMatrix = VELMatrixMultiply(attributes.sa_projectionMatrix, view);
  VELGLContext* const context = VELGLContext::current();
  // Without an active program the location is stale; the next brush uploads the matrix when it activates one.
  if (context && attributes.isAnyShaderActivated())
    context->gl().uniformMatrix4fv(static_cast<int32_t>(attributes.sa_projectionUniform),
                                   attributes.sa_totalMatrix);
  if (VELGLState* const state = VELOpenGLContextController::o_currentState())
    state->setScissor(VELSaturate<int32_t>(_scissor.x), VELSaturate<int32_t>(_scissor.y),
                      VELSaturate<int32_t>(_scissor.width), VELSaturate<int32_t>(_scissor.height));
}
