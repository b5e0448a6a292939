#include "velmora/axes/axis_interactivity_helper.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// Of the magnitude: a narrower span is noise of its own bounds.
constexpr double kNarrowestSpan = 1e-12;

VELRangePtr likeRange(const VELRange& range, double min, double max) {
  if (range.rangeType() == VELRangeType_Date) return std::make_shared<VELDateRange>(min, max);
  return std::make_shared<VELDoubleRange>(min, max);
}

}  // namespace

VELAxisInteractivityHelper::VELAxisInteractivityHelper(
    std::shared_ptr<const VELCoordinateCalculator> calculator, const VELZoomConstraints& constraints)
    : _calculator(std::move(calculator)), _constraints(constraints) {
  const auto* logarithmic = dynamic_cast<const VELLogarithmicCoordinateCalculator*>(_calculator.get());
  if (!logarithmic) return;
  _isLogarithmic = true;
  // The scale counts in natural exponents.
  const double perPower = std::abs(std::log(logarithmic->logarithmicBase()));
  _constraints = {constraints.minimal * perPower, constraints.maximal * perPower};
}

VELAxisInteractivityHelper::Places VELAxisInteractivityHelper::placesOf(const VELRange& range) const {
  const double min = range.minAsDouble(), max = range.maxAsDouble();
  const VELAxisScale scale = VELAxisScale::forBound(_isLogarithmic, min);
  return {scale, scale.place(min), scale.place(max)};
}

double VELAxisInteractivityHelper::distance(const VELRange& range, const Places& places,
                                            double pixels) const {
  // Over the whole range instead of over so many pixels: a long way leaves the numbers, not the exponents.
  const double length = _calculator->getCoordinateFrom(range.maxAsDouble()) -
                        _calculator->getCoordinateFrom(range.minAsDouble());
  // Below one point the ends have changed places.
  const bool isAscending = _calculator->isXAxisCalculator() != _calculator->hasFlippedCoordinates();
  if (!(isAscending ? length > 0.0 : length < 0.0)) return std::numeric_limits<double>::quiet_NaN();
  const double moved = pixels * (places.span() / length);
  return _calculator->isXAxisCalculator() ? -moved : moved;
}

VELRangePtr VELAxisInteractivityHelper::checked(const VELRange& range, double min, double max) const {
  const double former = range.maxAsDouble() - range.minAsDouble();
  const double span = max - min;
  const double narrowest = kNarrowestSpan * std::max(std::abs(min), std::abs(max));
  const VELRangePtr result = likeRange(range, min, max);
  const bool isOnOneSide = min != 0.0 && max != 0.0 &&
                           std::signbit(min) == std::signbit(range.minAsDouble()) &&
                           std::signbit(max) == std::signbit(min);
  // What is too narrow already may still be widened.
  const bool isUseful = span > 0.0 && std::isfinite(span) && (span >= narrowest || span >= former) &&
                        (_isLogarithmic ? isOnOneSide : !result->isZero());
  return isUseful ? result : likeRange(range, range.minAsDouble(), range.maxAsDouble());
}

VELRangePtr VELAxisInteractivityHelper::moved(const VELRange& range, const Places& places, double minBy,
                                              double maxBy) const {
  // An end that does not move keeps its bits, whatever the way over the scale would make of them.
  const double min = minBy == 0.0 ? range.minAsDouble() : places.scale.value(places.min + minBy);
  const double max = maxBy == 0.0 ? range.maxAsDouble() : places.scale.value(places.max + maxBy);
  return checked(range, min, max);
}

double VELAxisInteractivityHelper::allowedSpan(double from, double to) const {
  const auto [minimal, maximal] = _constraints;
  // A span beyond a bound was somebody's wish: a gesture goes no further, but does not take it back.
  if (to < from && !std::isnan(minimal)) return std::max(to, std::min(minimal, from));
  if (to > from && !std::isnan(maximal)) return std::min(to, std::max(maximal, from));
  return to;
}

VELRangePtr VELAxisInteractivityHelper::scroll(const VELRange& range, double pixels) const {
  const Places places = placesOf(range);
  const double by = distance(range, places, pixels);
  return moved(range, places, by, by);
}

VELRangePtr VELAxisInteractivityHelper::scrollInMinDirection(const VELRange& range, double pixels) const {
  const Places places = placesOf(range);
  const double by = distance(range, places, pixels);
  const double wanted = places.span() - by, allowed = allowedSpan(places.span(), wanted);
  return moved(range, places, allowed == wanted ? by : places.span() - allowed, 0.0);
}

VELRangePtr VELAxisInteractivityHelper::scrollInMaxDirection(const VELRange& range, double pixels) const {
  const Places places = placesOf(range);
  const double by = distance(range, places, pixels);
  const double wanted = places.span() + by, allowed = allowedSpan(places.span(), wanted);
  return moved(range, places, 0.0, allowed == wanted ? by : allowed - places.span());
}

VELRangePtr VELAxisInteractivityHelper::scrollByFraction(const VELRange& range, double fraction) const {
  const Places places = placesOf(range);
  const double by = fraction * places.span();
  return moved(range, places, by, by);
}

VELRangePtr VELAxisInteractivityHelper::zoomByFractionMin(const VELRange& range, double minFraction,
                                                          double maxFraction) const {
  const Places places = placesOf(range);
  const double span = places.span();
  const double wanted = span * (1.0 + minFraction + maxFraction), allowed = allowedSpan(span, wanted);
  const double part = allowed == wanted ? 1.0 : (allowed - span) / (wanted - span);
  return moved(range, places, -minFraction * part * span, maxFraction * part * span);
}

VELRangePtr VELAxisInteractivityHelper::clip(const VELRange& scrolled, const VELRange& from,
                                             const VELRange& limit, VELClipMode mode) const {
  double min = scrolled.minAsDouble(), max = scrolled.maxAsDouble();
  // Bounds that are NaN limit nothing.
  const double lowest = std::fmin(limit.minAsDouble(), from.minAsDouble());
  const double highest = std::fmax(limit.maxAsDouble(), from.maxAsDouble());
  const bool isBelow = min < lowest;
  const bool isAbove = max > highest;
  const bool isClipped = mode == VELClipMode_HoldEnd || mode == VELClipMode_StopAtLimits;
  if (!isClipped || !(isBelow || isAbove)) return checked(from, min, max);

  min = std::max(min, lowest);
  max = std::min(max, highest);
  const Places before = placesOf(from);
  const VELAxisScale& scale = before.scale;
  const double left = scale.place(max) - scale.place(min);
  const double span =
      mode == VELClipMode_HoldEnd ? allowedSpan(before.span(), left) : placesOf(scrolled).span();
  // The end that was not stopped follows, unless it is right: then it keeps its bits.
  if (span != left && isBelow)
    max = std::min(scale.value(scale.place(min) + span), highest);
  else if (span != left)
    min = std::max(scale.value(scale.place(max) - span), lowest);
  return checked(from, min, max);
}
