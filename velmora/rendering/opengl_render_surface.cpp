#include "velmora/rendering/opengl_render_surface.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

#include "velmora/data/saturate.h"
#include "velmora/platform/composer.h"
#include "velmora/platform/density.h"
#include "velmora/rendering/drawing_buffer.h"
#include "velmora/rendering/opengl_context_controller.h"
#include "velmora/rendering/opengl_render_context.h"
#include "velmora/rendering/pixel_grid.h"
#include "velmora/rendering/render_surface_style.h"

namespace {

constexpr int32_t sampleCount = 4;
// The drawing plane lies at −7, between the near and the far plane.
constexpr float nearPlane = 4.0f, farPlane = 10.0f, drawingPlane = -7.0f;

/// Points of a side that can be drawn.
double drawable(double points) { return std::isfinite(points) && points > 0.0 ? points : 0.0; }

int32_t touchedPixels(double points, double scale) {
  return VELSaturate<int32_t>(VELTouchedPixels(points, scale));
}

/// Points that reach to the end of the last pixel.
double pointsOf(double points, double scale) {
  const int32_t pixels = touchedPixels(points, scale);
  return std::abs(pixels - points * scale) <= VELPixelSlack ? points : pixels / scale;
}

bool checkFramebuffer(VELGL& gl, uint32_t framebuffer) {
  gl.bindFramebuffer(VELGL_FRAMEBUFFER, framebuffer);
  const uint32_t status = gl.checkFramebufferStatus(VELGL_FRAMEBUFFER);
  if (status == VELGL_FRAMEBUFFER_COMPLETE) return true;
  std::fprintf(stderr, "Failed to make complete framebuffer object %x\n", status);
  return false;
}

bool isReadable(const VELColor& color) {
  return std::isfinite(color.red()) && std::isfinite(color.green()) && std::isfinite(color.blue()) &&
         std::isfinite(color.alpha());
}

}  // namespace

std::shared_ptr<VELOpenGLRenderSurface> VELOpenGLRenderSurface::initWithFrame(const VELRect& frame,
                                                                              VELHost& host) {
  if (!host.glContext()) return nullptr;
  auto surface = std::make_shared<VELOpenGLRenderSurface>(Key(), frame, host);
  VELOpenGLContextController::o_createContext(surface->_context);
  surface->_isRegistered = true;
  surface->p_VEL_setUpDisplayLink(host.displayLink());
  surface->p_VEL_createContexts();
  surface->layoutSubviews();
  return surface;
}

VELOpenGLRenderSurface::VELOpenGLRenderSurface(Key, const VELRect& frame, VELHost& host)
    : VELRenderSurfaceBase(frame),
      _context(host.glContext()),
      _layer(std::make_unique<VELGLLayer>(_context)),
      _contentScale(VELIsDensity(host.contentScale()) ? static_cast<float>(host.contentScale()) : 1.0f),
      _pixelScale(_contentScale) {}

VELOpenGLRenderSurface::~VELOpenGLRenderSurface() {
  {
    const VELGLContextScope scope(*_context, _generation);
    if (scope.isCurrent()) p_VEL_deleteFramebuffers();
  }
  // While the GL context is still registered: contexts make it current to give their buffers back.
  addRenderContext(nullptr);
  addModifierContext(nullptr);
  addBackgroundContext(nullptr);
  VELOpenGLRenderSurface::free();
}

// False when nothing can be drawn now, as while the driver of a lost context is not back. After the loss
// there are framebuffers again, without storage.
bool VELOpenGLRenderSurface::p_VEL_enterContext() {
  if (!VELOpenGLContextController::o_enableContext(_context)) return false;
  if (_context->hasLost(_generation)) p_VEL_setUpFramebuffers();
  return true;
}

