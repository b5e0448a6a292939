#include "velmora/axes/tick_provider.h"

#include "velmora/axes/axis_core.h"

VELRangePtr VELTickProvider::rangeOf(const VELAxisCore& axis) { return axis.visibleRange(); }

VELAxisDelta VELTickProvider::deltaOf(const VELAxisCore& axis) {
  return {axis.minorDelta(), axis.majorDelta()};
}

std::shared_ptr<VELArrayController> VELTickProvider::emptyList(std::shared_ptr<VELArrayController>& list,
                                                               VELDataType type, int64_t capacity) {
  if (list && list.use_count() == 1)
    list->clear();
  else
    list = VELArrayController::initWithType(type, capacity);
  return list;
}
