#include "velmora/axes/category_numeric_axis.h"

#include "velmora/axes/category_numeric_label_provider.h"
#include "velmora/axes/category_tick_provider.h"

VELCategoryNumericAxis::VELCategoryNumericAxis() {
  setTickProvider(std::make_shared<VELCategoryNumericTickProvider>());
  setLabelProvider(std::make_shared<VELCategoryNumericLabelProvider>());
  resetVisibleRange();
}

VELCategoryNumericAxis::~VELCategoryNumericAxis() = default;

void VELCategoryNumericAxis::assertDataType(VELDataType type) const {
  if (type == VELDataType_DateTime) refuseDataType(type);
  VELCategoryAxisBase::assertDataType(type);
}
