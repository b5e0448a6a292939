#include "velmora/axes/date_time_axis.h"

#include "velmora/axes/date_time_label_provider.h"
#include "velmora/axes/date_time_tick_provider.h"
#include "velmora/axes/time_span_delta_calculator.h"
#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"

VELDateTimeAxis::VELDateTimeAxis() {
  setTextFormatting("dd MMM");
  setTickProvider(std::make_shared<VELDateTimeTickProvider>());
  setLabelProvider(std::make_shared<VELDateTimeLabelProvider>());
  resetVisibleRange();
}

VELDateTimeAxis::~VELDateTimeAxis() = default;

VELDeltaCalculator& VELDateTimeAxis::getDeltaCalculator() const {
  return VELDateTimeDeltaCalculator::instance();
}

VELRangePtr VELDateTimeAxis::getDefaultNonZeroRange() const {
  return VELMakeRecycled<VELDateRange>(0.0, 86400.0);
}

VELGenericType VELDateTimeAxis::labelValue(double tick) const { return VELDate(tick); }
