// axes/numeric_axis.h: an axis of numbers.
#pragma once

#include <memory>
#include <string>

#include "velmora/axes/axis_base.h"
#include "velmora/platform/export.h"

/// A linear axis of numbers, 0 to 10 until data or an application says otherwise.
class VELMORA_API VELNumericAxis : public VELAxisBase {
 public:
  VELNumericAxis();
  ~VELNumericAxis() override;
  std::string className() const override { return "VELNumericAxis"; }

  VELDeltaCalculator& getDeltaCalculator() const override;
  VELRangePtr getDefaultNonZeroRange() const override;
  /// Two NaNs.
  VELRangePtr getUndefinedRange() const;
  bool isRangeOfValidType(const VELRange& range) const override;
  /// Takes every number but no dates.
  void assertDataType(VELDataType type) const override;

 protected:
  std::string validRangeClassName() const override { return "VELDoubleRange"; }
};
