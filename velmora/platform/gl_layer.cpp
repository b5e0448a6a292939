#include "velmora/platform/gl_layer.h"

#include <algorithm>
#include <utility>

VELGLLayer::VELGLLayer(std::shared_ptr<VELGLContext> context)
    : _context(std::move(context)), _generation(_context->generation()) {}

VELGLLayer::~VELGLLayer() { release(); }

void VELGLLayer::release() {
  if (_texture == 0) return;
  const VELGLContextScope scope(*_context, _generation);
  if (scope.isCurrent()) _context->gl().deleteTexture(_texture);
  _texture = 0;
  _isPresented = false;
}

void VELGLLayer::forgetLostStorage() {
  if (!isLost()) return;
  _generation = _context->generation();
  _texture = 0;
  _largestSide = 0;
  _isPresented = false;
}

int32_t VELGLLayer::largestSide() {
  VELGL& gl = _context->gl();
  // The driver that came back need not be the one that went.
  forgetLostStorage();
  if (_largestSide == 0)
    _largestSide = std::max(
        1, std::min(gl.getInteger(VELGL_MAX_TEXTURE_SIZE), gl.getInteger(VELGL_MAX_RENDERBUFFER_SIZE)));
  return _largestSide;
}

void VELGLLayer::allocate(int32_t width, int32_t height) {
  VELGL& gl = _context->gl();
  forgetLostStorage();
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
