// axes/logarithmic_double_coordinate_calculator.h: the mapping in which equal factors are equally far apart.
#pragma once

#include <cmath>

#include "velmora/axes/coordinate_calculator_base.h"

/// The numbers of the logarithmic mapping, as its helper hands them out.
struct VELLogarithmicCalculatorInfo {
  double viewportDimension;
  double logMin;
  double logMax;
  double dimensionOverMaxMinusMin;
  double oneOverViewportDimension;  ///< 1 / (viewportDimension − 1), whatever its name says
  double logBase;
  double mult;  ///< sign of the range: +1 or −1
  double coordinatesOffset;
  bool isXAxisCalculator;
  bool hasFlippedCoordinates;

  double coordinate(double value) const noexcept {
    const double exponent = std::log(value * mult) / std::log(logBase);
    const double fromMaximum = (logMax - exponent) * dimensionOverMaxMinusMin;
    const bool flip = isXAxisCalculator != hasFlippedCoordinates;
    return VELCoordinateCalculatorBase::flip(flip, fromMaximum, viewportDimension) + coordinatesOffset;
  }
};

/// The helper's function; @p info is a `VELLogarithmicCalculatorInfo`.
VELMORA_API double p_VEL_LogarithmicDoubleCoordCalc_getCoordinate(const void* info, double value);

/// Logarithmic, for a range on one side of zero; a range that straddles it gives NaN coordinates.
///
/// An upright X axis and a flipped Y axis start with the minimum, the other two with the maximum.
class VELMORA_API VELLogarithmicDoubleCoordinateCalculator : public VELCoordinateCalculatorBase,
                                                             public VELLogarithmicCoordinateCalculator {
 public:
  /// @param dimension length of the axis in points
  VELLogarithmicDoubleCoordinateCalculator(double dimension, double min, double max, double logBase,
                                           bool isXAxis, bool isHorizontal, bool flipCoordinates);
  /// An X axis runs horizontally, any other vertically.
  VELLogarithmicDoubleCoordinateCalculator(double dimension, double min, double max, double logBase,
                                           VELDirection2D direction, bool flipCoordinates);

  double getCoordinateFrom(double value) const override;
  double getCoordinateFromDate(const VELDate& date) const override;
  double getDataValueFrom(double pixel) const override;

  /// The calculator's own visible range moved by a distance on the screen: the input range is not looked
  /// at, and for a negative range the result is two NaNs. Meant so, unlike the linear rule.
  std::shared_ptr<VELDoubleRange> translateByPixels(double pixels, const VELRange& inputRange) const override;
  std::shared_ptr<VELDoubleRange> translateByMinFraction(double minFraction, double maxFraction,
                                                         const VELRange& inputRange) const override;

  double coordinatesOffset() const override { return _coordinatesOffset; }
  void setCoordinatesOffset(double offset) override { _coordinatesOffset = offset; }
  VELCalculatorHelper getCalculatorHelper() const override;
  double logarithmicBase() const override { return _logBase; }

 private:
  VELLogarithmicCalculatorInfo currentInfo() const;

  mutable VELLogarithmicCalculatorInfo _info{};
  double _viewportDimension;
  double _logMin;
  double _logMax;
  double _dimensionOverMaxMinusMin;
  double _oneOverViewportDimension;
  double _logBase;
  double _mult;
  double _coordinatesOffset = 0.0;
};
