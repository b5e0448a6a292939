#include "velmora/rendering/opengl_render_context.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "velmora/data/array_controller.h"
#include "velmora/platform/scoped_mark.h"
#include "velmora/rendering/brush_shader_controller.h"
#include "velmora/rendering/opengl_context_controller.h"
#include "velmora/rendering/pixel_grid.h"
#include "velmora/rendering/render_surface.h"

namespace {

std::shared_ptr<VELGLContext> currentContext() {
  VELGLContext* const context = VELGLContext::current();
  return context ? context->weak_from_this().lock() : nullptr;
}

/// The whole pixel at which clipping begins or ends. Edges are cut, not extents: neighbouring areas then
/// share every pixel out between them, also where their border is off the grid.
double clipEdge(double pixels) {
  // Far beyond any surface, so that GL can add an extent to it.
  constexpr double farthest = 1 << 24;
  return std::trunc(std::clamp(VELSnappedToPixels(pixels), -farthest, farthest));
}

}  // namespace

VELOpenGLRenderContext::VELOpenGLRenderContext()
    : VELOpenGLRenderContext(VELDrawingBuffer::maximumSize, currentContext()) {}

VELOpenGLRenderContext::VELOpenGLRenderContext(int32_t bufferSize,
                                               const std::shared_ptr<VELGLContext>& context)
    : _drawingBufferSize(bufferSize), _parentContext(context) {
  VELBrushShaderController::o_getBufferValuesForPostion(_shaderAttributes.sa_positionBuffer,
                                                        _shaderAttributes.sa_colorBuffer,
                                                        _shaderAttributes.sa_textureBuffer);
  p_VEL_o_createDrawingBuffer();
}

VELOpenGLRenderContext::~VELOpenGLRenderContext() = default;

void VELOpenGLRenderContext::invalidate() {
  _wasChanged = true;
  const auto invalidated = _invalidated;
  if (*invalidated) (*invalidated)();
}

VELSize VELOpenGLRenderContext::viewportSize() const {
  const auto surface = parentRenderSurface();
  return surface ? surface->chartFrame().size() : VELSize{};
}

void VELOpenGLRenderContext::clear() {
  if (_isReplaying) return;
  for (const auto& buffer : _drawingBuffers) buffer->o_clearBuffer();
  _drawingOrder.o_clearQueue();
  _currentDrawingBuffer = 0;
  p_VEL_makeCurrent(*_drawingBuffers.front());
  _wasChanged = true;
  _shaderAttributes.sa_brushAtlas.o_clearAtlas();
  _polylineHelper.o_reset();
  _zeroToLineHelper.o_reset();
  _bandHelper.o_reset();
}

void VELOpenGLRenderContext::performDrawingCommands() {
  if (_isReplaying) return;
  _wasChanged = false;
  // The names of buffers and programs mean something else, or nothing, in another GL context.
  const auto context = parentContext();
  if (!_hasGLStores || !context || context.get() != VELGLContext::current()) return;
  // Outside of a frame of the surface the application may have made the context current by itself, and left a
  // vertex array of its own bound.
  if (!VELOpenGLContextController::o_currentState() && !VELOpenGLContextController::o_enableContext(context))
    return;
  const bool isInFrame = VELOpenGLContextController::isInFrame();
  if (!isInFrame) {
    context->gl().resetES3State();
    VELOpenGLContextController::o_currentState()->forget();
  }
  {
    // A brush of the application's own may draw or clear here; the commands of the frame have to stay in
    // place.
    const VELScopedMark replaying(_isReplaying);
    _drawingOrder.o_performCommands();
  }
  if (isInFrame) return;
  // It may also have freed the GL context.
  VELOpenGLContextController::o_disableContextBuffers();
}

// A shape that the current buffer cannot take goes to the next one; if it is too large for a whole buffer,
// the second answer is 0 as well and it is not drawn.
template <typename Draw>
void VELOpenGLRenderContext::p_VEL_drawWithRetry(Draw&& draw) {
  if (!p_VEL_mayRecord()) return;
  if (draw() != 0) return;
  p_VEL_o_createDrawingBuffer();
  draw();
}

