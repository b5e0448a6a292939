// platform/gesture_recognizer.h: a gesture while it goes on, as those who answer it see it.
#pragma once

#include <cstdint>

#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"

class VELView;

enum VELGestureState : int32_t {
  VELGestureState_Possible = 0,
  VELGestureState_Began = 1,
  VELGestureState_Changed = 2,
  VELGestureState_Ended = 3,
  VELGestureState_Cancelled = 4,
  VELGestureState_Failed = 5,
};

/// A tap, a double tap or a pan.
class VELMORA_API VELGestureRecognizer {
 public:
  virtual ~VELGestureRecognizer() = default;
  virtual VELGestureState state() const = 0;
  /// Where the gesture is, in points of a view.
  virtual VELPoint locationInView(const VELView& view) const = 0;
};

/// Two fingers that move apart or together.
class VELMORA_API VELPinchGestureRecognizer : public VELGestureRecognizer {
 public:
  /// Distance of the fingers as a multiple of that at the start.
  virtual double scale() const = 0;
  virtual int32_t numberOfTouches() const = 0;
  /// Where a finger is, in points of a view. @param index below `numberOfTouches`
  virtual VELPoint locationOfTouch(int32_t index, const VELView& view) const = 0;
};
