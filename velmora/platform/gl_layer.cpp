#include "velmora/platform/gl_layer.h"

#include <algorithm>
#include <utility>

VELGLLayer::VELGLLayer(std::shared_ptr<VELGLContext> context) : _context(std::move(context)) {}

VELGLLayer::~VELGLLayer() {
  if (_texture == 0) return;
  const VELGLContextScope scope(*_context);
  if (scope.isCurrent()) _context->gl().deleteTexture(_texture);
}

void VELGLLayer::allocate(int32_t width, int32_t height) {
  VELGL& gl = _context->gl();
  const int32_t largest = std::max(1, gl.getInteger(VELGL_MAX_TEXTURE_SIZE));
  width = std::clamp(width, 1, largest);
  height = std::clamp(height, 1, largest);
  if (_texture != 0 && width == _width && height == _height) return;

  if (_texture == 0) _texture = gl.genTexture();
  gl.bindTexture(VELGL_TEXTURE_2D, _texture);
  // Clamped, and without mipmaps: the two conditions under which ES 2.0 samples a texture of any size.
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_WRAP_S, VELGL_CLAMP_TO_EDGE);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_WRAP_T, VELGL_CLAMP_TO_EDGE);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_MIN_FILTER, VELGL_LINEAR);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_MAG_FILTER, VELGL_LINEAR);
  gl.texImage2D(VELGL_TEXTURE_2D, VELGL_RGBA, width, height, nullptr);
  gl.bindTexture(VELGL_TEXTURE_2D, 0);
  _width = width;
  _height = height;
}

void VELGLLayer::attachToFramebuffer() {
  _context->gl().framebufferTexture2D(VELGL_FRAMEBUFFER, VELGL_COLOR_ATTACHMENT0, VELGL_TEXTURE_2D, _texture);
}
