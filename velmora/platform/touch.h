// platform/touch.h: fingers and wheel, as a host hands them to views.
//
// Units: points, in the host's root view; seconds of the host's clock, the one that beats the display link.
#pragma once

#include <cstdint>

#include "velmora/platform/geometry.h"

enum VELTouchPhase : int32_t {
  VELTouchPhase_Began = 0,
  VELTouchPhase_Moved = 1,
  VELTouchPhase_Ended = 2,
  VELTouchPhase_Cancelled = 3,  ///< the system took the finger away: what the touch began is undone
};

/// What one finger did. A mouse is a finger while its left button is down.
struct VELTouch {
  int64_t id =
      0;  ///< the same from the beginning of a touch to its end, unlike that of any other finger down
  VELTouchPhase phase = VELTouchPhase_Began;
  VELPoint location;
  double seconds = 0.0;
  bool isMouse = false;
};

/// A turn of the wheel, or two fingers on a touch pad.
struct VELWheel {
  VELPoint location;
  double deltaX = 0.0;  ///< notches; positive to the right
  double deltaY = 0.0;  ///< notches; positive away from the user
  double seconds = 0.0;
};
