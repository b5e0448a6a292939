// axes/date_time_axis.h: an axis of moments.
#pragma once

#include <string>

#include "velmora/axes/date_time_formatting.h"
#include "velmora/axes/time_span_axis_base.h"
#include "velmora/platform/export.h"

/// A linear axis of dates, the first day of 1970 until data or an application says otherwise.
class VELMORA_API VELDateTimeAxis : public VELTimeSpanAxisBase, public VELDateTimeFormatting {
 public:
  VELDateTimeAxis();
  ~VELDateTimeAxis() override;
  std::string className() const override { return "VELDateTimeAxis"; }

  VELDeltaCalculator& getDeltaCalculator() const override;
  /// One day from the start of 1970.
  VELRangePtr getDefaultNonZeroRange() const override;
  /// A date.
  VELGenericType labelValue(double tick) const override;

 protected:
  void formattingChanged() override { invalidateElement(); }
};
