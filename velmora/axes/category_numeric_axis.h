// axes/category_numeric_axis.h: an axis of numbers that stand evenly spaced.
#pragma once

#include <string>

#include "velmora/axes/category_axis_base.h"
#include "velmora/platform/export.h"

/// Categories that are numbers.
class VELMORA_API VELCategoryNumericAxis : public VELCategoryAxisBase {
 public:
  VELCategoryNumericAxis();
  ~VELCategoryNumericAxis() override;
  std::string className() const override { return "VELCategoryNumericAxis"; }

  /// Takes every number but no dates.
  void assertDataType(VELDataType type) const override;
};
