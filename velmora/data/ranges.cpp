#include "velmora/data/ranges.h"

#include <cmath>
#include <utility>

#include "velmora/data/recycled.h"

VELDoubleRange::~VELDoubleRange() = default;

bool VELDoubleRange::equals(const VELRange* other) const { return equalsAs<VELDoubleRange>(other); }

VELRangePtr VELDoubleRange::unionWith(const VELRange& other) const {
  return VELRangeFactory::getRangeOfType(VELDataType_Double, std::fmin(_min, other.minAsDouble()),
                                         std::fmax(_max, other.maxAsDouble()));
}

VELRangePtr VELDoubleRange::clone() const { return VELMakeRecycled<VELDoubleRange>(min(), max()); }

VELFloatRange::~VELFloatRange() = default;

bool VELFloatRange::equals(const VELRange* other) const { return equalsAs<VELFloatRange>(other); }

VELRangePtr VELFloatRange::clone() const { return VELMakeRecycled<VELFloatRange>(min(), max()); }

VELIntegerRange::~VELIntegerRange() = default;

bool VELIntegerRange::equals(const VELRange* other) const { return equalsAs<VELIntegerRange>(other); }

VELRangePtr VELIntegerRange::clone() const { return VELMakeRecycled<VELIntegerRange>(min(), max()); }

VELIndexRange::~VELIndexRange() = default;

bool VELIndexRange::isDefined() const { return _min >= 0 && _max >= 0 && _max > _min; }

VELRange& VELIndexRange::growMinBy(VELGenericType minFraction, VELGenericType maxFraction) {
  const auto span = static_cast<double>(VELIntegerBound::difference(_max, _min));
  const auto side = [span](double bound) { return span == 0.0 ? bound : span; };
  const int32_t newMin =
      VELIntegerBound::moved(_min, -std::round(VELGenericDouble(minFraction) * side(_min)));
  const int32_t newMax = VELIntegerBound::moved(_max, std::round(VELGenericDouble(maxFraction) * side(_max)));
  setOrdered(newMin, newMax);
  return *this;
}

bool VELIndexRange::equals(const VELRange* other) const { return equalsAs<VELIndexRange>(other); }

VELRangePtr VELIndexRange::clone() const { return VELMakeRecycled<VELIndexRange>(min(), max()); }

VELDateRange::~VELDateRange() = default;

// Without the absolute value, on purpose: a reversed date range has no extent either.
bool VELDateRange::isZero() const { return _max - _min <= VELDateBound::epsilon; }

bool VELDateRange::equals(const VELRange* other) const { return equalsAs<VELDateRange>(other); }

VELRangePtr VELDateRange::unionWith(const VELRange& other) const {
  return VELRangeFactory::getRangeWithRangeType(typeid(*this),
                                                std::fmin(_min, VELDateBound::from(other.min())),
                                                std::fmax(_max, VELDateBound::from(other.max())));
}

VELRangePtr VELDateRange::clone() const { return VELMakeRecycled<VELDateRange>(min(), max()); }

VELRangePtr VELDateRange::withBounds(VELGenericType min, VELGenericType max) const {
  const bool inOrder = VELGenericDouble(min) < VELGenericDouble(max);
  if (!inOrder) std::swap(min, max);
  return VELRangeFactory::getRangeWithRangeType(typeid(*this), min, max);
}
