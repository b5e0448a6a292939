// axes/category_date_time_axis.h: an axis of moments that stand evenly spaced.
#pragma once

#include <string>

#include "velmora/axes/category_axis_base.h"
#include "velmora/axes/date_time_formatting.h"
#include "velmora/platform/export.h"

/// Categories that are dates, such as the trading days of a stock without its nights and weekends.
class VELMORA_API VELCategoryDateTimeAxis : public VELCategoryAxisBase, public VELDateTimeFormatting {
 public:
  VELCategoryDateTimeAxis();
  ~VELCategoryDateTimeAxis() override;
  std::string className() const override { return "VELCategoryDateTimeAxis"; }

  /// Takes dates alone.
  void assertDataType(VELDataType type) const override;

 protected:
  void formattingChanged() override { invalidateElement(); }
};
