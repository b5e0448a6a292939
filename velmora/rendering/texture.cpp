#include "velmora/rendering/texture.h"

namespace {

bool holds(std::span<const uint8_t> pixels, int32_t width, int32_t height) {
  return width > 0 && height > 0 &&
         pixels.size() / 4 / static_cast<size_t>(width) >= static_cast<size_t>(height);
}

}  // namespace

VELTextureOpenGL::VELTextureOpenGL(std::span<const uint8_t> pixels, int32_t width, int32_t height,
                                   const std::shared_ptr<VELGLContext>& context) {
  VELGLContext* const parent = context ? context.get() : VELGLContext::current();
  if (!parent || !holds(pixels, width, height)) return;
  const VELGLContextScope scope(*parent);
  if (!scope.isCurrent()) return;
  _parentContext = parent->weak_from_this();
  VELGL& gl = parent->gl();
  _textureId = gl.genTexture();
  gl.bindTexture(VELGL_TEXTURE_2D, _textureId);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_MIN_FILTER, VELGL_NEAREST);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_MAG_FILTER, VELGL_NEAREST);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_WRAP_S, VELGL_CLAMP_TO_EDGE);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_WRAP_T, VELGL_CLAMP_TO_EDGE);
  gl.pixelStorei(VELGL_UNPACK_ALIGNMENT, 4);
  gl.texImage2D(VELGL_TEXTURE_2D, VELGL_RGBA, width, height, pixels.data());
}

VELTextureOpenGL::~VELTextureOpenGL() {
  const auto context = _parentContext.lock();
  if (!context || _textureId == 0) return;
  const VELGLContextScope scope(*context);
  if (scope.isCurrent()) context->gl().deleteTexture(_textureId);
}

void VELTextureOpenGL::updateWithByteData(std::span<const uint8_t> pixels, int32_t width, int32_t height) {
  VELGLContext* const current = VELGLContext::current();
  if (!current || _textureId == 0 || !holds(pixels, width, height)) return;
  VELGL& gl = current->gl();
  gl.bindTexture(VELGL_TEXTURE_2D, _textureId);
  gl.pixelStorei(VELGL_UNPACK_ALIGNMENT, 4);
  gl.texSubImage2D(VELGL_TEXTURE_2D, 0, 0, width, height, VELGL_RGBA, pixels.data());
}

bool VELTextureOpenGL::isValid() const {
  VELGLContext* const current = VELGLContext::current();
  return current && _textureId != 0 && current->gl().isTexture(_textureId);
}
