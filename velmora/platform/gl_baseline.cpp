#include "velmora/platform/gl_baseline.h"

void VELGLSetBaseline(VELGL& gl) {
  for (const uint32_t capability : {VELGL_CULL_FACE, VELGL_DEPTH_TEST, VELGL_STENCIL_TEST, VELGL_SCISSOR_TEST,
                                    VELGL_DITHER, VELGL_SAMPLE_ALPHA_TO_COVERAGE, VELGL_SAMPLE_COVERAGE})
    gl.disable(capability);
  gl.colorMask(true, true, true, true);
  gl.blendEquation(VELGL_FUNC_ADD);
  // The alpha factors keep an opaque target opaque: 0-to-1 alphas never take anything away from it.
  gl.blendFuncSeparate(VELGL_SRC_ALPHA, VELGL_ONE_MINUS_SRC_ALPHA, VELGL_ONE_MINUS_DST_ALPHA, VELGL_ONE);
  gl.enable(VELGL_BLEND);
  gl.activeTexture(VELGL_TEXTURE0);
  gl.pixelStorei(VELGL_UNPACK_ALIGNMENT, 4);
  gl.pixelStorei(VELGL_PACK_ALIGNMENT, 4);
  gl.resetES3State();
}