void VELOpenGLRenderContext::drawLineWithBrush(const VELPenPtr& pen, float fromX, float fromY, float toX,
                                               float toY) {
  p_VEL_drawWithRetry([&] { return _lineHelper.o_drawLinePrimitiveWithBrush(pen, fromX, fromY, toX, toY); });
}

void VELOpenGLRenderContext::drawRectWithBrush(const VELBrushPtr& brush, float fromX, float fromY, float toX,
                                               float toY) {
  p_VEL_drawWithRetry(
      [&] { return _rectHelper.o_drawRectPrimitiveWithBrush(brush, fromX, fromY, toX, toY); });
}

void VELOpenGLRenderContext::beginPolylineWithBrush(const VELPenPtr& pen, float x, float y) {
  if (!p_VEL_mayRecord()) return;
  // No retry on purpose: the first point writes nothing, the second one moves on if it must.
  _polylineHelper.o_beginPolylinePrimitiveWithBrush(pen, double{x}, double{y});
}

void VELOpenGLRenderContext::extendPolylineWithBrush(const VELPenPtr& pen, float x, float y) {
  p_VEL_drawWithRetry(
      [&] { return _polylineHelper.o_extendPolylinePrimitiveWithBrush(pen, double{x}, double{y}); });
}

void VELOpenGLRenderContext::drawPolylineWithBrush(const VELPenPtr& pen, const VELArrayController& xData,
                                                   const VELArrayController& yData, int32_t) {
  if (!p_VEL_mayRecord()) return;
  if (!pen || xData.type() != VELDataType_Double || yData.type() != VELDataType_Double) return;
  const std::span xs = xData.doubles(), ys = yData.doubles();
  if (xs.size() < 2 || xs.size() != ys.size()) return;
  bool isFresh = false;
  for (size_t index = 0; index + 1 < xs.size();) {
    const uint32_t consumed = _polylineHelper.o_drawPolylinePrimitiveWithBrush(pen, xs, ys, index);
    index += consumed;
    if (consumed == 0 && isFresh) return;
    isFresh = consumed == 0;
    if (isFresh) p_VEL_o_createDrawingBuffer();
  }
}

void VELOpenGLRenderContext::drawTriangleWithBrush(const VELBrushPtr& brush, float x1, float y1, float x2,
                                                   float y2, float x3, float y3) {
  p_VEL_drawWithRetry(
      [&] { return _triangleHelper.o_drawTrianglePrimitiveWithBrush(brush, x1, y1, x2, y2, x3, y3); });
}

void VELOpenGLRenderContext::renderEllipseToBufferX(VELArrayController& xData, VELArrayController& yData,
                                                    float radiusVertical, float radiusHorizontal,
                                                    int32_t detalization) {
  VELEllipsePrimitive::o_RenderEllipsePrimitiveToBufferX(xData, yData, radiusVertical, radiusHorizontal,
                                                         detalization);
}

void VELOpenGLRenderContext::drawEllipseWithBrush(const VELBrushPtr& brush, float centerX, float centerY,
                                                  const VELArrayController& xData,
                                                  const VELArrayController& yData) {
  if (!p_VEL_mayRecord()) return;
  // What no buffer takes must not cost a new one.
  if (!_ellipseHelper.o_canDraw(xData, yData)) return;
  p_VEL_drawWithRetry(
      [&] { return _ellipseHelper.o_drawEllipsePrimitiveWithBrush(brush, centerX, centerY, xData, yData); });
}

void VELOpenGLRenderContext::drawSpriteWithBrush(const VELBrushPtr& brush, float fromX, float fromY,
                                                 float toX, float toY) {
  p_VEL_drawWithRetry(
      [&] { return _spriteHelper.o_drawTexturedRectWithBrush(brush, fromX, fromY, toX, toY); });
}

void VELOpenGLRenderContext::beginZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x, float y,
                                                          float zero, bool isVertical) {
  p_VEL_drawWithRetry(
      [&] { return _zeroToLineHelper.o_beginZeroToLineAreaWithBrush(brush, x, y, zero, isVertical); });
}

void VELOpenGLRenderContext::extendZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x, float y,
                                                           float zero, bool isVertical) {
  p_VEL_drawWithRetry(
      [&] { return _zeroToLineHelper.o_expandZeroToLineAreaWithBrush(brush, x, y, zero, isVertical); });
}

