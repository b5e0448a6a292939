#include "velmora/rendering/texture.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <utility>

#include "velmora/rendering/gradient_ramp.h"
#include "velmora/rendering/opengl_context_controller.h"

namespace {

constexpr size_t channels = 4;
// No GL holds more; what it really holds is asked where the texture is made.
constexpr int32_t largestSide = 32768;
constexpr size_t largestTexels = size_t{1} << 28;

size_t texels(int32_t width, int32_t height) {
  return static_cast<size_t>(width) * static_cast<size_t>(height);
}

bool isPossible(int32_t width, int32_t height) {
  return width > 0 && height > 0 && width <= largestSide && height <= largestSide &&
         texels(width, height) <= largestTexels;
}

bool holds(size_t values, size_t perTexel, int32_t width, int32_t height) {
  return isPossible(width, height) && values / perTexel >= texels(width, height);
}

// Outside of a frame of a surface nobody has set what the meaning of an upload hangs on.
void prepareUpload(VELGL& gl) {
  if (!VELOpenGLContextController::isInFrame()) gl.resetES3State();
}

/// Whether GL took the pixels: it may have no memory for them.
bool uploads(VELGLContext& context, int32_t width, int32_t height, const void* pixels) {
  // A lost context notes errors of its own; the texture is made again with the rest.
  if (context.checkLost()) return false;
    // What was noted until now is no answer to this. In a debug build the frame is asked for it.
#ifndef NDEBUG
  if (VELOpenGLContextController::isInFrame()) context.checkErrors();
#endif
  context.forgetErrors();
  context.gl().texImage2D(VELGL_TEXTURE_2D, VELGL_RGBA, width, height, pixels);
  return context.gl().getError() == VELGL_NO_ERROR;
}

uint8_t byteOf(float value) {
  // Written so that NaN is 0.
  if (!(value > 0.0f)) return 0;
  return value < 1.0f ? static_cast<uint8_t>(std::lround(value * 255.0f)) : uint8_t{255};
}

}  // namespace

VELTextureOpenGL::VELTextureOpenGL(std::span<const uint8_t> pixels, int32_t width, int32_t height,
                                   const ContextPtr& context) {
  if (!holds(pixels.size(), channels, width, height)) return;
  pixels = pixels.first(texels(width, height) * channels);
  _pixels.assign(pixels.begin(), pixels.end());
  _width = width;
  _height = height;
  p_VEL_make(context);
}

VELTextureOpenGL::VELTextureOpenGL(std::span<const float> pixels, int32_t width, int32_t height,
                                   const ContextPtr& context) {
  if (!holds(pixels.size(), channels, width, height)) return;
  _pixels.resize(texels(width, height) * channels);
  std::transform(pixels.begin(), pixels.begin() + std::ssize(_pixels), _pixels.begin(), byteOf);
  _width = width;
  _height = height;
  p_VEL_make(context);
}

VELTextureOpenGL::VELTextureOpenGL(const VELBitmap& image, const ContextPtr& context)
    : VELTextureOpenGL(image.pixels(), image.width(), image.height(), context) {}

VELTextureOpenGL::VELTextureOpenGL(std::span<const double> coords, std::span<const uint32_t> colorCodes,
                                   int32_t detalization, const ContextPtr& context) {
  if (!isPossible(detalization, 1)) return;
  const auto ramp = VELGradientRamp(VELGradientStops(coords, colorCodes), static_cast<size_t>(detalization));
  if (ramp.empty()) return;
  _pixels.resize(ramp.size() * channels);
  std::memcpy(_pixels.data(), ramp.data(), _pixels.size());
  _width = detalization;
  _height = 1;
  p_VEL_make(context);
}

VELTextureOpenGL::VELTextureOpenGL(int32_t width, int32_t height) {
  if (!isPossible(width, height)) return;
  _pixels.resize(texels(width, height) * channels);
  _width = width;
  _height = height;
}

std::shared_ptr<VELTextureOpenGL> VELTextureOpenGL::withValues(std::span<const float> values, int32_t width,
                                                               int32_t height, const ContextPtr& context) {
  std::vector<uint8_t> pixels;
  if (holds(values.size(), 1, width, height)) {
    pixels.resize(texels(width, height) * channels);
    for (size_t i = 0; i < pixels.size() / channels; ++i)
      std::fill_n(pixels.begin() + static_cast<ptrdiff_t>(i * channels), channels, byteOf(values[i]));
  }
  return std::make_shared<VELTextureOpenGL>(std::span<const uint8_t>(pixels), width, height, context);
}

std::shared_ptr<VELTextureOpenGL> VELTextureOpenGL::fromPng(const std::string& path, std::string* failure,
                                                            const ContextPtr& context) {
  const auto image = VELBitmap::readPng(path, failure);
  return image ? std::make_shared<VELTextureOpenGL>(*image, context) : nullptr;
}

VELTextureOpenGL::~VELTextureOpenGL() {
  for (const InContext& texture : _textures) {
    const auto context = texture.context.lock();
    if (!context) continue;
    const VELGLContextScope scope(*context, texture.generation);
    if (scope.isCurrent()) context->gl().deleteTexture(texture.name);
  }
}

void VELTextureOpenGL::setFilter(VELTextureFilter filter) {
  if (_filter == filter) return;
  _filter = filter;
  for (InContext& texture : _textures) texture.hasFilter = false;
}

void VELTextureOpenGL::updateWithByteData(std::span<const uint8_t> pixels, int32_t width, int32_t height) {
  if (!holds(pixels.size(), channels, width, height) || width > _width || height > _height) return;
  const size_t bytes = static_cast<size_t>(width) * channels;
  for (int32_t row = 0; row < height; ++row)
    std::memcpy(_pixels.data() + texels(_width, row) * channels,
                pixels.data() + texels(width, row) * channels, bytes);
  p_VEL_rowsChanged(0, height);
}

