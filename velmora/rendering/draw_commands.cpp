#include "velmora/rendering/draw_commands.h"

#include "velmora/platform/gl_context.h"

void VELDrawIndicesCommand::o_performCommand() {
  VELGLContext* const context = VELGLContext::current();
  if (!context) return;
  context->gl().drawElements(_mode, static_cast<int32_t>(_count), VELGL_UNSIGNED_SHORT,
                             size_t{_start} * sizeof(uint16_t));
}
