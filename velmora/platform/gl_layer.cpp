#include "velmora/platform/gl_layer.h"

#include <algorithm>
#include <utility>

VELGLLayer::VELGLLayer(std::shared_ptr<VELGLContext> context)
    : _context(std::move(context)), _generation(_context->generation()) {}

VELGLLayer::~VELGLLayer() {
  if (_texture == 0) return;
  const VELGLContextScope scope(*_context);
  if (scope.isCurrent() && !isLost()) _context->gl().deleteTexture(_texture);
}

int32_t VELGLLayer::largestSide() {
  VELGL& gl = _context->gl();
  if (_largestSide == 0)
    _largestSide = std::max(
        1, std::min(gl.getInteger(VELGL_MAX_TEXTURE_SIZE), gl.getInteger(VELGL_MAX_RENDERBUFFER_SIZE)));
  return _largestSide;
}

void VELGLLayer::allocate(int32_t width, int32_t height) {
  VELGL& gl = _context->gl();
  if (isLost()) {
    _generation = _context->generation();
    _texture = 0;
    _largestSide = 0;
    _isPresented = false;
  }
  width = std::clamp(width, 1, largestSide());
  height = std::clamp(height, 1, largestSide());
  if (_texture != 0 && width == _width && height == _height) return;

  if (_texture == 0) _texture = gl.genTexture();
  gl.bindTexture(VELGL_TEXTURE_2D, _texture);
  // Clamped, and without mipmaps: the two conditions under which ES 2.0 samples a texture of any size.
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_WRAP_S, VELGL_CLAMP_TO_EDGE);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_WRAP_T, VELGL_CLAMP_TO_EDGE);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_MIN_FILTER, VELGL_LINEAR);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_MAG_FILTER, VELGL_LINEAR);
  // A pixel buffer that a host left bound would take the place of the pixels that are not given.
  gl.resetES3State();
  gl.texImage2D(VELGL_TEXTURE_2D, VELGL_RGBA, width, height, nullptr);
  gl.bindTexture(VELGL_TEXTURE_2D, 0);
  _width = width;
  _height = height;
  _isPresented = false;
}

void VELGLLayer::present() {
  ++_presented;
  _isPresented = true;
}

void VELGLLayer::attachToFramebuffer() {
  _context->gl().framebufferTexture2D(VELGL_FRAMEBUFFER, VELGL_COLOR_ATTACHMENT0, VELGL_TEXTURE_2D,
                                      texture());
}
