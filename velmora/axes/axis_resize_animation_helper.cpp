#include "velmora/axes/axis_resize_animation_helper.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "velmora/axes/axis_core.h"
#include "velmora/axes/axis_scale.h"

namespace {

bool isFinite(const VELRange& range) {
  return std::isfinite(range.minAsDouble()) && std::isfinite(range.maxAsDouble());
}

}  // namespace

VELAxisResizeAnimationHelper::~VELAxisResizeAnimationHelper() { stop(); }

bool VELAxisResizeAnimationHelper::canAnimateTo(const VELRange& target, double duration) const {
  if (!(duration > 0.0) || !std::isfinite(duration)) return false;
  const VELRangePtr& from = _axis.visibleRange();
  if (!_axis.isVisibleRangeValid() || from->equals(target) || _axis.weak_from_this().expired()) return false;
  if (!isFinite(*from) || !isFinite(target)) return false;
  // There is no way across the zero of a logarithmic axis.
  return !_axis.isLogarithmicAxis() ||
         std::signbit(from->minAsDouble()) == std::signbit(target.minAsDouble());
}

bool VELAxisResizeAnimationHelper::animateTo(const VELRange& target, double duration) {
  if (!canAnimateTo(target, duration)) return false;
  if (isRunning() && _target->equals(target)) return true;
  const auto surface = _axis.parentSurface();
  const auto link = surface ? surface->displayLink() : nullptr;
  if (!link) return false;
  if (_displayLink.lock() != link) stop();

  _from = _axis.visibleRange()->clone();
  _target = target.clone();
  _duration = duration;
  _start = _lastBeat;
  if (!isRunning()) {
    _displayLink = link;
    _hasStarted = false;
    _key = link->add([this](double seconds) { step(seconds); }, true);
  }
  // A display that rests while nothing changes beats again.
  _axis.invalidateElement();
  return true;
}

void VELAxisResizeAnimationHelper::stop() {
  if (!isRunning()) return;
  if (const auto link = _displayLink.lock()) link->remove(_key);
  _key = 0;
  _displayLink.reset();
}

void VELAxisResizeAnimationHelper::step(double seconds) {
  if (!std::exchange(_hasStarted, true)) {
    _start = _lastBeat = seconds;
    _axis.invalidateElement();
    return;
  }
  _lastBeat = seconds;
  const double fraction = (seconds - _start) / _duration;
  // Also where time is no number: the target is reached rather than never.
  const bool isLast = !(fraction < 1.0);
  VELRangePtr next = isLast ? _target : rangeAt(std::max(fraction, 0.0));
  if (isLast) stop();
  _axis.p_VEL_applyVisibleRange(std::move(next), true);
}

VELRangePtr VELAxisResizeAnimationHelper::rangeAt(double fraction) const {
  const VELAxisScale scale = VELAxisScale::forBound(_axis.isLogarithmicAxis(), _target->minAsDouble());
  // Weights, since the difference of two finite bounds may be infinite.
  const auto between = [&](double from, double to) {
    return scale.value(scale.place(from) * (1.0 - fraction) + scale.place(to) * fraction);
  };
  return _axis.toVisibleRangeMin(between(_from->minAsDouble(), _target->minAsDouble()),
                                 between(_from->maxAsDouble(), _target->maxAsDouble()));
}
