#include "velmora/axes/flipped_double_coordinate_calculator.h"

double p_VEL_FlippedDoubleCoordCalc_getCoordinate(const void* info, double value) {
  return static_cast<const VELFlippedDoubleCalculatorInfo*>(info)->coordinate(value);
}

VELFlippedDoubleCoordinateCalculator::VELFlippedDoubleCoordinateCalculator(double dimension, double min,
                                                                           double max, bool isXAxis,
                                                                           bool isHorizontal,
                                                                           bool flipCoordinates)
    : _viewportDimension(dimension),
      _min(min),
      _max(max),
      _dimensionOverMaxMinusMin((dimension - 1.0) / (max - min)),
      _oneOverViewportDimension(1.0 / (dimension - 1.0)),
      _viewportDimensionMinusOne(dimension - 1.0) {
  setIsXAxisCalculator(isXAxis);
  setIsHorizontalAxisCalculator(isHorizontal);
  setHasFlippedCoordinates(flipCoordinates);
}

VELFlippedDoubleCoordinateCalculator::VELFlippedDoubleCoordinateCalculator(double dimension, double min,
                                                                           double max,
                                                                           VELDirection2D direction,
                                                                           bool flipCoordinates)
    : VELFlippedDoubleCoordinateCalculator(dimension, min, max, direction == VELDirection2D_X,
                                           direction == VELDirection2D_X, flipCoordinates) {}

VELFlippedDoubleCalculatorInfo VELFlippedDoubleCoordinateCalculator::currentInfo() const {
  return {_viewportDimension,
          _min,
          _max,
          _dimensionOverMaxMinusMin,
          _oneOverViewportDimension,
          _viewportDimensionMinusOne,
          _coordinatesOffset};
}

double VELFlippedDoubleCoordinateCalculator::getCoordinateFrom(double value) const {
  return currentInfo().coordinate(value);
}

double VELFlippedDoubleCoordinateCalculator::getCoordinateFromDate(const VELDate& date) const {
  return getCoordinateFrom(date.timeIntervalSince1970());
}

double VELFlippedDoubleCoordinateCalculator::getDataValueFrom(double pixel) const {
  return (pixel - _coordinatesOffset) * (_max - _min) * _oneOverViewportDimension + _min;
}

VELCalculatorHelper VELFlippedDoubleCoordinateCalculator::getCalculatorHelper() const {
  _info = currentInfo();
  return {&_info, &p_VEL_FlippedDoubleCoordCalc_getCoordinate};
}
