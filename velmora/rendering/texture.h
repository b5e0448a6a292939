// rendering/texture.h: pixels that shaders sample.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "velmora/platform/gl_context.h"

/// A texture of RGBA bytes, rows tightly packed.
///
/// Sampled with the nearest texel and clamped to the edge: rows of an atlas must not bleed into each other.
class VELTextureOpenGL {
 public:
  /// @param pixels 4 × width × height bytes, copied
  /// @param context where the texture lives, held weakly; null for the current one. It is made current.
  VELTextureOpenGL(std::span<const uint8_t> pixels, int32_t width, int32_t height,
                   const std::shared_ptr<VELGLContext>& context = nullptr);
  VELTextureOpenGL(const VELTextureOpenGL&) = delete;
  VELTextureOpenGL& operator=(const VELTextureOpenGL&) = delete;
  ~VELTextureOpenGL();

  /// Replaces the pixels from the top left on. The context must be current.
  void updateWithByteData(std::span<const uint8_t> pixels, int32_t width, int32_t height);
  /// True while GL knows the texture. The context must be current.
  bool isValid() const;
  /// GL name; 0 when there was no context.
  uint32_t textureId() const { return _textureId; }

 private:
  uint32_t _textureId = 0;
  std::weak_ptr<VELGLContext> _parentContext;
};
