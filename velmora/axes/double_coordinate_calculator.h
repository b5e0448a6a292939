// axes/double_coordinate_calculator.h: the linear mapping with the maximum at the start.
//
// This is what an upright Y axis needs on a screen whose y grows downwards.
#pragma once

#include "velmora/axes/coordinate_calculator_base.h"

/// The numbers of the linear mapping, as its helper hands them out.
struct VELDoubleCalculatorInfo {
  double viewportDimension;
  double min;
  double max;
  double dimensionOverMaxMinusMin;
  double oneOverViewportDimension;  ///< 1 / (viewportDimension − 1), whatever its name says
  double coordinatesOffset;

  double coordinate(double value) const noexcept {
    return (max - value) * dimensionOverMaxMinusMin + coordinatesOffset;
  }
};

/// The helper's function; @p info is a `VELDoubleCalculatorInfo`.
VELMORA_API double p_VEL_DoubleCoordCalc_getCoordinate(const void* info, double value);

/// Linear: the maximum stands at the offset, the minimum at dimension − 1 beyond it.
///
/// A range without width gives infinite or NaN coordinates, as does a dimension of 1 for data values; the
/// axis keeps such ranges away.
class VELMORA_API VELDoubleCoordinateCalculator : public VELCoordinateCalculatorBase {
 public:
  /// @param dimension length of the axis in points
  VELDoubleCoordinateCalculator(double dimension, double min, double max, bool isXAxis, bool isHorizontal,
                                bool flipCoordinates);
  /// An X axis runs horizontally, any other vertically.
  VELDoubleCoordinateCalculator(double dimension, double min, double max, VELDirection2D direction,
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
  VELDoubleCalculatorInfo currentInfo() const;

  mutable VELDoubleCalculatorInfo _info{};
  double _viewportDimension;
  double _min;
  double _max;
  double _dimensionOverMaxMinusMin;
  double _oneOverViewportDimension;
  double _coordinatesOffset = 0.0;
};
