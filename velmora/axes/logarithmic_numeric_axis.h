// axes/logarithmic_numeric_axis.h: an axis on which equal factors are equally far apart.
#pragma once

#include <memory>
#include <string>

#include "velmora/axes/numeric_axis.h"
#include "velmora/platform/export.h"

/// A logarithmic axis of numbers, base 10 at first.
///
/// It shows ranges whose ends are both above or both below zero. Its default range, 0 to 10, is none: until
/// data or an application gives it one, it draws nothing. From the data it takes the values above zero; the
/// values below zero only where there is none above. Fractions (`growBy`, zooming) and zoom constraints count
/// in powers of the base; below zero they apply to the magnitudes.
class VELMORA_API VELLogarithmicNumericAxis : public VELNumericAxis {
 public:
  VELLogarithmicNumericAxis();
  ~VELLogarithmicNumericAxis() override;
  std::string className() const override { return "VELLogarithmicNumericAxis"; }

  bool isLogarithmicAxis() const override { return true; }
  double logarithmicBase() const override { return _logarithmicBase; }
  /// A base of 1 is taken, too, and draws nothing.
  /// @throws VELInvalidArgumentException for a base that is not a number above 0
  void setLogarithmicBase(double base);

  VELDeltaCalculator& getDeltaCalculator() const override;
  bool isValidRange(const VELRangePtr& range) const override;
  bool isVisibleRangeValid() const override;
  void coerceZeroRange(VELRange& range) const override;
  VELAxisParams getAxisParams() const override;

 protected:
  void bindTickProvider(VELTickProvider& provider) const override;
  VELRangePtr seriesXRange(const VELAxisSeries& series) const override;
  VELRangePtr seriesYRange(const VELAxisSeries& series, const VELRange& xRange) const override;
  VELRangePtr grownRange(const VELRange& range, double minFraction, double maxFraction) const override;

 private:
  double _logarithmicBase = 10.0;
};
