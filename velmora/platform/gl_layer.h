// platform/gl_layer.h: the pixels of one render surface, as the host shows them.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/platform/export.h"
#include "velmora/platform/gl_context.h"

/// Colour storage that a framebuffer draws into and a composer reads.
///
/// It is a texture, not a renderbuffer: that is the one kind of colour storage which ES 2.0 can both draw
/// into and show again, so window and picture take the same way. Row 0 is the bottom row. When the GL context
/// is lost the storage is gone until it is allocated again.
class VELMORA_API VELGLLayer {
 public:
  /// @param context where the storage lives, held strongly
  explicit VELGLLayer(std::shared_ptr<VELGLContext> context);
  VELGLLayer(const VELGLLayer&) = delete;
  VELGLLayer& operator=(const VELGLLayer&) = delete;
  ~VELGLLayer();

  /// Pixels a side that GL can hold in a texture and in a renderbuffer. The context must be current.
  int32_t largestSide();
  /// New storage of a size in pixels, limited to 1 … `largestSide()`; contents undefined, nothing presented.
  /// The context must be current. An equal size keeps the storage.
  void allocate(int32_t width, int32_t height);
  /// Gives the storage back to GL, if that still knows it; the size stays. Whichever context is current.
  void release();
  /// Attaches the storage as colour of the bound framebuffer.
  void attachToFramebuffer();
  /// Tells the host that a frame is complete.
  void present();

  int32_t width() const { return _width; }
  int32_t height() const { return _height; }
  /// GL name; 0 while there is no storage.
  uint32_t texture() const { return isLost() ? 0 : _texture; }
  /// True when the storage holds a complete frame.
  bool isPresented() const { return _isPresented && !isLost(); }
  /// True when the storage is one of @p context: its GL name means something there.
  bool isIn(const VELGLContext& context) const { return _context.get() == &context; }
  /// True when the storage went with a lost context.
  bool isLost() const { return _context->hasLost(_generation); }
  /// Number of frames presented, in whatever storage.
  uint64_t presentedCount() const { return _presented; }

 private:
  void forgetLostStorage();

  std::shared_ptr<VELGLContext> _context;
  uint32_t _generation;  ///< of the context, when the storage was made
  uint32_t _texture = 0;
  bool _isPresented = false;
  int32_t _largestSide = 0;
  int32_t _width = 0;
  int32_t _height = 0;
  uint64_t _presented = 0;
};
