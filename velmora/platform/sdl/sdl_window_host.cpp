#include "velmora/platform/sdl/sdl_window_host.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "velmora/platform/density.h"
#include "velmora/platform/scoped_mark.h"
#include "velmora/platform/sdl/sdl_events.h"
#include "velmora/platform/tree_fingerprint.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

bool isUsable(double scale) { return scale == 0.0 || VELIsDensity(scale); }

std::string wrongOptions(const VELWindowOptions& options) {
  const auto isSide = [](double side) { return std::isfinite(side) && side > 0.0; };
  if (!isSide(options.size.width) || !isSide(options.size.height))
    return "A window cannot be opened without a size: both sides must be positive numbers.";
  if (!isUsable(options.contentScale))
    return "A window cannot be opened with such a density: the pixels per point must be a positive number "
           "that a float holds, or 0 for those of the display.";
  return {};
}

std::weak_ptr<VELSDLWindowHost>& theHost() {
  static std::weak_ptr<VELSDLWindowHost> host;
  return host;
}

std::shared_ptr<VELWindowHost> refused(std::string reason, std::string* failure) {
  if (failure) *failure = std::move(reason);
  return nullptr;
}

template <typename Callback, typename Value>
void call(std::shared_ptr<const Callback> callback, const Value& value) {
  if (callback && *callback) (*callback)(value);
}

}  // namespace

std::shared_ptr<VELWindowHost> VELWindowHost::create(const VELWindowOptions& options, std::string* failure) {
  if (std::string reason = wrongOptions(options); !reason.empty()) return refused(std::move(reason), failure);
  if (!theHost().expired())
    return refused("This process has a window already: one host shows all charts of a process.", failure);
  std::string reason;
  auto context = VELSDLContext::open(options, reason);
  if (!context) return refused(std::move(reason), failure);
  auto host = std::make_shared<VELSDLWindowHost>(std::move(context), options);
  theHost() = host;
  host->start();
  return host;
}

bool VELWindowHost::hasDisplay(std::string* failure) {
  std::string reason;
  if (!theHost().expired() || VELSDLOpenDisplay(reason)) return true;
  if (failure) *failure = std::move(reason);
  return false;
}

VELSDLWindowHost::VELSDLWindowHost(std::shared_ptr<VELSDLContext> context, const VELWindowOptions& options)
    : _context(std::move(context)),
      _glContext(_context),
      _composer(_glContext),
      _forcedScale(options.contentScale),
      _backgroundColor(options.background) {}

VELSDLWindowHost::~VELSDLWindowHost() {
  // Charts that live on hold the GL context, and that its window: nobody is to see it any more.
  window().hide();
}

void VELSDLWindowHost::start() {
  // What ended a former window of the process is none of this one's business.
  SDL_PumpEvents();
  SDL_FlushEvent(SDL_QUIT);
  _signals.start();
  followWindow();
  if (!_context->makeCurrent()) return;
  // Whatever takes long before the first frame, the window shows no garbage meanwhile, and no wait for the
  // display delays it.
  if (composeTree()) _context->exchange();
  followDisplay();
}

// The loop.

void VELSDLWindowHost::run() {
  // A callback may let go of the host: without an owner there is nobody left to stop the loop.
  const auto self = shared_from_this();
  while (step(kInf) && self.use_count() > 1) {
  }
}

bool VELSDLWindowHost::step(double mostSeconds) {
  if (_isTurning) return false;
  const auto self = shared_from_this();
  if (_isOpen && !_isStopped) {
    const VELScopedMark mark(_isTurning);
    turn(mostSeconds);
  }
  return !std::exchange(_isStopped, false) && _isOpen;
}

void VELSDLWindowHost::turn(double mostSeconds) {
  SDL_Event event;
  if (VELSDLNextEvent(event, waitingTime(mostSeconds))) {
    do handle(event);
    while (_isOpen && VELSDLNextEvent(event, 0.0));
  }
  if (!_isOpen) return;
  followWindow();
  _timers.fire(seconds());
  if (canShow() && seconds() >= _pacer.nextBeat() && wantsFrame()) beat();
}

