// axes/coordinate_calculator_base.h: what all coordinate calculators share.
#pragma once

#include <memory>

#include "velmora/axes/coordinate_calculator.h"

/// Flags, and the linear rules for moving and widening a range. The conversions are the subclasses'.
class VELMORA_API VELCoordinateCalculatorBase : public VELCoordinateCalculator {
 public:
  VELCoordinateCalculatorBase() = default;
  ~VELCoordinateCalculatorBase() override;

  /// @throws VELInternalInconsistencyException always: a subclass converts
  double getCoordinateFrom(double value) const override;
  /// @throws VELInternalInconsistencyException always: a subclass converts
  double getCoordinateFromDate(const VELDate& date) const override;
  /// @throws VELInternalInconsistencyException always: a subclass converts
  double getDataValueFrom(double pixel) const override;

  std::shared_ptr<VELDoubleRange> translateByPixels(double pixels, const VELRange& inputRange) const override;
  std::shared_ptr<VELDoubleRange> translateByMinFraction(double minFraction, double maxFraction,
                                                         const VELRange& inputRange) const override;

  /// 0 here, and the setter does nothing.
  double coordinatesOffset() const override { return 0.0; }
  void setCoordinatesOffset(double) override {}
  /// Two null pointers here.
  VELCalculatorHelper getCalculatorHelper() const override { return {}; }

  bool isCategoryAxisCalculator() const override { return _isCategoryAxisCalculator; }
  void setIsCategoryAxisCalculator(bool flag) override { _isCategoryAxisCalculator = flag; }
  bool isLogarithmicAxisCalculator() const override { return _isLogarithmicAxisCalculator; }
  void setIsLogarithmicAxisCalculator(bool flag) override { _isLogarithmicAxisCalculator = flag; }
  bool isHorizontalAxisCalculator() const override { return _isHorizontalAxisCalculator; }
  void setIsHorizontalAxisCalculator(bool flag) override { _isHorizontalAxisCalculator = flag; }
  bool isXAxisCalculator() const override { return _isXAxisCalculator; }
  void setIsXAxisCalculator(bool flag) override { _isXAxisCalculator = flag; }
  bool hasFlippedCoordinates() const override { return _hasFlippedCoordinates; }
  void setHasFlippedCoordinates(bool flag) override { _hasFlippedCoordinates = flag; }
  bool isPolarAxisCalculator() const override { return _isPolarAxisCalculator; }
  void setIsPolarAxisCalculator(bool flag) override { _isPolarAxisCalculator = flag; }

  /// Counts a coordinate from the other end: dimension − coordinate − 1 when @p flip is set.
  static double flip(bool flip, double coordinate, double viewportDimension) {
    return flip ? viewportDimension - coordinate - 1.0 : coordinate;
  }

 private:
  bool _isCategoryAxisCalculator = false;
  bool _isLogarithmicAxisCalculator = false;
  bool _isHorizontalAxisCalculator = false;
  bool _isXAxisCalculator = false;
  bool _hasFlippedCoordinates = false;
  bool _isPolarAxisCalculator = false;
};
