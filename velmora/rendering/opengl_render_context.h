// rendering/opengl_render_context.h: records shapes into drawing buffers and a queue, replays them with GL.
//
// Which shapes share a draw call is rendering/drawing_queue.h, their triangles are the primitives.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "velmora/platform/gl_context.h"
#include "velmora/rendering/band_area_primitive.h"
#include "velmora/rendering/drawing_buffer.h"
#include "velmora/rendering/drawing_queue.h"
#include "velmora/rendering/ellipse_primitive.h"
#include "velmora/rendering/line_primitive.h"
#include "velmora/rendering/matrix.h"
#include "velmora/rendering/polyline_primitive.h"
#include "velmora/rendering/rectangle_primitive.h"
#include "velmora/rendering/render_context.h"
#include "velmora/rendering/shader_attributes.h"
#include "velmora/rendering/textured_rectangle_primitive.h"
#include "velmora/rendering/triangle_primitive.h"
#include "velmora/rendering/zero_to_line_area_primitive.h"

/// A render context of one GL context.
///
/// Always true: drawing makes no GL call except for the creation of a further buffer; buffers stay for later
/// frames, so a frame as large as one before allocates nothing; an unchanged frame uploads nothing.
class VELMORA_API VELOpenGLRenderContext final : public VELRenderContext2D {
 public:
  /// The largest buffers, on the GL context that is current.
  VELOpenGLRenderContext();
  /// @param bufferSize vertices, and as many indices, of each buffer; limited to 8 … 65536
  /// @param context held weakly and made current where buffers are made; null, or one that is not
  /// registered, records in memory only and replays nothing
  VELOpenGLRenderContext(int32_t bufferSize, const std::shared_ptr<VELGLContext>& context);
  VELOpenGLRenderContext(const VELOpenGLRenderContext&) = delete;
  VELOpenGLRenderContext& operator=(const VELOpenGLRenderContext&) = delete;
  /// Gives the buffers and the atlas back to the GL context, if that still lives.
  ~VELOpenGLRenderContext() override;

  void invalidate() override;
  VELSize viewportSize() const override;
  void clear() override;
  void performDrawingCommands() override;
  void drawLineWithBrush(const VELPenPtr& pen, float fromX, float fromY, float toX, float toY) override;
  void drawRectWithBrush(const VELBrushPtr& brush, float fromX, float fromY, float toX, float toY) override;
  void beginPolylineWithBrush(const VELPenPtr& pen, float x, float y) override;
  void extendPolylineWithBrush(const VELPenPtr& pen, float x, float y) override;
  void drawPolylineWithBrush(const VELPenPtr& pen, const VELArrayController& xData,
                             const VELArrayController& yData, int32_t startingIndex) override;
  void drawTriangleWithBrush(const VELBrushPtr& brush, float x1, float y1, float x2, float y2, float x3,
                             float y3) override;
  void renderEllipseToBufferX(VELArrayController& xData, VELArrayController& yData, float radiusVertical,
                              float radiusHorizontal, int32_t detalization) override;
  void drawEllipseWithBrush(const VELBrushPtr& brush, float centerX, float centerY,
                            const VELArrayController& xData, const VELArrayController& yData) override;
  void drawSpriteWithBrush(const VELBrushPtr& brush, float fromX, float fromY, float toX, float toY) override;
  void beginZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x, float y, float zero,
                                    bool isVertical) override;
  void extendZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x, float y, float zero,
                                     bool isVertical) override;
  void beginBandAreaWithBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2, float x, float y1,
                               float y2, bool isVertical) override;
  void extendBandAreaWithBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2, float x, float y1,
                                float y2, bool isVertical) override;
  void beginNewPrimitive() override;
  void setDrawingArea(const VELRect& area) override;

  const std::function<void()>& invalidated() const override { return *_invalidated; }
  void setInvalidated(std::function<void()> invalidated) override {
    _invalidated = std::make_shared<const std::function<void()>>(std::move(invalidated));
  }
  std::shared_ptr<VELRenderSurface> parentRenderSurface() const override {
    return _parentRenderSurface.lock();
  }
  void setParentRenderSurface(const std::shared_ptr<VELRenderSurface>& surface) override;
  bool wasChanged() const override { return _wasChanged; }
  void setWasChanged(bool changed) override { _wasChanged = changed; }

  /// Where points land; copied. Until a drawing area is set, coordinates are relative to the surface.
  void setProjectionMatrix(const VELMatrix& projection, const VELMatrix& view);
  std::shared_ptr<VELGLContext> parentContext() const { return _parentContext.lock(); }
  /// Pixels per point. With zero, a negative number or NaN a drawing area has no pixels.
  float sizeScale() const { return _sizeScale; }
  void setSizeScale(float scale) { _sizeScale = scale; }
  /// The recorded frame.
  const VELOpenGLDrawingQueue& drawingOrder() const { return _drawingOrder; }
  size_t drawingBufferCount() const { return _drawingBuffers.size(); }

 private:
  void p_VEL_o_createDrawingBuffer();
  void p_VEL_o_updatePrimitivesConfiguration();
  void p_VEL_makeCurrent(VELDrawingBuffer& buffer);
  /// False during a replay, which nothing may change.
  bool p_VEL_mayRecord() {
    if (!_isReplaying) _wasChanged = true;
    return !_isReplaying;
  }
  template <typename Draw>
  void p_VEL_drawWithRetry(Draw&& draw);

  std::vector<std::unique_ptr<VELDrawingBuffer>> _drawingBuffers;
  size_t _currentDrawingBuffer = 0;
  VELShaderAttributes _shaderAttributes;
  VELOpenGLDrawingQueue _drawingOrder{_shaderAttributes};
  int32_t _drawingBufferSize;
  VELPolylinePrimitive _polylineHelper;
  VELLinePrimitive _lineHelper;
  VELRectanglePrimitive _rectHelper;
  VELTrianglePrimitive _triangleHelper;
  VELZeroToLineAreaPrimitive _zeroToLineHelper;
  VELEllipsePrimitive _ellipseHelper;
  VELTexturedRectanglePrimitive _spriteHelper;
  VELBandAreaPrimitive _bandHelper;
  bool _hasGLStores = true;  ///< of every buffer; without them there is nothing that a replay could draw
  bool _isReplaying = false;
  bool _wasChanged = false;
  float _sizeScale = 1.0f;
  std::weak_ptr<VELGLContext> _parentContext;
  /// Shared, so that it outlives its own call when it replaces itself.
  std::shared_ptr<const std::function<void()>> _invalidated = std::make_shared<std::function<void()>>();
  std::weak_ptr<VELRenderSurface> _parentRenderSurface;
};