std::span<uint8_t> VELTextureOpenGL::editRows(int32_t first, int32_t count) {
  if (first < 0 || count <= 0 || count > _height || first > _height - count) return {};
  p_VEL_rowsChanged(first, first + count);
  return std::span(_pixels).subspan(texels(_width, first) * channels, texels(_width, count) * channels);
}

void VELTextureOpenGL::p_VEL_rowsChanged(int32_t first, int32_t end) {
  for (InContext& texture : _textures) {
    const bool isClean = texture.changedFirst == texture.changedEnd;
    texture.changedFirst = isClean ? first : std::min(texture.changedFirst, first);
    texture.changedEnd = isClean ? end : std::max(texture.changedEnd, end);
  }
}

bool VELTextureOpenGL::isValid() const {
  if (isEmpty() || _textures.empty()) return false;
  const auto context = parentContext();
  if (!context) return false;
  const VELGLContextScope scope(*context, _textures.front().generation);
  return scope.isCurrent() && context->gl().isTexture(_textures.front().name);
}

bool VELTextureOpenGL::isSameAs(const VELTextureOpenGL& other) const {
  if (this == &other) return true;
  const auto context = parentContext();
  return context && context == other.parentContext() && textureId() == other.textureId();
}

void VELTextureOpenGL::makeAgainIfLost() {
  if (!_textures.empty() && !isValid()) _textures.erase(_textures.begin());
}

void VELTextureOpenGL::p_VEL_make(const ContextPtr& context) {
  VELGLContext* const parent = context ? context.get() : VELGLContext::current();
  if (!parent) return;
  const VELGLContextScope scope(*parent);
  if (!scope.isCurrent()) return;
  const int32_t limit = parent->gl().getInteger(VELGL_MAX_TEXTURE_SIZE);
  if (_width > limit || _height > limit) {
    _pixels = {};
    _width = _height = 0;
    return;
  }
  parent->gl().activeTexture(VELGL_TEXTURE0);
  p_VEL_bringUpToDate(p_VEL_in(*parent), parent->gl());
}

// The texture in a context that is current, not necessarily bound there unless it was just made.
VELTextureOpenGL::InContext& VELTextureOpenGL::p_VEL_in(VELGLContext& context) {
  const auto shared = context.weak_from_this();
  auto found = std::ranges::find_if(_textures, [&](const InContext& texture) {
    return !texture.context.owner_before(shared) && !shared.owner_before(texture.context);
  });
  if (found == _textures.end()) {
    std::erase_if(_textures, [](const InContext& texture) { return texture.context.expired(); });
    _textures.emplace_back().context = shared;
    found = _textures.end() - 1;
  }
  if (found->generation != context.generation()) p_VEL_create(*found, context);
  return *found;
}

void VELTextureOpenGL::p_VEL_create(InContext& texture, VELGLContext& context) const {
  static constexpr uint8_t nothing[channels] = {};
  VELGL& gl = context.gl();
  texture.generation = context.generation();
  texture.name = gl.genTexture();
  texture.hasFilter = false;
  const int32_t limit = gl.getInteger(VELGL_MAX_TEXTURE_SIZE);
  texture.changedFirst = texture.changedEnd = 0;
  gl.bindTexture(VELGL_TEXTURE_2D, texture.name);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_WRAP_S, VELGL_CLAMP_TO_EDGE);
  gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_WRAP_T, VELGL_CLAMP_TO_EDGE);
  prepareUpload(gl);
  gl.pixelStorei(VELGL_UNPACK_ALIGNMENT, 4);
  const bool fits = !isEmpty() && _width <= limit && _height <= limit;
  texture.hasPixels = fits && uploads(context, _width, _height, _pixels.data());
  if (fits && !texture.hasPixels && !context.isLost())
    std::fprintf(stderr, "OpenGL has no memory for a picture of %d x %d pixels; it is not drawn.\n", _width,
                 _height);
  if (!texture.hasPixels) gl.texImage2D(VELGL_TEXTURE_2D, VELGL_RGBA, 1, 1, nothing);
}

void VELTextureOpenGL::bind(uint32_t unit) {
  VELGLContext* const context = VELGLContext::current();
  if (!context) return;
  VELGL& gl = context->gl();
  gl.activeTexture(VELGL_TEXTURE0 + unit);
  InContext& texture = p_VEL_in(*context);
  gl.bindTexture(VELGL_TEXTURE_2D, texture.name);
  p_VEL_bringUpToDate(texture, gl);
  if (unit != 0) gl.activeTexture(VELGL_TEXTURE0);
}

// The texture is bound.
void VELTextureOpenGL::p_VEL_bringUpToDate(InContext& texture, VELGL& gl) const {
  if (!texture.hasFilter) {
    const int32_t filter = _filter == VELTextureFilter_Nearest ? VELGL_NEAREST : VELGL_LINEAR;
    gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_MIN_FILTER, filter);
    gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_MAG_FILTER, filter);
    texture.hasFilter = true;
  }
  const int32_t rows = texture.changedEnd - texture.changedFirst;
  if (rows <= 0 || !texture.hasPixels) return;
  prepareUpload(gl);
  gl.pixelStorei(VELGL_UNPACK_ALIGNMENT, 4);
  gl.texSubImage2D(VELGL_TEXTURE_2D, 0, texture.changedFirst, _width, rows, VELGL_RGBA,
                   _pixels.data() + texels(_width, texture.changedFirst) * channels);
  texture.changedFirst = texture.changedEnd = 0;
}
