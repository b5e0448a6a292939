#include "velmora/axes/logarithmic_double_coordinate_calculator.h"

double p_VEL_LogarithmicDoubleCoordCalc_getCoordinate(const void* info, double value) {
  return static_cast<const VELLogarithmicCalculatorInfo*>(info)->coordinate(value);
}

VELLogarithmicDoubleCoordinateCalculator::VELLogarithmicDoubleCoordinateCalculator(
    double dimension, double min, double max, double logBase, bool isXAxis, bool isHorizontal,
    bool flipCoordinates)
    : _viewportDimension(dimension), _logBase(logBase), _mult(min < 0.0 ? -1.0 : 1.0) {
  _logMax = std::log(_mult * max) / std::log(logBase);
  _logMin = std::log(_mult * min) / std::log(logBase);
  _dimensionOverMaxMinusMin = (dimension - 1.0) / (_logMax - _logMin);
  _oneOverViewportDimension = 1.0 / (dimension - 1.0);
  // The logarithmic flag stays down on purpose: the interface tells this calculator from the others.
  setIsXAxisCalculator(isXAxis);
  setIsHorizontalAxisCalculator(isHorizontal);
  setHasFlippedCoordinates(flipCoordinates);
}

VELLogarithmicDoubleCoordinateCalculator::VELLogarithmicDoubleCoordinateCalculator(
    double dimension, double min, double max, double logBase, VELDirection2D direction, bool flipCoordinates)
    : VELLogarithmicDoubleCoordinateCalculator(dimension, min, max, logBase, direction == VELDirection2D_X,
                                               direction == VELDirection2D_X, flipCoordinates) {}

VELLogarithmicCalculatorInfo VELLogarithmicDoubleCoordinateCalculator::currentInfo() const {
  return {_viewportDimension,
          _logMin,
          _logMax,
          _dimensionOverMaxMinusMin,
          _oneOverViewportDimension,
          _logBase,
          _mult,
          _coordinatesOffset,
          isXAxisCalculator(),
          hasFlippedCoordinates()};
}

double VELLogarithmicDoubleCoordinateCalculator::getCoordinateFrom(double value) const {
  return currentInfo().coordinate(value);
}

double VELLogarithmicDoubleCoordinateCalculator::getCoordinateFromDate(const VELDate& date) const {
  return getCoordinateFrom(date.timeIntervalSince1970());
}

double VELLogarithmicDoubleCoordinateCalculator::getDataValueFrom(double pixel) const {
  // The way back counts from the minimum, the way there from the maximum: so it turns in the other cases.
  const bool turn = isXAxisCalculator() == hasFlippedCoordinates();
  const double fromMinimum = flip(turn, pixel - _coordinatesOffset, _viewportDimension);
  const double exponent = (_logMax - _logMin) * fromMinimum * _oneOverViewportDimension + _logMin;
  return std::pow(_logBase, exponent) * _mult;
}

std::shared_ptr<VELDoubleRange> VELLogarithmicDoubleCoordinateCalculator::translateByPixels(
    double pixels, const VELRange&) const {
  const double lnBase = std::log(_logBase);
  const double distance =
      std::log(getDataValueFrom(pixels)) / lnBase - std::log(getDataValueFrom(0.0)) / lnBase;
  const double delta = isXAxisCalculator() ? -distance : distance;
  return std::make_shared<VELDoubleRange>(std::pow(_logBase, _logMin + delta),
                                          std::pow(_logBase, _logMax + delta));
}

std::shared_ptr<VELDoubleRange> VELLogarithmicDoubleCoordinateCalculator::translateByMinFraction(
    double minFraction, double maxFraction, const VELRange& inputRange) const {
  return inputRange.clone()->growMinBy(minFraction, maxFraction, true, _logBase)->asDoubleRange();
}

VELCalculatorHelper VELLogarithmicDoubleCoordinateCalculator::getCalculatorHelper() const {
  _info = currentInfo();
  return {&_info, &p_VEL_LogarithmicDoubleCoordCalc_getCoordinate};
}
