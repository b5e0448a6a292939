#include "velmora/axes/axis_delta.h"

std::shared_ptr<VELAxisDelta> VELAxisDelta::clone() const { return std::make_shared<VELAxisDelta>(*this); }

bool VELAxisDelta::equals(const VELAxisDelta& other) const {
  return VELGenericCompare(minorDelta, other.minorDelta) == VELGenericCompareResult_Equal &&
         VELGenericCompare(majorDelta, other.majorDelta) == VELGenericCompareResult_Equal;
}

std::shared_ptr<VELDoubleAxisDelta> VELDoubleAxisDelta::clone() const {
  return std::make_shared<VELDoubleAxisDelta>(*this);
}

std::shared_ptr<VELTimeSpanDelta> VELTimeSpanDelta::clone() const {
  return std::make_shared<VELTimeSpanDelta>(*this);
}
