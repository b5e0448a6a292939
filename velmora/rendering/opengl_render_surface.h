// rendering/opengl_render_surface.h: shows three render contexts through OpenGL ES 2.0.
//
// Units: points for frames, pixels for the layer and the framebuffers. A layer has the size of the frame
// times the content scale, rounded to whole pixels.
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
/// Always true: an opaque background colour gives an opaque picture.
class VELMORA_API VELOpenGLRenderSurface final : public VELRenderSurfaceBase {
  struct Key {};  ///< only `initWithFrame` has one

 public:
  /// A surface on the GL context of @p host, with its three contexts; ready to draw.
  /// @return null when the host has no GL context
  static std::shared_ptr<VELOpenGLRenderSurface> initWithFrame(const VELRect& frame, VELHost& host);

  VELOpenGLRenderSurface(Key, const VELRect& frame, VELHost& host);
  ~VELOpenGLRenderSurface() override;

  std::shared_ptr<VELDisplayLink> displayLink() const override { return _displayLink.lock(); }
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
  /// The rectangle of points that fills the surface: (−w/2, −h/2, w, h), set by every layout from the frame.
  const VELRect& projectionFrame() const { return _projectionFrame; }
  void setProjectionFrame(const VELRect& frame) { _projectionFrame = frame; }
  /// What a frame is cleared to before anything is drawn; opaque black unless set. A colour that is not
  /// finite clears to opaque white.
  const VELColor& backgroundColor() const { return _backgroundColor; }
  void setBackgroundColor(const VELColor& color);

  /// Pixels per point.
  float contentScale() const { return _contentScale; }
  /// The pixels of the last presented frame.
  const VELGLLayer& layer() const { return *_layer; }

 private:
  void p_VEL_setUpFramebuffers();
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
  uint32_t _framebuffer = 0;
  uint32_t _sampleFramebuffer = 0;
  uint32_t _sampleColorRenderbuffer = 0;
  bool _samplesAreComplete = false;
  int32_t _width = 0;
  int32_t _height = 0;
  float _contentScale = 1.0f;
  int32_t _drawingBufferSize = 65536;
  VELColor _backgroundColor;
  VELRect _projectionFrame;
  bool _freed = false;
};