void VELOpenGLRenderSurface::p_VEL_setUpFramebuffers() {
  VELGL& gl = _context->gl();
  _generation = _context->generation();
  _framebuffer = gl.genFramebuffer();
  _sampleFramebuffer = _sampleColorRenderbuffer = 0;
  _samplesAreComplete = false;
  if (!gl.hasMultisampling()) return;
  _sampleFramebuffer = gl.genFramebuffer();
  _sampleColorRenderbuffer = gl.genRenderbuffer();
}

void VELOpenGLRenderSurface::p_VEL_setUpDisplayLink(const std::shared_ptr<VELDisplayLink>& displayLink) {
  if (!displayLink) return;
  _displayLink = displayLink;
  _displayLinkKey = displayLink->add([weak = weak_from_this(), this](double) {
    if (const auto alive = weak.lock()) onRenderTimeElapsed();
  });
}

std::shared_ptr<VELOpenGLRenderContext> VELOpenGLRenderSurface::p_VEL_createContext() {
  auto context = std::make_shared<VELOpenGLRenderContext>(_drawingBufferSize, _context);
  context->setSizeScale(_pixelScale);
  context->setParentRenderSurface(std::static_pointer_cast<VELOpenGLRenderSurface>(shared_from_this()));
  return context;
}

void VELOpenGLRenderSurface::p_VEL_createContexts() {
  addRenderContext(p_VEL_createContext());
  addModifierContext(p_VEL_createContext());
  addBackgroundContext(p_VEL_createContext());
}

void VELOpenGLRenderSurface::setDrawingBufferSize(int32_t size) {
  _drawingBufferSize = std::clamp(size, VELDrawingBuffer::minimumSize, VELDrawingBuffer::maximumSize);
  p_VEL_createContexts();
  invalidateElement();
}

void VELOpenGLRenderSurface::setBackgroundColor(const VELColor& color) {
  _backgroundColor = color;
  invalidateElement();
}

void VELOpenGLRenderSurface::free() {
  if (!std::exchange(_isRegistered, false)) return;
  if (const auto displayLink = _displayLink.lock()) displayLink->remove(_displayLinkKey);
  VELOpenGLContextController::o_freeContext(_context);
}

void VELOpenGLRenderSurface::p_VEL_deleteFramebuffers() {
  VELGL& gl = _context->gl();
  gl.deleteFramebuffer(_framebuffer);
  if (_sampleFramebuffer == 0) return;
  gl.deleteFramebuffer(_sampleFramebuffer);
  gl.deleteRenderbuffer(_sampleColorRenderbuffer);
}

void VELOpenGLRenderSurface::contentScaleChanged(double pixelsPerPoint) {
  if (!VELIsDensity(pixelsPerPoint)) return;
  _contentScale = static_cast<float>(pixelsPerPoint);
  invalidateElement();
}

void VELOpenGLRenderSurface::layoutSubviews() {
  if (!p_VEL_enterContext()) return;
  const int32_t formerWidth = _width, formerHeight = _height;
  const float formerScale = _pixelScale;
  p_VEL_allocateStorage();
  // Stretched later, pixels are no measure.
  const bool fits = _pixelScale == _contentScale;
  const VELSize drawn = {drawable(frame().width), drawable(frame().height)};
  const auto scale = double{_pixelScale};
  const VELSize size = fits ? VELSize{pointsOf(drawn.width, scale), pointsOf(drawn.height, scale)} : drawn;
  _projectionFrame = {-size.width / 2.0, -size.height / 2.0, size.width, size.height};
  for (const auto* context : {&renderContext(), &modifierContext(), &backgroundContext()})
    if (auto* const recorded = dynamic_cast<VELOpenGLRenderContext*>(context->get()))
      recorded->setSizeScale(_pixelScale);
  // New storage is empty, and every recorded drawing area was measured from the old bottom edge.
  if (_width != formerWidth || _height != formerHeight || _pixelScale != formerScale) invalidateElement();
}

