#include "velmora/rendering/gl_state.h"

#include <algorithm>

#include "velmora/platform/gl_baseline.h"
#include "velmora/platform/gl_context.h"

namespace {

constexpr uint32_t attributeSlots = 3;

VELGL* currentGL() {
  VELGLContext* const context = VELGLContext::current();
  return context ? &context->gl() : nullptr;
}

}  // namespace

void VELGLState::prepareForDrawing() {
  forget();
  VELGL* const gl = currentGL();
  if (!gl) return;
  VELGLSetBaseline(*gl);
  _blending = true;
  _isDrawing = true;
  gl->enable(VELGL_SCISSOR_TEST);
}

void VELGLState::finishDrawing() {
  VELGL* const gl = currentGL();
  if (!gl) return;
  setAttributeArrays(false);
  setBlending(false);
  gl->disable(VELGL_SCISSOR_TEST);
  forget();
}

void VELGLState::setBlending(bool on) {
  VELGL* const gl = currentGL();
  if (!gl || _blending == on) return;
  _blending = on;
  on ? gl->enable(VELGL_BLEND) : gl->disable(VELGL_BLEND);
}

void VELGLState::setViewport(int32_t x, int32_t y, int32_t width, int32_t height) {
  VELGL* const gl = currentGL();
  const Box box = {x, y, width, height};
  if (!gl || _viewport == box) return;
  _viewport = box;
  gl->viewport(x, y, width, height);
}

void VELGLState::setScissor(int32_t x, int32_t y, int32_t width, int32_t height) {
  VELGL* const gl = currentGL();
  // GL refuses negative extents and would keep the former box.
  const Box box = {x, y, std::max(width, 0), std::max(height, 0)};
  if (!gl || _scissor == box) return;
  _scissor = box;
  gl->scissor(box[0], box[1], box[2], box[3]);
}

void VELGLState::setAttributeArrays(bool on) {
  VELGL* const gl = currentGL();
  if (!gl || _attributeArrays == on) return;
  _attributeArrays = on;
  for (uint32_t slot = 0; slot < attributeSlots; ++slot)
    on ? gl->enableVertexAttribArray(slot) : gl->disableVertexAttribArray(slot);
}
