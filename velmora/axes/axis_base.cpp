#include "velmora/axes/axis_base.h"

#include <cmath>
#include <span>
#include <utility>

#include "velmora/axes/axis_drawing.h"
#include "velmora/axes/axis_panel.h"
#include "velmora/axes/coordinate_calculator_factory.h"
#include "velmora/axes/tick_coordinates_provider.h"
#include "velmora/axes/tick_provider.h"
#include "velmora/platform/exception.h"

VELAxisBase::VELAxisBase()
    : _axisId(defaultAxisId),
      _panel(std::make_shared<VELAxisPanel>()),
      _drawing(std::make_unique<VELAxisDrawing>(*this)) {
  watchStyle();
}

VELAxisBase::~VELAxisBase() = default;

void VELAxisBase::watchStyle() {
  // The style is a member and never outlives the axis.
  _style.setStyleChanged([this] { invalidateElement(); });
}

void VELAxisBase::setStyle(const VELAxisStyle& style) { _style = style; }

void VELAxisBase::setAxisId(std::string id) {
  _axisId = std::move(id);
  invalidateElement();
}

void VELAxisBase::setAxisAlignment(VELAxisAlignment alignment) {
  if (alignment == _axisAlignment) return;
  _axisAlignment = alignment;
  placeChanged();
}

void VELAxisBase::placeChanged() {
  // The block may replace itself and may let go of this axis.
  const auto self = weak_from_this().lock();
  const auto block = _onAxisAlignmentChanged;
  if (block) block();
  invalidateElement();
}

VELAxisAlignment VELAxisBase::effectiveAlignment() const {
  if (_axisAlignment != VELAxisAlignment_Default) return _axisAlignment;
  return isXAxis() ? VELAxisAlignment_Bottom : VELAxisAlignment_Right;
}

void VELAxisBase::setIsCenterAxis(bool isCenterAxis) {
  if (isCenterAxis == _isCenterAxis) return;
  _isCenterAxis = isCenterAxis;
  placeChanged();
}

void VELAxisBase::setIsPrimaryAxis(bool isPrimaryAxis) {
  _isPrimaryAxis = isPrimaryAxis;
  invalidateElement();
}

void VELAxisBase::refuseDataType(VELDataType type) const {
  static constexpr const char* kNames[] = {
      "None",    "Int16",    "Int32",    "Int64",    "Byte",     "Float",     "Double", "DateTime", nullptr,
      "CharPtr", "Int16Ptr", "Int32Ptr", "Int64Ptr", "FloatPtr", "DoublePtr", "Array",  "Object"};
  const auto index = static_cast<size_t>(type);
  const char* name = index < std::size(kNames) ? kNames[index] : nullptr;
  const std::string typeName = name ? std::string("VELDataType_") + name : std::to_string(type);
  throw VELInvalidArgumentException("Axis type " + className() + " does not accept data of type " + typeName);
}

void VELAxisBase::assertDataType(VELDataType type) const {
  if (!VELIsNumericType(type)) refuseDataType(type);
}

VELAxisParams VELAxisBase::getAxisParams() const {
  VELAxisParams params;
  params.flipCoordinates = flipCoordinates();
  params.isXAxis = isXAxis();
  params.isHorizontal = isHorizontalAxis();
  if (visibleRange()) {
    params.visibleMax = visibleRange()->maxAsDouble();
    params.visibleMin = visibleRange()->minAsDouble();
  }
  params.offset = getAxisOffset();
  params.size = getAxisSize();
  return params;
}

std::shared_ptr<VELCoordinateCalculator> VELAxisBase::getCurrentCoordinateCalculator() {
  _currentCoordinateCalculator = VELCoordinateCalculatorFactory::getInstance(getAxisParams());
  return _currentCoordinateCalculator;
}

double VELAxisBase::getAxisSize() const {
  const bool horizontal = isHorizontalAxis();
  const auto lengthOf = [horizontal](const VELRect& rect) { return horizontal ? rect.width : rect.height; };
  if (_panel->superview() && lengthOf(_panel->frame()) > 0.0) return lengthOf(_panel->frame());
  const auto surface = parentSurface();
  return surface ? lengthOf(surface->chartFrame()) : 0.0;
}

double VELAxisBase::getAxisOffset() const {
  const bool horizontal = isHorizontalAxis();
  const VELRect panel = _panel->frameInChart();
  const auto surface = parentSurface();
  if (!surface || !_panel->superview() || (horizontal ? panel.width : panel.height) <= 0.0) return 0.0;
  const VELRect chart = surface->chartFrame();
  return horizontal ? panel.x - chart.x : panel.y - chart.y;
}

bool VELAxisBase::isPointWithinBounds(VELPoint point) const {
  return _panel->superview() && _panel->frameInChart().contains(point);
}

void VELAxisBase::bindTickCoordinatesProvider(VELTickCoordinatesProvider& provider) const {
  const auto self = std::const_pointer_cast<VELAxisCore>(weak_from_this().lock());
  provider.setParentAxis(std::static_pointer_cast<VELAxisBase>(self));
}

std::shared_ptr<const VELTickCoordinates> VELAxisBase::CalculateTicks() {
  calculateDelta();
  const auto provider = tickProvider();
  const auto coordinates = tickCoordinatesProvider();
  if (!provider || !coordinates) return std::make_shared<VELTickCoordinates>();
  const auto major = provider->getMajorTicksFromAxis(*this);
  const auto minor = provider->getMinorTicksFromAxis(*this);
  const auto valuesOf = [](const std::shared_ptr<VELArrayController>& list) {
    return list ? std::as_const(*list).doubles() : std::span<const double>();
  };
  std::shared_ptr<const VELTickCoordinates> ticks =
      coordinates->getTickCoordinatesWithMinorTicks(valuesOf(minor), valuesOf(major));
  return ticks ? ticks : std::make_shared<VELTickCoordinates>();
}

int32_t VELAxisBase::p_VEL_getMajorTickIndex(double value) const {
  constexpr double kLimit = 2147483647.0;
  const auto* category =
      dynamic_cast<const VELICategoryCoordinateCalculator*>(_currentCoordinateCalculator.get());
  if (category) value = category->transformDataToIndex(value);
  if (isLogarithmicAxis())
    value = VELAxisScale::forBound(true, value).place(value) / std::abs(std::log(logarithmicBase()));
  double index = value / VELGenericDouble(majorDelta());
  // Numbers beyond 32 bits start again, downwards as well as upwards.
  if (std::abs(index) >= kLimit) index = (index / kLimit - std::trunc(index / kLimit)) * kLimit;
  index = std::round(index);
  return std::abs(index) <= kLimit ? static_cast<int32_t>(index) : 0;
}

void VELAxisBase::validateAxis() { _drawing->validate(); }

void VELAxisBase::prepareForDrawing() { _drawing->prepare(); }

void VELAxisBase::drawAxisAreaWithContext(VELRenderContext2D& context) { _drawing->drawTicks(context); }

void VELAxisBase::prepareToDrawGridLines(VELRenderContext2D& context) { _drawing->prepareGrid(context); }

void VELAxisBase::drawBandsWithContext(VELRenderContext2D& context) { _drawing->drawBands(context); }

void VELAxisBase::drawMinorGridLinesWithContext(VELRenderContext2D& context) {
  _drawing->drawMinorGridLines(context);
}

void VELAxisBase::drawMajorGridLinesWithContext(VELRenderContext2D& context) {
  _drawing->drawMajorGridLines(context);
}

void VELAxisBase::clear() { _drawing->clear(); }
