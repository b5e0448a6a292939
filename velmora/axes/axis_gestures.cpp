// How gestures change the visible range of an axis.
#include <utility>

#include "velmora/axes/axis_base.h"
#include "velmora/axes/coordinate_calculator.h"

std::shared_ptr<const VELAxisInteractivityHelper> VELAxisBase::getCurrentInteractivityHelper() {
  return std::make_shared<VELAxisInteractivityHelper>(
      getCurrentCoordinateCalculator(),
      VELZoomConstraints{VELGenericDouble(minimalZoomConstrain()), VELGenericDouble(maximalZoomConstrain())});
}

void VELAxisBase::beginGesture() {
  animationController().stop();
  _gestureRange = visibleRange();
  _gestureStart = _gestureRange ? _gestureRange->clone() : nullptr;
}

VELRangePtr VELAxisBase::scrollLimit() {
  if (!_gestureStart || _gestureRange != visibleRange()) beginGesture();
  const VELRangePtr data = getDataRange();
  return data ? data->unionWith(*_gestureStart) : nullptr;
}

void VELAxisBase::scrollByPixels(double pixels, VELClipMode clipMode) {
  animationController().stop();
  // Without a length there is nothing to count pixels against.
  if (!isVisibleRangeValid() || !(getAxisSize() > 1.0)) return;
  const auto helper = getCurrentInteractivityHelper();
  VELRangePtr scrolled = helper->scroll(*visibleRange(), pixels);
  const bool isClipped = clipMode == VELClipMode_HoldEnd || clipMode == VELClipMode_StopAtLimits;
  if (const VELRangePtr limit = isClipped ? scrollLimit() : nullptr)
    scrolled = helper->clip(*scrolled, *visibleRange(), *limit, clipMode);
  if (_visibleRangeLimit)
    scrolled = helper->clip(*scrolled, *visibleRange(), *_visibleRangeLimit, VELClipMode_StopAtLimits);
  setGestureRange(*scrolled);
}

void VELAxisBase::zoomByFractionMin(double minFraction, double maxFraction) {
  animationController().stop();
  if (!isVisibleRangeValid()) return;
  const auto helper = getCurrentInteractivityHelper();
  VELRangePtr zoomed = helper->zoomByFractionMin(*visibleRange(), minFraction, maxFraction);
  if (_visibleRangeLimit)
    zoomed = helper->clip(*zoomed, *visibleRange(), *_visibleRangeLimit, VELClipMode_HoldEnd);
  setGestureRange(*zoomed);
}

void VELAxisBase::setGestureRange(const VELRange& range) {
  const VELRangePtr own = toVisibleRangeMin(range.minAsDouble(), range.maxAsDouble());
  if (!isValidRange(own) || own->equals(visibleRange())) return;
  // Who is told of the range may set another one, which ends the gesture, and may let go of this axis.
  const auto self = weak_from_this().lock();
  const bool isSameGesture = _gestureRange == visibleRange();
  setVisibleRange(own);
  if (isSameGesture && own->equals(visibleRange())) _gestureRange = visibleRange();
}