void VELOpenGLRenderContext::beginBandAreaWithBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2,
                                                     float x, float y1, float y2, bool isVertical) {
  p_VEL_drawWithRetry([&] { return _bandHelper.o_beginAreaBrush1(brush1, brush2, x, y1, y2, isVertical); });
}

void VELOpenGLRenderContext::extendBandAreaWithBrush1(const VELBrushPtr& brush1, const VELBrushPtr& brush2,
                                                      float x, float y1, float y2, bool isVertical) {
  p_VEL_drawWithRetry([&] { return _bandHelper.o_expandAreaBrush1(brush1, brush2, x, y1, y2, isVertical); });
}

void VELOpenGLRenderContext::beginNewPrimitive() { _drawingOrder.o_beginNewPrimitive(); }

void VELOpenGLRenderContext::setDrawingArea(const VELRect& area) {
  if (_isReplaying) return;
  const auto surface = parentRenderSurface();
  const double scale = double{_sizeScale};
  // GL counts from the bottom edge of the last pixel, which a frame of a broken height does not reach.
  const double height = surface ? std::max(0.0, VELTouchedPixels(surface->frame().height, scale)) : 0.0;
  const double left = clipEdge(area.x * scale), right = clipEdge((area.x + area.width) * scale);
  const double top = clipEdge(height - area.y * scale);
  const double bottom = clipEdge(height - (area.y + area.height) * scale);
  _drawingOrder.o_addSetDrawingAreaComandWithFrame(area, {left, bottom, right - left, top - bottom});
}

void VELOpenGLRenderContext::setParentRenderSurface(const std::shared_ptr<VELRenderSurface>& surface) {
  _parentRenderSurface = surface;
}

void VELOpenGLRenderContext::setProjectionMatrix(const VELMatrix& projection, const VELMatrix& view) {
  _shaderAttributes.sa_projectionMatrix = projection;
  _shaderAttributes.sa_viewMatrix = view;
  _shaderAttributes.sa_totalMatrix = VELMatrixMultiply(projection, view);
}

void VELOpenGLRenderContext::p_VEL_o_createDrawingBuffer() {
  if (_drawingBuffers.empty() || _currentDrawingBuffer == _drawingBuffers.size() - 1) {
    const auto context = parentContext();
    // In the middle of a frame, which a brush of the application's own may draw from, its buffers have to
    // stay bound; and a lost context may come back only later. A buffer then makes its stores when it is
    // selected.
    const bool isInFrame = VELOpenGLContextController::isInFrame();
    const bool hasContext =
        isInFrame ? VELOpenGLContextController::o_isRegistered(context)
                  : VELOpenGLContextController::o_enableContext(context) || (context && context->isLost());
    _drawingBuffers.push_back(
        std::make_unique<VELDrawingBuffer>(_drawingBufferSize, hasContext ? context : nullptr, !isInFrame));
    _hasGLStores = _hasGLStores && _drawingBuffers.back()->hasGLStores();
    _currentDrawingBuffer = _drawingBuffers.size() - 1;
  } else {
    ++_currentDrawingBuffer;
  }
  p_VEL_makeCurrent(*_drawingBuffers[_currentDrawingBuffer]);
}

void VELOpenGLRenderContext::p_VEL_makeCurrent(VELDrawingBuffer& buffer) {
  _drawingOrder.o_addDrawingBufferCommandWithBuffer(&buffer, _shaderAttributes.sa_positionBuffer,
                                                    _shaderAttributes.sa_colorBuffer,
                                                    _shaderAttributes.sa_textureBuffer);
  p_VEL_o_updatePrimitivesConfiguration();
}

void VELOpenGLRenderContext::p_VEL_o_updatePrimitivesConfiguration() {
  VELDrawingBuffer* const buffer = _drawingBuffers[_currentDrawingBuffer].get();
  const auto connect = [&](auto&... primitives) {
    (primitives.o_setDrawingBuffer(buffer), ...);
    (primitives.o_setCommandQueue(&_drawingOrder), ...);
  };
  connect(_polylineHelper, _lineHelper, _rectHelper, _triangleHelper, _zeroToLineHelper, _ellipseHelper,
          _spriteHelper, _bandHelper);
}
