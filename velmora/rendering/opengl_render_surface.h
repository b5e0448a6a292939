// rendering/opengl_render_surface.h: shows three render contexts through OpenGL ES 2.0.
//
// Units: points for frames, pixels for the layer and the framebuffers. A layer has as many whole pixels as
// the frame touches, counted from its top left corner. A frame with more pixels a side than GL can hold is
// drawn with fewer pixels a point and stretched by whoever shows it.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/platform/color.h"
#include "velmora/platform/gl_context.h"
#include "velmora/platform/gl_layer.h"
#include "velmora/platform/host.h"
#include "velmora/rendering/render_surface_base.h"

class VELOpenGLRenderContext;

/// A render surface that draws into a layer of the host, at the beats of the host's display link.
///
/// Always true: an opaque background colour gives an opaque picture; the background of the style covers every
/// pixel of the layer. When the GL context is lost the surface needs the display, and the next refresh shows
/// the recorded contexts again as they were: nobody has to draw anew.
class VELMORA_API VELOpenGLRenderSurface final : public VELRenderSurfaceBase {
  /// Only `initWithFrame` has one: every surface is registered with its GL context.
  struct Key {
    explicit Key() = default;
  };

 public:
  /// A surface on the GL context of @p host, with its three contexts; ready to draw. A density of the host
  /// that is no positive number counts as 1.
  /// @return null when the host has no GL context
  static std::shared_ptr<VELOpenGLRenderSurface> initWithFrame(const VELRect& frame, VELHost& host);

  VELOpenGLRenderSurface(Key, const VELRect& frame, VELHost& host);
  ~VELOpenGLRenderSurface() override;

  std::shared_ptr<VELDisplayLink> displayLink() const override { return _displayLink.lock(); }
  /// As the base does; also true until the layer holds a whole frame. A surface that was freed, or whose GL
  /// context was, waits for nothing.
  bool needsDisplay() const override;
  void onRenderTimeElapsed() override;
  void layoutSubviews() override;
  void compose(VELComposer& composer, const VELRect& frameInRoot) override;
  void drawBackground(VELRenderContext2D& context, const VELRenderSurfaceStyle& style) override;
  void free() override;

  /// Vertices, and as many indices, of each drawing buffer; 65536 unless set.
  int32_t drawingBufferSize() const { return _drawingBufferSize; }
  /// Replaces the three contexts by empty ones of the new capacity and invalidates.
  /// @param size limited to 8 … 65536
  void setDrawingBufferSize(int32_t size);
  /// The rectangle of points that fills the surface: (−w/2, −h/2, w, h), set by every layout from the frame,
  /// where w and h reach to the end of the last pixel that the frame touches. (Cut to whole points instead,
  /// the picture of a fractional frame would be stretched over its pixels.)
  const VELRect& projectionFrame() const { return _projectionFrame; }
  void setProjectionFrame(const VELRect& frame) { _projectionFrame = frame; }
  /// What a frame is cleared to before anything is drawn; opaque black unless set. A colour that is not
  /// finite clears to opaque white.
  const VELColor& backgroundColor() const { return _backgroundColor; }
  void setBackgroundColor(const VELColor& color);

  /// Pixels per point of the display.
  float contentScale() const { return _contentScale; }
  /// The pixels of the last presented frame.
  const VELGLLayer& layer() const { return *_layer; }

 private:
  void contentScaleChanged(double pixelsPerPoint) override;
  bool p_VEL_enterContext();
  void p_VEL_setUpFramebuffers();
  void p_VEL_allocateStorage();
  void p_VEL_setUpDisplayLink(const std::shared_ptr<VELDisplayLink>& displayLink);
  void p_VEL_createContexts();
  std::shared_ptr<VELOpenGLRenderContext> p_VEL_createContext();
  bool p_VEL_usesMultisampling() const;
  bool p_VEL_renderOpenGL();
  void p_VEL_performContexts();
  void p_VEL_resolveMultisampling();
  void p_VEL_deleteFramebuffers();

  std::weak_ptr<VELDisplayLink> _displayLink;
  uint64_t _displayLinkKey = 0;
  std::shared_ptr<VELGLContext> _context;
  std::unique_ptr<VELGLLayer> _layer;
  uint32_t _generation = 0;  ///< of the context, when the framebuffers were made
  uint32_t _framebuffer = 0;
  uint32_t _sampleFramebuffer = 0;
  uint32_t _sampleColorRenderbuffer = 0;
  bool _samplesAreComplete = false;
  int32_t _width = 0;
  int32_t _height = 0;
  float _contentScale = 1.0f;
  float _pixelScale = 1.0f;  ///< pixels per point of the layer: the content scale, where GL can hold it
  int32_t _drawingBufferSize = 65536;
  VELColor _backgroundColor;
  VELRect _projectionFrame;
  bool _isRegistered = false;  ///< from `initWithFrame` to `free`
};