double VELSDLWindowHost::waitingTime(double mostSeconds) const {
  const double now = seconds();
  double wait = std::min(std::isnan(mostSeconds) ? 0.0 : mostSeconds, _timers.nextDue() - now);
  if (canShow() && wantsFrame()) wait = std::min(wait, _pacer.nextBeat() - now);
  return wait;
}

void VELSDLWindowHost::handle(const SDL_Event& event) {
  if (event.type == SDL_QUIT) {
    _wasInterrupted = _wasInterrupted || _isOpen;
    close();
    return;
  }
  if (event.type == SDL_WINDOWEVENT) {
    if (event.window.windowID == window().id()) handleWindow(event.window);
    return;
  }
  const auto windowId = VELSDLInput::windowOf(event);
  if (!windowId || (*windowId != 0 && *windowId != window().id())) return;
  // Places are told in the size that the window has by now: the views below them must have it too.
  followWindow();
  if (const auto touch = _input.touchOf(event, extent(), _clock))
    _router.touch(*touch);
  else if (const auto wheel = _input.wheelOf(event, extent(), _clock))
    _router.wheel(*wheel);
}

void VELSDLWindowHost::handleWindow(const SDL_WindowEvent& event) {
  switch (event.event) {
    case SDL_WINDOWEVENT_CLOSE:
      close();
      break;
    case SDL_WINDOWEVENT_SHOWN:
    case SDL_WINDOWEVENT_RESTORED:
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SIZE_CHANGED:
      _isUncovered = true;
      break;
    case SDL_WINDOWEVENT_DISPLAY_CHANGED:
      followDisplay();
      break;
    case SDL_WINDOWEVENT_HIDDEN:
    case SDL_WINDOWEVENT_MINIMIZED:
    case SDL_WINDOWEVENT_FOCUS_LOST:
      cancelFingers();
      break;
    default:
      break;
  }
}

void VELSDLWindowHost::close() {
  if (!_isOpen) return;
  _isOpen = false;
  _signals.stop();
  window().hide();
  cancelFingers();
}

void VELSDLWindowHost::cancelFingers() {
  _input.forgetFingers();
  _router.cancelAll(seconds());
}

// The window.

void VELSDLWindowHost::followWindow() {
  const VELSize pixels = window().pixels();
  _systemScale = VELDensityOf(window().size(), pixels, _systemScale);
  const double scale = _forcedScale > 0.0 ? _forcedScale : _systemScale;
  if (scale != _contentScale) {
    _contentScale = scale;
    _isUncovered = true;
    _rootView->setTreeContentScale(scale);
    call(_contentScaleChanged, scale);
  }
  const VELSize points = extent().points;
  if (points == _rootView->frame().size()) return;
  _isUncovered = true;
  _rootView->setFrame({0.0, 0.0, points.width, points.height});
  call(_sizeChanged, points);
}

void VELSDLWindowHost::followDisplay() {
  if (_context->makeCurrent()) _pacer.setDisplay(window().refreshPeriod(), _context->synchronise());
}

VELSDLInput::Extent VELSDLWindowHost::extent() const {
  const VELSize units = window().size();
  // Without a density of the application's own a point is the system's unit, whole by nature.
  if (!(_forcedScale > 0.0)) return {units, units};
  const VELSize pixels = window().pixels();
  return {units, {pixels.width / _forcedScale, pixels.height / _forcedScale}};
}

void VELSDLWindowHost::setTitle(const std::string& title) {
  SDL_SetWindowTitle(window().handle(), title.c_str());
}

void VELSDLWindowHost::setBackgroundColor(const VELColor& color) {
  _backgroundColor = color;
  _isUncovered = true;
}

void VELSDLWindowHost::setContentScale(double pixelsPerPoint) {
  if (!isUsable(pixelsPerPoint)) return;
  const auto self = shared_from_this();
  _forcedScale = pixelsPerPoint;
  followWindow();
}

