#include "velmora/axes/time_span_axis_base.h"

#include <cmath>

#include "velmora/axes/date_time_formatting.h"
#include "velmora/axes/time_spans.h"
#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"
#include "velmora/platform/calendar.h"

namespace {

// Months of a step that is a whole number of them, else 0.
int64_t wholeMonths(double seconds) {
  const double months = seconds / VELTimeSpans::SecInMonth;
  const bool isWhole = months >= 1.0 && months < 1e9 && std::abs(months - std::round(months)) < 1e-9 * months;
  return isWhole ? static_cast<int64_t>(std::round(months)) : 0;
}

}  // namespace

VELTimeSpanAxisBase::~VELTimeSpanAxisBase() = default;

VELRangePtr VELTimeSpanAxisBase::toVisibleRangeMin(const VELGenericType& min,
                                                   const VELGenericType& max) const {
  // As seconds, since a counter is no date.
  return VELMakeRecycled<VELDateRange>(VELGenericDouble(min), VELGenericDouble(max));
}

bool VELTimeSpanAxisBase::isRangeOfValidType(const VELRange& range) const {
  return range.rangeType() == VELRangeType_Date;
}

void VELTimeSpanAxisBase::assertDataType(VELDataType type) const {
  if (type != VELDataType_DateTime) refuseDataType(type);
}

int32_t VELTimeSpanAxisBase::p_VEL_getMajorTickIndex(double value) const {
  const int64_t step = wholeMonths(VELGenericDouble(majorDelta()));
  if (step == 0) return VELAxisBase::p_VEL_getMajorTickIndex(value);
  const auto* formatting = dynamic_cast<const VELDateTimeFormatting*>(this);
  const VELCalendar& calendar = formatting ? formatting->calendar() : *VELCalendar::current();
  const auto date = calendar.componentsFromDate(VELDate(value));
  if (!date) return 0;
  const int64_t month = int64_t{date->year} * 12 + date->month - 1;
  return static_cast<int32_t>(month >= 0 ? month / step : -((step - 1 - month) / step));
}
