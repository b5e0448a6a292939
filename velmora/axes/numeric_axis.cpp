#include "velmora/axes/numeric_axis.h"

#include <limits>

#include "velmora/axes/delta_calculator.h"
#include "velmora/axes/numeric_label_provider.h"
#include "velmora/axes/numeric_tick_provider.h"
#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"

VELNumericAxis::VELNumericAxis() {
  setTickProvider(std::make_shared<VELNumericTickProvider>());
  setLabelProvider(std::make_shared<VELNumericLabelProvider>());
  resetVisibleRange();
}

VELNumericAxis::~VELNumericAxis() = default;

VELDeltaCalculator& VELNumericAxis::getDeltaCalculator() const {
  return VELNumericDeltaCalculator::instance();
}

VELRangePtr VELNumericAxis::getDefaultNonZeroRange() const { return VELMakeRecycled<VELDoubleRange>(0, 10); }

VELRangePtr VELNumericAxis::getUndefinedRange() const {
  const double none = std::numeric_limits<double>::quiet_NaN();
  return VELMakeRecycled<VELDoubleRange>(none, none);
}

bool VELNumericAxis::isRangeOfValidType(const VELRange& range) const {
  return range.rangeType() == VELRangeType_Numeric;
}

void VELNumericAxis::assertDataType(VELDataType type) const {
  if (type == VELDataType_DateTime) refuseDataType(type);
  VELAxisBase::assertDataType(type);
}
