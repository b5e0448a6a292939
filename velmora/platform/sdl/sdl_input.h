// platform/sdl/sdl_input.h: the system's events as touches and turns of the wheel.
//
// Units: points of the root view for what comes out; seconds of the clock of the window.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <optional>
#include <vector>

#include "velmora/platform/geometry.h"
#include "velmora/platform/sdl/sdl_clock.h"
#include "velmora/platform/touch.h"

/// Translates what happened in one window.
///
/// The mouse is the finger −1 while its left button is down; other buttons, and a mouse that only hovers, say
/// nothing. Every other finger has the smallest number from 0 that no finger down has. A mouse that the
/// system makes up for a finger, and a finger that it makes up for a mouse, say nothing either.
class VELSDLInput {
 public:
  /// The window in its own units, in which the mouse is told, and in points.
  struct Extent {
    VELSize units;
    VELSize points;
  };

  /// The window that a finger, the mouse or the wheel is over, 0 for none; nothing for another event.
  static std::optional<uint32_t> windowOf(const SDL_Event& event);
  /// Nothing for an event that tells of no finger.
  std::optional<VELTouch> touchOf(const SDL_Event& event, const Extent& extent, const VELSDLClock& clock);
  /// Nothing for an event that tells of no wheel.
  std::optional<VELWheel> wheelOf(const SDL_Event& event, const Extent& extent, const VELSDLClock& clock);
  /// Every finger counts as lifted; what the system still tells of them says nothing.
  void forgetFingers();

 private:
  struct Finger {
    SDL_TouchID device;
    SDL_FingerID finger;
    int64_t id;
  };

  std::optional<VELTouch> mouseOf(const SDL_Event& event, const Extent& extent);
  std::optional<VELTouch> fingerOf(const SDL_TouchFingerEvent& event, const Extent& extent);
  int64_t idOf(const SDL_TouchFingerEvent& event);

  std::vector<Finger> _fingers;
  bool _isMouseDown = false;
};
