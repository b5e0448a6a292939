// axes/time_span_axis_base.h: what axes of moments have in common.
#pragma once

#include <cstdint>
#include <string>

#include "velmora/axes/axis_base.h"
#include "velmora/platform/export.h"

class VELCalendar;

/// An axis that counts in seconds; its ranges are date ranges.
class VELMORA_API VELTimeSpanAxisBase : public VELAxisBase {
 public:
  ~VELTimeSpanAxisBase() override;
  std::string className() const override { return "VELTimeSpanAxisBase"; }

  VELRangePtr toVisibleRangeMin(const VELGenericType& min, const VELGenericType& max) const override;
  bool isRangeOfValidType(const VELRange& range) const override;
  /// Takes dates alone.
  void assertDataType(VELDataType type) const override;
  /// Months, quarters and years are counted on the calendar, since they are not equally long.
  int32_t p_VEL_getMajorTickIndex(double value) const override;

 protected:
  std::string validRangeClassName() const override { return "VELDateRange"; }
};