void VELSDLWindowHost::setContentScaleChanged(std::function<void(double)> callback) {
  _contentScaleChanged = std::make_shared<const std::function<void(double)>>(std::move(callback));
}

void VELSDLWindowHost::setSizeChanged(std::function<void(const VELSize&)> callback) {
  _sizeChanged = std::make_shared<const std::function<void(const VELSize&)>>(std::move(callback));
}

uint64_t VELSDLWindowHost::addTimer(double intervalSeconds, std::function<void(double)> callback) {
  return _timers.add(intervalSeconds, std::move(callback), seconds());
}

void VELSDLWindowHost::setTimerInterval(uint64_t key, double intervalSeconds) {
  _timers.setInterval(key, intervalSeconds, seconds());
}

void VELSDLWindowHost::removeTimer(uint64_t key) {
  // What the callback holds ends with it, and may hold the host.
  const auto self = shared_from_this();
  _timers.remove(key);
}

// Frames.

bool VELSDLWindowHost::canShow() const {
  const VELSize pixels = window().pixels();
  return window().isShown() && pixels.width >= 1.0 && pixels.height >= 1.0;
}

bool VELSDLWindowHost::wantsFrame() const {
  return _isUncovered || _context->isLost() || _rootView->isTreeDirty() || _displayLink->isAwaited() ||
         VELTreeFingerprint::of(*_rootView) != _shownFingerprint;
}

void VELSDLWindowHost::beat() {
  const double now = seconds();
  _pacer.beat(now);
  if (!_context->makeCurrent() || (_context->checkLost() && !_context->makeCurrent())) return;

  bool isChanged = _isUncovered || _rootView->isTreeDirty();
  const uint32_t generation = _context->generation();
  _rootView->layoutIfNeeded();
  _displayLink->tick(now);
  _rootView->layoutIfNeeded();
  // Lost in the middle of the beat: some charts have drawn before, some after. The window keeps its picture
  // until the next beat, in which all of them draw.
  if (_context->hasLost(generation)) {
    _isUncovered = true;
    return;
  }
  const uint64_t fingerprint = VELTreeFingerprint::of(*_rootView);
  isChanged = isChanged || fingerprint != _shownFingerprint || _context->generation() != _shownGeneration;
  if (!isChanged || !_context->makeCurrent()) return;

  // Without the composer's program the background alone is shown: still a frame, and no reason for another.
  composeTree();
  // A display that is gone ends the process here, by its own library. Drivers that draw in memory would try
  // to show the picture for ever.
  SDL_PumpEvents();
  _context->exchange();
  _pacer.exchanged(seconds());
  ++_presentedFrames;
  _shownFingerprint = fingerprint;
  _shownGeneration = _context->generation();
  _isUncovered = false;
}

bool VELSDLWindowHost::composeTree() {
  const VELSize pixels = window().pixels();
  const VELColor& color = _backgroundColor;
  _context->gl().bindFramebuffer(VELGL_FRAMEBUFFER, 0);
  return _composer.drawTree(
      *_rootView, {static_cast<int32_t>(pixels.width), static_cast<int32_t>(pixels.height), _contentScale,
                   VELColor(color.red(), color.green(), color.blue())});
}

VELBitmap VELSDLWindowHost::picture() {
  if (!_context->makeCurrent() || !composeTree()) return {};
  const VELSize pixels = window().pixels();
  VELBitmap bitmap(static_cast<int32_t>(pixels.width), static_cast<int32_t>(pixels.height));
  _context->gl().readPixels(0, 0, bitmap.width(), bitmap.height(), bitmap.pixels().data());
  // GL's rows go from the bottom up.
  for (int32_t top = 0, bottom = bitmap.height() - 1; top < bottom; ++top, --bottom)
    std::swap_ranges(bitmap.row(top).begin(), bitmap.row(top).end(), bitmap.row(bottom).begin());
  return bitmap;
}
