// data/value_order.h: the two orders in which numbers are compared.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "velmora/data/generic_type.h"

/// Integers, exactly.
struct VELExactOrder {
  using Key = int64_t;
  static VELGenericCompareResult compare(Key a, Key b) {
    if (a < b) return VELGenericCompareResult_Less;
    return a > b ? VELGenericCompareResult_Greater : VELGenericCompareResult_Equal;
  }
  /// Unsigned: the distance of two 64-bit numbers need not fit a signed one.
  static uint64_t distance(Key low, Key high) {
    return static_cast<uint64_t>(high) - static_cast<uint64_t>(low);
  }
};

/// Floating values, equal within one machine epsilon (absolute); NaN is comparable with nothing.
struct VELDoubleOrder {
  using Key = double;
  static VELGenericCompareResult compare(Key a, Key b) {
    if (std::abs(a - b) <= std::numeric_limits<double>::epsilon()) return VELGenericCompareResult_Equal;
    if (a < b) return VELGenericCompareResult_Less;
    return a > b ? VELGenericCompareResult_Greater : VELGenericCompareResult_NotComparable;
  }
  static double distance(Key low, Key high) { return high - low; }
};

/// Whether @p a can be compared with @p b at all: a date only with dates and doubles, as it stands first.
constexpr bool VELIsComparable(VELDataType a, VELDataType b) {
  if (!VELIsNumericType(a) || !VELIsNumericType(b)) return false;
  return a != VELDataType_DateTime || b == VELDataType_Double || b == VELDataType_DateTime;
}

/// Whether comparable tags are compared as integers. A date that stands second meets an integer in whole
/// seconds, on purpose.
constexpr bool VELIsExactOrder(VELDataType a, VELDataType b) {
  return a <= VELDataType_Byte && (b <= VELDataType_Byte || b == VELDataType_DateTime);
}
