#include "velmora/axes/tick_coordinates_provider.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "velmora/axes/axis_base.h"
#include "velmora/axes/coordinate_calculator.h"

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
constexpr double kFloatEpsilon = 1.1920928955078125e-7;

// Keeps ticks in bounds, and of neighbours with one value or one place only the first. A first tick that is
// out of bounds is what the second is compared with all the same.
template <class InBounds>
void placeTicks(std::span<const double> values, const VELCoordinateCalculator& calculator, InBounds inBounds,
                std::vector<double>& ticks, std::vector<float>& coordinates) {
  if (values.empty()) return;
  const auto keep = [&](double value, double coordinate) {
    ticks.push_back(value);
    coordinates.push_back(static_cast<float>(coordinate));
  };
  double lastValue = values.front();
  double lastCoordinate = calculator.getCoordinateFrom(lastValue);
  if (inBounds(lastCoordinate)) keep(lastValue, lastCoordinate);
  for (const double value : values.subspan(1)) {
    // Of the value where that is less: ticks of a logarithmic axis may all be nearer to zero than epsilon.
    if (std::abs(value - lastValue) <= kEpsilon * std::min(1.0, std::abs(value))) continue;
    const double coordinate = calculator.getCoordinateFrom(value);
    // A first tick that has no place at all is no neighbour: it must not take the others with it.
    const bool hasOwnPlace = std::isnan(lastCoordinate) || std::abs(coordinate - lastCoordinate) > kEpsilon;
    if (!hasOwnPlace || !inBounds(coordinate)) continue;
    keep(value, coordinate);
    lastValue = value;
    lastCoordinate = coordinate;
  }
}

}  // namespace

bool VELTickCoordinatesProviderDefault::p_VEL_isInBounds(double coordinate) const {
  const double distance = coordinate - _currOffset;
  return distance >= -kFloatEpsilon && _currAxisSize - distance > -kFloatEpsilon;
}

std::shared_ptr<const VELTickCoordinates> VELTickCoordinatesProviderDefault::getTickCoordinatesWithMinorTicks(
    std::span<const double> minorTicks, std::span<const double> majorTicks) {
  _minorTicks.clear();
  _majorTicks.clear();
  _minorCoordinates.clear();
  _majorCoordinates.clear();

  const auto axis = parentAxis();
  const auto calculator = axis ? axis->currentCoordinateCalculator() : nullptr;
  _currAxisSize = axis ? axis->getAxisSize() : 0.0;
  if (calculator && std::abs(_currAxisSize) >= kEpsilon) {
    _currOffset = axis->getAxisOffset();
    const auto inBounds = [this](double coordinate) { return p_VEL_isInBounds(coordinate); };
    placeTicks(minorTicks, *calculator, inBounds, _minorTicks, _minorCoordinates);
    placeTicks(majorTicks, *calculator, inBounds, _majorTicks, _majorCoordinates);
  }

  if (!_result || _result.use_count() > 1) _result = std::make_shared<VELTickCoordinates>();
  _result->assign(_minorTicks, _majorTicks, _minorCoordinates, _majorCoordinates);
  return _result;
}
