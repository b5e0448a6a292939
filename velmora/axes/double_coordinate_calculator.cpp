#include "velmora/axes/double_coordinate_calculator.h"

double p_VEL_DoubleCoordCalc_getCoordinate(const void* info, double value) {
  return static_cast<const VELDoubleCalculatorInfo*>(info)->coordinate(value);
}

VELDoubleCoordinateCalculator::VELDoubleCoordinateCalculator(double dimension, double min, double max,
                                                             bool isXAxis, bool isHorizontal,
                                                             bool flipCoordinates)
    : _viewportDimension(dimension),
      _min(min),
      _max(max),
      _dimensionOverMaxMinusMin((dimension - 1.0) / (max - min)),
      _oneOverViewportDimension(1.0 / (dimension - 1.0)) {
  setIsXAxisCalculator(isXAxis);
  setIsHorizontalAxisCalculator(isHorizontal);
  setHasFlippedCoordinates(flipCoordinates);
}

VELDoubleCoordinateCalculator::VELDoubleCoordinateCalculator(double dimension, double min, double max,
                                                             VELDirection2D direction, bool flipCoordinates)
    : VELDoubleCoordinateCalculator(dimension, min, max, direction == VELDirection2D_X,
                                    direction == VELDirection2D_X, flipCoordinates) {}

VELDoubleCalculatorInfo VELDoubleCoordinateCalculator::currentInfo() const {
  return {_viewportDimension, _min, _max, _dimensionOverMaxMinusMin, _oneOverViewportDimension,
          _coordinatesOffset};
}

double VELDoubleCoordinateCalculator::getCoordinateFrom(double value) const {
  return currentInfo().coordinate(value);
}

double VELDoubleCoordinateCalculator::getCoordinateFromDate(const VELDate& date) const {
  return getCoordinateFrom(date.timeIntervalSince1970());
}

double VELDoubleCoordinateCalculator::getDataValueFrom(double pixel) const {
  const double fromMinimum = _viewportDimension - (pixel - _coordinatesOffset) - 1.0;
  return (_max - _min) * fromMinimum * _oneOverViewportDimension + _min;
}

VELCalculatorHelper VELDoubleCoordinateCalculator::getCalculatorHelper() const {
  _info = currentInfo();
  return {&_info, &p_VEL_DoubleCoordCalc_getCoordinate};
}
