// platform/gl_layer.h: the pixels of one render surface, as the host shows them.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/platform/export.h"
#include "velmora/platform/gl_context.h"

/// Colour storage that a framebuffer draws into and a composer reads.
///
/// It is a texture, not a renderbuffer: that is the one kind of colour storage which ES 2.0 can both draw
/// into and show again, so window and picture take the same way. Row 0 is the bottom row.
class VELMORA_API VELGLLayer {
 public:
  /// @param context where the storage lives, held strongly
  explicit VELGLLayer(std::shared_ptr<VELGLContext> context);
  VELGLLayer(const VELGLLayer&) = delete;
  VELGLLayer& operator=(const VELGLLayer&) = delete;
  ~VELGLLayer();

  /// New storage of a size in pixels, at least 1 by 1 and limited to what GL can hold; contents undefined.
  /// The context must be current. An equal size keeps the storage.
  void allocate(int32_t width, int32_t height);
  /// Attaches the storage as colour of the bound framebuffer.
  void attachToFramebuffer();
  /// Tells the host that a frame is complete.
  void present() { ++_presented; }

  int32_t width() const { return _width; }
  int32_t height() const { return _height; }
  uint32_t texture() const { return _texture; }
  /// Number of frames presented; 0 means there is nothing to show yet.
  uint64_t presentedCount() const { return _presented; }

 private:
  std::shared_ptr<VELGLContext> _context;
  uint32_t _texture = 0;
  int32_t _width = 0;
  int32_t _height = 0;
  uint64_t _presented = 0;
};
