#include "velmora/platform/offscreen/offscreen_host.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>

namespace {

std::string sizeText(const VELSize& size) {
  std::ostringstream text;
  text.precision(15);  // a million as 1000000
  text << size.width << " x " << size.height;
  return text.str();
}

bool isPositive(double value) { return std::isfinite(value) && value > 0.0; }

/// Pixels a side, not yet limited.
double pixels(double points, double scale) { return std::max(1.0, std::round(points * scale)); }

std::string wrongArguments(const VELSize& size, double scale) {
  std::ostringstream text;
  if (!isPositive(size.width) || !isPositive(size.height))
    text << "A picture of " << sizeText(size)
         << " points cannot be drawn: both sides must be positive numbers.";
  else if (!isPositive(scale))
    text << "A scale of " << scale << " pixels per point cannot be drawn: it must be a positive number.";
  return text.str();
}

std::string tooLarge(const VELSize& inPixels, int32_t limit) {
  std::ostringstream text;
  if (std::max(inPixels.width, inPixels.height) > limit)
    text << "A picture of " << sizeText(inPixels)
         << " pixels cannot be drawn: OpenGL on this machine takes at most " << limit
         << " a side; a smaller size or scale would do.";
  return text.str();
}

void refresh(VELGLContext& context, VELDisplayLink& displayLink, VELView& rootView, double seconds) {
  // A loss that the driver knows of is mended by the drawing of this refresh, not of the next one.
  if (context.makeCurrent() && context.checkLost()) context.makeCurrent();
  rootView.layoutIfNeeded();
  displayLink.tick(seconds);
  rootView.layoutIfNeeded();
}

std::shared_ptr<VELOffscreenHost> refused(std::string reason, std::string* failure) {
  if (failure) *failure = std::move(reason);
  return nullptr;
}

}  // namespace

std::shared_ptr<VELOffscreenHost> VELOffscreenHost::create(const VELSize& sizeInPoints, double contentScale,
                                                           std::string* failure) {
  if (std::string reason = wrongArguments(sizeInPoints, contentScale); !reason.empty())
    return refused(std::move(reason), failure);
  auto context = VELGLContext::create();
  if (!context || !context->makeCurrent()) return refused(VELGLContext::lastFailure(), failure);

  // A surface may draw into a renderbuffer first, when it smooths edges.
  VELGL& gl = context->gl();
  const int32_t limit =
      std::min(gl.getInteger(VELGL_MAX_TEXTURE_SIZE), gl.getInteger(VELGL_MAX_RENDERBUFFER_SIZE));
  const VELSize inPixels{pixels(sizeInPoints.width, contentScale), pixels(sizeInPoints.height, contentScale)};
  if (std::string reason = tooLarge(inPixels, limit); !reason.empty())
    return refused(std::move(reason), failure);

  auto host = std::make_shared<VELOffscreenHost>(Checked(), std::move(context), sizeInPoints, contentScale);
  if (!host->prepareTarget(static_cast<int32_t>(inPixels.width), static_cast<int32_t>(inPixels.height)))
    return refused("OpenGL refused the memory for a picture of " + sizeText(inPixels) +
                       " pixels; a smaller size or scale would do.",
                   failure);
  return host;
}

VELOffscreenHost::VELOffscreenHost(Checked, std::shared_ptr<VELGLContext> context,
                                   const VELSize& sizeInPoints, double contentScale)
    : _context(std::move(context)),
      _target(_context),
      _composer(_context),
      _displayLink(std::make_shared<VELDisplayLink>()),
      _rootView(std::make_shared<VELView>(VELRect{0.0, 0.0, sizeInPoints.width, sizeInPoints.height})),
      _contentScale(contentScale) {}

VELOffscreenHost::~VELOffscreenHost() {
  if (_framebuffer == 0) return;
  const VELGLContextScope scope(*_context, _generation);
  if (scope.isCurrent()) _context->gl().deleteFramebuffer(_framebuffer);
}

bool VELOffscreenHost::prepareTarget(int32_t width, int32_t height) {
  VELGL& gl = _context->gl();
  _context->forgetErrors();
  _generation = _context->generation();
  _target.allocate(width, height);
  _framebuffer = gl.genFramebuffer();
  gl.bindFramebuffer(VELGL_FRAMEBUFFER, _framebuffer);
  _target.attachToFramebuffer();
  const bool isComplete = gl.checkFramebufferStatus(VELGL_FRAMEBUFFER) == VELGL_FRAMEBUFFER_COMPLETE;
  gl.bindFramebuffer(VELGL_FRAMEBUFFER, 0);
  if (isComplete && gl.getError() == VELGL_NO_ERROR) return true;
  // Nothing half made stays, so that the next picture tries again.
  gl.deleteFramebuffer(_framebuffer);
  _framebuffer = 0;
  _target.release();
  return false;
}

// The framebuffer is as old as the storage that it draws into.
bool VELOffscreenHost::renewTarget() {
  if (_framebuffer != 0 && !_target.isLost()) return true;
  return prepareTarget(_target.width(), _target.height());
}

void VELOffscreenHost::tick(double seconds) {
  // A listener or a view may let go of the host: the refresh ends with what it holds itself.
  const auto context = _context;
  const auto displayLink = _displayLink;
  const auto rootView = _rootView;
  refresh(*context, *displayLink, *rootView, seconds);
}

bool VELOffscreenHost::settle(double seconds) {
  constexpr int kMostTicks = 16;
  const auto context = _context;
  const auto displayLink = _displayLink;
  const auto rootView = _rootView;
  // Whatever a loss took along waits for a refresh from here on.
  if (context->makeCurrent()) context->checkLost();
  for (int i = 0; i < kMostTicks && rootView->isTreeDirty(); ++i)
    refresh(*context, *displayLink, *rootView, seconds);
  return !rootView->isTreeDirty();
}

VELBitmap VELOffscreenHost::picture() {
  if (!_context->makeCurrent() || !renewTarget()) return {};
  VELGL& gl = _context->gl();
  const VELColor& color = _backgroundColor;
  gl.bindFramebuffer(VELGL_FRAMEBUFFER, _framebuffer);
  const bool isDrawn = _composer.drawTree(*_rootView, {pixelWidth(), pixelHeight(), _contentScale,
                                                       VELColor(color.red(), color.green(), color.blue())});
  VELBitmap bitmap;
  if (isDrawn) {
    bitmap = VELBitmap(pixelWidth(), pixelHeight());
    gl.readPixels(0, 0, bitmap.width(), bitmap.height(), bitmap.pixels().data());
  }
  gl.bindFramebuffer(VELGL_FRAMEBUFFER, 0);
  // What a context answers that was lost meanwhile is no picture.
  if (_context->checkLost()) return {};
  // GL's rows go from the bottom up.
  for (int32_t top = 0, bottom = bitmap.height() - 1; top < bottom; ++top, --bottom)
    std::swap_ranges(bitmap.row(top).begin(), bitmap.row(top).end(), bitmap.row(bottom).begin());
  return bitmap;
}
