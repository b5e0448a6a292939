#include "velmora/axes/axis_delta.h"

std::shared_ptr<VELDoubleAxisDelta> VELDoubleAxisDelta::clone() const {
  return std::make_shared<VELDoubleAxisDelta>(*this);
}

bool VELDoubleAxisDelta::equals(const VELDoubleAxisDelta& other) const {
  return VELGenericCompare(minorDelta, other.minorDelta) == VELGenericCompareResult_Equal &&
         VELGenericCompare(majorDelta, other.majorDelta) == VELGenericCompareResult_Equal;
}
