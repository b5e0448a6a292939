// axes/axis_resize_animation_helper.h: the way of a visible range to another in time.
//
// Units: seconds.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/data/range.h"
#include "velmora/platform/display_link.h"
#include "velmora/platform/export.h"

class VELAxisCore;

/// Moves the visible range of its axis to a target, a step at each beat of the display.
///
/// The first beat after the start is the moment zero; an animation that is given another target on its way
/// goes on from its last beat, so that a target that moves at every beat is followed. A step is linear in the
/// values, on a logarithmic axis in the exponents; the last one sets the target itself. It belongs to its
/// axis, ends with it, and runs only for an axis that a shared pointer owns.
class VELMORA_API VELAxisResizeAnimationHelper {
 public:
  explicit VELAxisResizeAnimationHelper(VELAxisCore& axis) : _axis(axis) {}
  VELAxisResizeAnimationHelper(const VELAxisResizeAnimationHelper&) = delete;
  VELAxisResizeAnimationHelper& operator=(const VELAxisResizeAnimationHelper&) = delete;
  ~VELAxisResizeAnimationHelper();

  /// Starts from the present range. Nothing changes for the target that it is on its way to already.
  /// @param target a range that the axis accepts; a copy is kept
  /// @return false when there is nothing to animate, no way because a bound is infinite, or nobody to beat
  ///         time: then nothing was done
  bool animateTo(const VELRange& target, double duration);
  /// The range stays where it is.
  void stop();
  bool isRunning() const { return _key != 0; }
  /// Of the animation that runs or ran last; null before the first.
  const VELRangePtr& target() const { return _target; }

 private:
  bool canAnimateTo(const VELRange& target, double duration) const;
  /// One beat. Setting the range may be the end of axis and helper.
  void step(double seconds);
  VELRangePtr rangeAt(double fraction) const;

  VELAxisCore& _axis;
  std::weak_ptr<VELDisplayLink> _displayLink;
  uint64_t _key = 0;
  VELRangePtr _from;
  VELRangePtr _target;
  double _duration = 0.0;
  double _start = 0.0;
  double _lastBeat = 0.0;
  bool _hasStarted = false;
};
