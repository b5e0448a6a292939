#include "velmora/platform/sdl/sdl_input.h"

#include <algorithm>

namespace {

constexpr int64_t kMouseId = -1;
constexpr int64_t kUnknown = -2;

VELPoint inPoints(double x, double y, const VELSDLInput::Extent& extent) {
  const auto scaled = [](double place, double units, double points) {
    return units > 0.0 ? place * points / units : 0.0;
  };
  return {scaled(x, extent.units.width, extent.points.width),
          scaled(y, extent.units.height, extent.points.height)};
}

VELTouchPhase phaseOf(uint32_t type) {
  if (type == SDL_FINGERDOWN || type == SDL_MOUSEBUTTONDOWN) return VELTouchPhase_Began;
  return type == SDL_FINGERUP || type == SDL_MOUSEBUTTONUP ? VELTouchPhase_Ended : VELTouchPhase_Moved;
}

}  // namespace

std::optional<uint32_t> VELSDLInput::windowOf(const SDL_Event& event) {
  switch (event.type) {
    case SDL_FINGERDOWN:
    case SDL_FINGERMOTION:
    case SDL_FINGERUP:
      return event.tfinger.windowID;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
      return event.button.windowID;
    case SDL_MOUSEMOTION:
      return event.motion.windowID;
    case SDL_MOUSEWHEEL:
      return event.wheel.windowID;
    default:
      return std::nullopt;
  }
}

void VELSDLInput::forgetFingers() {
  _fingers.clear();
  _isMouseDown = false;
}

std::optional<VELTouch> VELSDLInput::touchOf(const SDL_Event& event, const Extent& extent,
                                             const VELSDLClock& clock) {
  std::optional<VELTouch> touch;
  switch (event.type) {
    case SDL_FINGERDOWN:
    case SDL_FINGERMOTION:
    case SDL_FINGERUP:
      touch = fingerOf(event.tfinger, extent);
      break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEMOTION:
    case SDL_MOUSEBUTTONUP:
      touch = mouseOf(event, extent);
      break;
    default:
      break;
  }
  if (touch) touch->seconds = clock.secondsOf(event.common.timestamp);
  return touch;
}

std::optional<VELTouch> VELSDLInput::mouseOf(const SDL_Event& event, const Extent& extent) {
  const bool isMotion = event.type == SDL_MOUSEMOTION;
  const uint32_t device = isMotion ? event.motion.which : event.button.which;
  if (device == SDL_TOUCH_MOUSEID || (!isMotion && event.button.button != SDL_BUTTON_LEFT))
    return std::nullopt;
  const VELTouchPhase phase = phaseOf(event.type);
  if (phase != VELTouchPhase_Began && !_isMouseDown) return std::nullopt;
  _isMouseDown = phase != VELTouchPhase_Ended;
  const VELPoint place = isMotion ? inPoints(event.motion.x, event.motion.y, extent)
                                  : inPoints(event.button.x, event.button.y, extent);
  return VELTouch{kMouseId, phase, place, 0.0, true};
}

std::optional<VELTouch> VELSDLInput::fingerOf(const SDL_TouchFingerEvent& event, const Extent& extent) {
  if (event.touchId == SDL_MOUSE_TOUCHID) return std::nullopt;
  const int64_t id = idOf(event);
  if (id == kUnknown) return std::nullopt;
  // Fingers are told in parts of the window.
  return VELTouch{id, phaseOf(event.type), {event.x * extent.points.width, event.y * extent.points.height}};
}

int64_t VELSDLInput::idOf(const SDL_TouchFingerEvent& event) {
  const auto known = std::find_if(_fingers.begin(), _fingers.end(), [&](const Finger& finger) {
    return finger.device == event.touchId && finger.finger == event.fingerId;
  });
  if (known != _fingers.end()) {
    const int64_t id = known->id;
    if (event.type == SDL_FINGERUP) _fingers.erase(known);
    return id;
  }
  if (event.type != SDL_FINGERDOWN) return kUnknown;
  int64_t id = 0;
  while (std::any_of(_fingers.begin(), _fingers.end(), [&](const Finger& finger) { return finger.id == id; }))
    ++id;
  _fingers.push_back({event.touchId, event.fingerId, id});
  return id;
}

std::optional<VELWheel> VELSDLInput::wheelOf(const SDL_Event& event, const Extent& extent,
                                             const VELSDLClock& clock) {
  if (event.type != SDL_MOUSEWHEEL || event.wheel.which == SDL_TOUCH_MOUSEID) return std::nullopt;
  int x = 0, y = 0;
  SDL_GetMouseState(&x, &y);
  // A system with "natural" scrolling tells the turned direction, and that it did.
  const double sign = event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -1.0 : 1.0;
  return VELWheel{inPoints(x, y, extent), sign * double{event.wheel.preciseX},
                  sign * double{event.wheel.preciseY}, clock.secondsOf(event.common.timestamp)};
}
