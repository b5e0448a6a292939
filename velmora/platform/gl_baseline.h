// platform/gl_baseline.h: the GL state that everything the library draws starts from.
#pragma once

#include "velmora/platform/export.h"
#include "velmora/platform/gl.h"

/// Sets whatever a host, another library or an earlier frame may have left behind, except for what every
/// frame chooses itself: framebuffer, viewport, clip box, program, textures and vertex attributes.
///
/// After it: tests, clipping, dithering and coverage by alpha off; all colours written; source over target
/// with blending on, where the alpha of an opaque target stays opaque; unit 0 active; rows of pixels aligned
/// to 4 bytes without gaps; no object of ES 3 in the way. Depth and stencil masks are left alone: nothing
/// that the library draws into has either.
VELMORA_API void VELGLSetBaseline(VELGL& gl);