void VELOpenGLRenderSurface::p_VEL_allocateStorage() {
  VELGL& gl = _context->gl();
  const double width = drawable(frame().width), height = drawable(frame().height);
  const double largest = _layer->largestSide();
  const double longest = std::max(width, height);
  const bool fits = longest * double{_contentScale} <= largest;
  const double scale = fits ? double{_contentScale} : largest / longest;
  _pixelScale = static_cast<float>(scale);
  _layer->allocate(touchedPixels(width, scale), touchedPixels(height, scale));
  _width = _layer->width();
  _height = _layer->height();

  gl.bindFramebuffer(VELGL_FRAMEBUFFER, _framebuffer);
  _layer->attachToFramebuffer();
  checkFramebuffer(gl, _framebuffer);
  if (_sampleFramebuffer == 0) return;
  gl.bindFramebuffer(VELGL_FRAMEBUFFER, _sampleFramebuffer);
  gl.bindRenderbuffer(_sampleColorRenderbuffer);
  gl.renderbufferStorageMultisample(sampleCount, VELGL_RGBA8, _width, _height);
  gl.framebufferRenderbuffer(VELGL_FRAMEBUFFER, VELGL_COLOR_ATTACHMENT0, _sampleColorRenderbuffer);
  // Without memory for the samples the frame is drawn without them.
  _samplesAreComplete = checkFramebuffer(gl, _sampleFramebuffer);
}

void VELOpenGLRenderSurface::compose(VELComposer& composer, const VELRect& frameInRoot) {
  if (_layer->isPresented()) composer.composeLayer(*_layer, frameInRoot);
}

bool VELOpenGLRenderSurface::needsDisplay() const {
  const bool isWaiting = VELRenderSurfaceBase::needsDisplay() || !_layer->isPresented();
  return isWaiting && _isRegistered && VELOpenGLContextController::o_isRegistered(_context);
}

void VELOpenGLRenderSurface::onRenderTimeElapsed() {
  // Delegate and callback may let go of the surface.
  const auto alive = weak_from_this().lock();
  const bool wasNeeded = needRedraw() || !_layer->isPresented();
  VELRenderSurfaceBase::onRenderTimeElapsed();
  if (!wasNeeded && reduceGPUFrames()) return;
  if (p_VEL_renderOpenGL()) p_VEL_callRendered(wasNeeded ? 1 : 2);
}

bool VELOpenGLRenderSurface::p_VEL_usesMultisampling() const {
  return multisampling() && _samplesAreComplete;
}

bool VELOpenGLRenderSurface::p_VEL_renderOpenGL() {
  // The delegate may have freed the surface while it drew.
  if (!_isRegistered || !p_VEL_enterContext()) return false;
#ifndef NDEBUG
  // Left by whoever used the GL context in between: no fault of this frame.
  _context->forgetErrors();
#endif
  if (_layer->texture() == 0) layoutSubviews();
  VELGL& gl = _context->gl();
  // Gone when the layout found the context lost.
  VELGLState* const known = VELOpenGLContextController::o_currentState();
  if (!known) return false;
  VELGLState& state = *known;
  state.prepareForDrawing();
  gl.bindFramebuffer(VELGL_FRAMEBUFFER, p_VEL_usesMultisampling() ? _sampleFramebuffer : _framebuffer);
  const VELColor color = isReadable(_backgroundColor) ? _backgroundColor : VELColor(1.0, 1.0, 1.0, 1.0);
  gl.clearColor(static_cast<float>(color.red()), static_cast<float>(color.green()),
                static_cast<float>(color.blue()), static_cast<float>(color.alpha()));
  state.setViewport(0, 0, _width, _height);
  state.setScissor(0, 0, _width, _height);
  gl.clear(VELGL_COLOR_BUFFER_BIT);
  p_VEL_performContexts();
  // A brush of the application's own may have freed the surface, or the last use of the GL context.
  VELGLState* const left = VELOpenGLContextController::o_currentState();
  if (!left) return false;
  left->setScissor(0, 0, _width, _height);
  if (_isRegistered && p_VEL_usesMultisampling()) p_VEL_resolveMultisampling();
  left->finishDrawing();
  if (!_isRegistered) return false;
  // What was drawn after a loss is nothing; the next refresh draws it again.
  if (_context->checkLost()) return false;
#ifndef NDEBUG
  _context->checkErrors();
#endif
  _layer->present();
  return true;
}

