#include <cmath>

#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"

namespace {

bool isUnknown(VELGenericType bound) { return std::isnan(VELGenericDouble(bound)); }

template <typename Range>
VELRangePtr makeRange(VELGenericType min, VELGenericType max) {
  // A bound that is not known leaves the whole range undefined instead of open on one side.
  if (isUnknown(min) || isUnknown(max)) return VELMakeRecycled<Range>();
  return VELMakeRecycled<Range>(min, max);
}

struct RangeClass {
  const std::type_info& type;
  VELRangePtr (*make)(VELGenericType, VELGenericType);
};

}  // namespace

VELRangePtr VELRangeFactory::clone(const VELRange& range, VELGenericType min, VELGenericType max) {
  VELRangePtr result = range.clone();
  result->setMinTo(min, max);
  return result;
}

VELRangePtr VELRangeFactory::clone(const VELRange& range, VELGenericType min, VELGenericType max,
                                   const VELRange* limit) {
  if (limit == nullptr) return clone(range, min, max);
  VELRangePtr result = range.clone();
  result->setMinTo(min, max, *limit);
  return result;
}

VELRangePtr VELRangeFactory::getRangeOfType(VELDataType type, VELGenericType min, VELGenericType max) {
  switch (type) {
    case VELDataType_Int32:
      return getRangeWithRangeType(typeid(VELIntegerRange), min, max);
    case VELDataType_DateTime:
      return getRangeWithRangeType(typeid(VELDateRange), min, max);
    case VELDataType_Float:
      return getRangeWithRangeType(typeid(VELFloatRange), min, max);
    default:
      return getRangeWithRangeType(typeid(VELDoubleRange), min, max);
  }
}

VELRangePtr VELRangeFactory::getRangeWithRangeType(const std::type_info& rangeClass, VELGenericType min,
                                                   VELGenericType max) {
  static const RangeClass classes[] = {
      {typeid(VELFloatRange), makeRange<VELFloatRange>},
      {typeid(VELIntegerRange), makeRange<VELIntegerRange>},
      {typeid(VELIndexRange), makeRange<VELIndexRange>},
      {typeid(VELDateRange), makeRange<VELDateRange>},
  };
  for (const RangeClass& known : classes) {
    if (known.type == rangeClass) return known.make(min, max);
  }
  return makeRange<VELDoubleRange>(min, max);
}
