#include "velmora/axes/category_date_time_axis.h"

#include "velmora/axes/category_date_time_label_provider.h"
#include "velmora/axes/category_tick_provider.h"

VELCategoryDateTimeAxis::VELCategoryDateTimeAxis() {
  setTextFormatting("dd MMM");
  setTickProvider(std::make_shared<VELCategoryDateTimeTickProvider>());
  setLabelProvider(std::make_shared<VELCategoryDateTimeLabelProvider>());
  resetVisibleRange();
}

VELCategoryDateTimeAxis::~VELCategoryDateTimeAxis() = default;

void VELCategoryDateTimeAxis::assertDataType(VELDataType type) const {
  if (type != VELDataType_DateTime) refuseDataType(type);
}
