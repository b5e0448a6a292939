// axes/flipped_double_coordinate_calculator.h: the linear mapping with the minimum at the start.
#pragma once

#include "velmora/axes/coordinate_calculator_base.h"

/// The numbers of the flipped linear mapping, as its helper hands them out.
struct VELFlippedDoubleCalculatorInfo {
  double viewportDimension;
  double min;
  double max;
  double dimensionOverMaxMinusMin;
  double oneOverViewportDimension;  ///< 1 / (viewportDimension − 1), whatever its name says
  double viewportDimensionMinusOne;
  double coordinatesOffset;

  double coordinate(double value) const noexcept {
    return viewportDimensionMinusOne - (max - value) * dimensionOverMaxMinusMin + coordinatesOffset;
  }
};

/// The helper's function; @p info is a `VELFlippedDoubleCalculatorInfo`.
VELMORA_API double p_VEL_FlippedDoubleCoordCalc_getCoordinate(const void* info, double value);

/// Linear: the minimum stands at the offset, the maximum at dimension − 1 beyond it.
class VELMORA_API VELFlippedDoubleCoordinateCalculator : public VELCoordinateCalculatorBase {
 public:
  /// @param dimension length of the axis in points
  VELFlippedDoubleCoordinateCalculator(double dimension, double min, double max, bool isXAxis,
                                       bool isHorizontal, bool flipCoordinates);
  /// An X axis runs horizontally, any other vertically.
  VELFlippedDoubleCoordinateCalculator(double dimension, double min, double max, VELDirection2D direction,
                                       bool flipCoordinates);

  double getCoordinateFrom(double value) const override;
  double getCoordinateFromDate(const VELDate& date) const override;
  double getDataValueFrom(double pixel) const override;

  double coordinatesOffset() const override { return _coordinatesOffset; }
  void setCoordinatesOffset(double offset) override { _coordinatesOffset = offset; }
  /// Points per data unit.
  double coordinateConstant() const { return _dimensionOverMaxMinusMin; }
  void setCoordinateConstant(double pointsPerUnit) { _dimensionOverMaxMinusMin = pointsPerUnit; }
  VELCalculatorHelper getCalculatorHelper() const override;

 private:
  VELFlippedDoubleCalculatorInfo currentInfo() const;

  mutable VELFlippedDoubleCalculatorInfo _info{};
  double _viewportDimension;
  double _min;
  double _max;
  double _dimensionOverMaxMinusMin;
  double _oneOverViewportDimension;
  double _viewportDimensionMinusOne;
  double _coordinatesOffset = 0.0;
};
