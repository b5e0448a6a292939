#include "velmora/axes/axis_core.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <utility>

#include "velmora/axes/delta_calculator.h"
#include "velmora/axes/label_provider.h"
#include "velmora/axes/tick_coordinates_provider.h"
#include "velmora/axes/tick_provider.h"
#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"
#include "velmora/platform/exception.h"

namespace {

[[noreturn]] void raiseNotImplemented() {
  // The name is spelled so on purpose: applications tell exceptions apart by it.
  throw VELException("Operation excpetion", "Method not implemented");
}

std::string plainText(const VELGenericType& value) {
  std::array<char, 25> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.2f", VELGenericDouble(value));
  return buffer.data();
}

bool isSameBound(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

// Shows the same, whatever the classes are.
bool isSameRange(const VELRangePtr& a, const VELRangePtr& b) {
  if (!a || !b) return a == b;
  return isSameBound(a->minAsDouble(), b->minAsDouble()) && isSameBound(a->maxAsDouble(), b->maxAsDouble());
}

}  // namespace

VELAxisCore::VELAxisCore() : _animationController(*this) {
  p_VEL_setCoreDefaults();
  _tickCoordinatesProvider = std::make_shared<VELTickCoordinatesProviderDefault>();
}

VELAxisCore::~VELAxisCore() = default;

void VELAxisCore::p_VEL_setCoreDefaults() {
  const VELGenericType none = std::numeric_limits<float>::quiet_NaN();
  _majorDelta = none;
  _minorDelta = none;
  _minimalZoomConstrain = none;
  _maximalZoomConstrain = none;
}

void VELAxisCore::resetVisibleRange() {
  _visibleRange = getDefaultNonZeroRange();
  _visibleRangeWasSet = false;
}

void VELAxisCore::invalidateElement() {
  if (const auto surface = parentSurface()) surface->invalidateElement();
}

void VELAxisCore::setParentSurface(const std::weak_ptr<VELAxisSurface>& surface) {
  if (surface.lock() != parentSurface()) _animationController.stop();
  _parentSurface = surface;
}

void VELAxisCore::setFlipCoordinates(bool flip) {
  _flipCoordinates = flip;
  invalidateElement();
}

void VELAxisCore::setAutoTicks(bool autoTicks) {
  _autoTicks = autoTicks;
  invalidateElement();
}

void VELAxisCore::setVisibleRange(const VELRangePtr& range) {
  if (range) p_VEL_validateVisibleRange(*range);
  VELRangePtr own = range ? range->clone() : nullptr;
  _animationController.stop();
  p_VEL_applyVisibleRange(std::move(own), false);
}

void VELAxisCore::p_VEL_applyVisibleRange(VELRangePtr range, bool isAnimationChange) {
  const VELRangePtr former = std::exchange(_visibleRange, std::move(range));
  _visibleRangeWasSet = true;
  invalidateElement();
  if (_rangeCallbackHandler.isEmpty() || isSameRange(former, _visibleRange)) return;
  // A block may let go of this axis.
  const auto self = weak_from_this().lock();
  _rangeCallbackHandler.notify(former, _visibleRange ? _visibleRange->clone() : nullptr, isAnimationChange);
}

uint64_t VELAxisCore::addOnVisibleRangeChanged(VELRangeChangedCallbackHandler::Block block) {
  return _rangeCallbackHandler.add(std::move(block));
}

VELRangePtr VELAxisCore::toVisibleRangeMin(const VELGenericType& min, const VELGenericType& max) const {
  return VELMakeRecycled<VELDoubleRange>(min, max);
}

void VELAxisCore::setGrowBy(const VELRangePtr& fractions) {
  _growBy = fractions ? fractions->clone() : nullptr;
  invalidateElement();
}

void VELAxisCore::setAutoRange(VELAutoRange mode) {
  _autoRange = mode;
  invalidateElement();
}

void VELAxisCore::setAxisTitle(std::string title) {
  _axisTitle = std::move(title);
  invalidateElement();
}

void VELAxisCore::setTextFormatting(std::string format) {
  _textFormatting = std::move(format);
  invalidateElement();
}

void VELAxisCore::setCursorTextFormatting(std::string format) {
  _cursorTextFormatting = std::move(format);
  invalidateElement();
}

void VELAxisCore::setNumberFormatter(std::shared_ptr<VELNumberFormatter> formatter) {
  _numberFormatter = std::move(formatter);
  invalidateElement();
}

void VELAxisCore::setMajorDelta(const VELGenericType& delta) {
  _majorDelta = delta;
  invalidateElement();
}

void VELAxisCore::setMinorDelta(const VELGenericType& delta) {
  _minorDelta = delta;
  invalidateElement();
}

void VELAxisCore::setMinorsPerMajor(int32_t count) {
  _minorsPerMajor = count;
  invalidateElement();
}

void VELAxisCore::setMaxAutoTicks(int32_t count) {
  _maxAutoTicks = count;
  invalidateElement();
}

// Providers learn their axis when they are asked for: at construction nobody shares the axis yet, and a
// provider that two axes share then works for the one that asks.
std::shared_ptr<VELTickProvider> VELAxisCore::tickProvider() const {
  if (_tickProvider) bindTickProvider(*_tickProvider);
  return _tickProvider;
}

void VELAxisCore::bindTickProvider(VELTickProvider& provider) const {
  provider.setAxis(std::const_pointer_cast<VELAxisCore>(weak_from_this().lock()));
}

void VELAxisCore::setTickProvider(std::shared_ptr<VELTickProvider> provider) {
  _tickProvider = std::move(provider);
  invalidateElement();
}

std::shared_ptr<VELTickCoordinatesProvider> VELAxisCore::tickCoordinatesProvider() const {
  if (_tickCoordinatesProvider) bindTickCoordinatesProvider(*_tickCoordinatesProvider);
  return _tickCoordinatesProvider;
}

void VELAxisCore::setTickCoordinatesProvider(std::shared_ptr<VELTickCoordinatesProvider> provider) {
  _tickCoordinatesProvider = std::move(provider);
  invalidateElement();
}

void VELAxisCore::bindTickCoordinatesProvider(VELTickCoordinatesProvider&) const {}

std::shared_ptr<VELLabelProviderBase> VELAxisCore::labelProvider() const {
  if (_labelProvider)
    _labelProvider->setParentAxis(std::const_pointer_cast<VELAxisCore>(weak_from_this().lock()));
  return _labelProvider;
}

void VELAxisCore::setLabelProvider(std::shared_ptr<VELLabelProviderBase> provider) {
  _labelProvider = std::move(provider);
  invalidateElement();
}

std::string VELAxisCore::formatText(const VELGenericType& value) const {
  const auto provider = labelProvider();
  return provider ? provider->formatLabel(value) : plainText(value);
}

std::string VELAxisCore::formatCursorText(const VELGenericType& value) const {
  const auto provider = labelProvider();
  return provider ? provider->formatCursorLabel(value) : plainText(value);
}

bool VELAxisCore::isValidRange(const VELRangePtr& range) const {
  return range && isRangeOfValidType(*range) && range->isDefined() &&
         range->maxAsDouble() >= range->minAsDouble();
}

bool VELAxisCore::isVisibleRangeValid() const {
  // Infinite bounds, and finite ones that are too far apart for a double, have no place on a screen.
  return isValidRange(_visibleRange) && !_visibleRange->isZero() &&
         std::isfinite(_visibleRange->maxAsDouble() - _visibleRange->minAsDouble());
}

bool VELAxisCore::hasDefaultVisibleRange() const {
  return !_visibleRangeWasSet && _visibleRange && _visibleRange->equals(getDefaultNonZeroRange());
}

void VELAxisCore::assertRangeType(const VELRange& range) const {
  if (isRangeOfValidType(range)) return;
  throw VELException(
      "Invalide operation",
      "Axis type " + className() + " requires that VisibleRange is of type " + validRangeClassName());
}

void VELAxisCore::p_VEL_validateVisibleRange(const VELRange& range) const {
  assertRangeType(range);
  const double min = range.minAsDouble(), max = range.maxAsDouble();
  if (!(min > max)) return;
  throw VELException("Invalide argument",
                     "VisibleRange.Min (value=" + std::to_string(min) +
                         ") must be less than VisibleRange.Max (value=" + std::to_string(max) + ")");
}

void VELAxisCore::calculateDelta() {
  if (!_autoTicks || !_visibleRange) return;
  const auto delta = getDeltaCalculator().getDeltaFromRangeMin(_visibleRange->min(), _visibleRange->max(),
                                                               _minorsPerMajor, getMaxAutoTicks());
  if (!delta) return;
  // Not through the setters: what a pass works out itself must not ask for another pass.
  _majorDelta = delta->majorDelta;
  _minorDelta = delta->minorDelta;
}

std::shared_ptr<VELCoordinateCalculator> VELAxisCore::getCurrentCoordinateCalculator() {
  raiseNotImplemented();
}

VELDeltaCalculator& VELAxisCore::getDeltaCalculator() const { raiseNotImplemented(); }

VELRangePtr VELAxisCore::getDefaultNonZeroRange() const { raiseNotImplemented(); }

bool VELAxisCore::isRangeOfValidType(const VELRange&) const { raiseNotImplemented(); }
