// axes/coordinate_calculator.h: where a data value stands on the screen.
//
// One calculator serves one axis in one pass. Units: data units for values, points along the axis for
// coordinates, measured from the start of the chart frame.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/data/range.h"
#include "velmora/data/ranges.h"
#include "velmora/platform/date.h"
#include "velmora/platform/export.h"

/// Which way an axis runs, for the short constructors of the calculators.
enum VELDirection2D : int32_t { VELDirection2D_X = 0, VELDirection2D_Y = 1, VELDirection2D_XY = 2 };

/// A plain function and the numbers it works on, for loops over points.
///
/// `info` lies inside the calculator and is valid as long as that lives. Loops that must be fast take the
/// typed form in axes/calculator_stage.h.
struct VELCalculatorHelper {
  const void* info = nullptr;
  double (*function)(const void* info, double value) = nullptr;
};

/// Converts between data values and coordinates of one axis.
///
/// Always true for a linear calculator of a finite, non-zero range: `getDataValueFrom(getCoordinateFrom(v))`
/// is v up to rounding.
class VELMORA_API VELCoordinateCalculator {
 public:
  virtual ~VELCoordinateCalculator() = default;

  virtual double getCoordinateFrom(double value) const = 0;
  virtual double getCoordinateFromDate(const VELDate& date) const = 0;
  virtual double getDataValueFrom(double pixel) const = 0;

  /// The input range moved by a distance on the screen. @param pixels distance in points
  virtual std::shared_ptr<VELDoubleRange> translateByPixels(double pixels,
                                                            const VELRange& inputRange) const = 0;
  /// The input range widened by fractions of itself.
  virtual std::shared_ptr<VELDoubleRange> translateByMinFraction(double minFraction, double maxFraction,
                                                                 const VELRange& inputRange) const = 0;

  /// Points added to every coordinate.
  virtual double coordinatesOffset() const = 0;
  virtual void setCoordinatesOffset(double offset) = 0;

  /// The per-point form, with the numbers as they are now: a later change of the offset is seen only by a
  /// helper that is fetched after it.
  virtual VELCalculatorHelper getCalculatorHelper() const = 0;

  virtual bool isCategoryAxisCalculator() const = 0;
  virtual void setIsCategoryAxisCalculator(bool flag) = 0;
  virtual bool isLogarithmicAxisCalculator() const = 0;
  virtual void setIsLogarithmicAxisCalculator(bool flag) = 0;
  virtual bool isHorizontalAxisCalculator() const = 0;
  virtual void setIsHorizontalAxisCalculator(bool flag) = 0;
  virtual bool isXAxisCalculator() const = 0;
  virtual void setIsXAxisCalculator(bool flag) = 0;
  virtual bool hasFlippedCoordinates() const = 0;
  virtual void setHasFlippedCoordinates(bool flag) = 0;
  virtual bool isPolarAxisCalculator() const = 0;
  virtual void setIsPolarAxisCalculator(bool flag) = 0;
};

/// A calculator that works in powers of a base. This, not a flag, is how one is recognised.
class VELMORA_API VELLogarithmicCoordinateCalculator {
 public:
  virtual ~VELLogarithmicCoordinateCalculator() = default;
  virtual double logarithmicBase() const = 0;
};

/// A calculator whose coordinates follow the position of a value in its column.
class VELMORA_API VELICategoryCoordinateCalculator {
 public:
  virtual ~VELICategoryCoordinateCalculator() = default;
  virtual int32_t transformDataToIndex(double value) const = 0;
};