void VELOpenGLRenderSurface::p_VEL_performContexts() {
  const VELRect& frame = _projectionFrame;
  if (!(frame.width > 0.0 && frame.height > 0.0)) return;
  const VELMatrix projection = VELMatrixOrthographic(static_cast<float>(frame.width),
                                                     static_cast<float>(frame.height), nearPlane, farPlane);
  VELMatrix view = VELMatrixIdentity();
  view[12] = static_cast<float>(frame.x);
  view[13] = static_cast<float>(frame.y);
  view[14] = drawingPlane;
  for (const auto* context : {&backgroundContext(), &renderContext(), &modifierContext()}) {
    // A context without a drawing area of its own draws over the whole surface.
    if (VELGLState* const state = VELOpenGLContextController::o_currentState())
      state->setScissor(0, 0, _width, _height);
    // The application may have put in a context of its own, or none: that one has nothing to replay here.
    const auto recorded = std::dynamic_pointer_cast<VELOpenGLRenderContext>(*context);
    if (!recorded) continue;
    recorded->setProjectionMatrix(projection, view);
    recorded->performDrawingCommands();
  }
}

void VELOpenGLRenderSurface::p_VEL_resolveMultisampling() {
  VELGL& gl = _context->gl();
  gl.bindFramebuffer(VELGL_DRAW_FRAMEBUFFER, _framebuffer);
  gl.bindFramebuffer(VELGL_READ_FRAMEBUFFER, _sampleFramebuffer);
  gl.blitColor(_width, _height);
  gl.invalidateFramebuffer(VELGL_READ_FRAMEBUFFER, VELGL_COLOR_ATTACHMENT0);
}

void VELOpenGLRenderSurface::drawBackground(VELRenderContext2D& context, const VELRenderSurfaceStyle& style) {
  const VELBrushPtr& background = style.backgroundBrush();
  const VELBrushPtr& seriesBackground = style.seriesBackgroundBrush();
  const VELPenPtr& border = style.borderPen();
  if (!background && !seriesBackground && !border) return;
  // The surface stands at the origin of its drawing, wherever it stands in its parent, and no pixel of it
  // shows what lies behind.
  const auto scale = double{_pixelScale};
  const VELRect whole = {0.0, 0.0, pointsOf(drawable(frame().width), scale),
                         pointsOf(drawable(frame().height), scale)};
  const VELRect chart = p_VEL_chartFrameInSurface();
  context.setDrawingArea(whole);
  const auto left = static_cast<float>(chart.x), top = static_cast<float>(chart.y);
  const auto right = static_cast<float>(chart.right()), bottom = static_cast<float>(chart.bottom());
  if (background) {
    background->setDrawingAreaX(0.0, 0.0, whole.width, whole.height);
    context.drawRectWithBrush(background, 0.0f, 0.0f, static_cast<float>(whole.width),
                              static_cast<float>(whole.height));
  }
  // Right and bottom go where width and height are expected; meant: gradients of chart and border reach as
  // far as the edges lie from the surface's origin.
  if (seriesBackground) {
    seriesBackground->setDrawingAreaX(chart.x, chart.y, chart.right(), chart.bottom());
    context.drawRectWithBrush(seriesBackground, left, top, right, bottom);
  }
  if (!border) return;
  border->setDrawingAreaX(chart.x, chart.y, chart.right(), chart.bottom());
  context.beginPolylineWithBrush(border, left, top);
  context.extendPolylineWithBrush(border, right, top);
  context.extendPolylineWithBrush(border, right, bottom);
  context.extendPolylineWithBrush(border, left, bottom);
  context.extendPolylineWithBrush(border, left, top);
}
