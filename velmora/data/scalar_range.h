// data/scalar_range.h: what all ranges share, written once over the arithmetic of their bounds.
//
// Applications use the classes that data/ranges.h collects.
#pragma once

#include <cmath>
#include <limits>

#include "velmora/data/range.h"
#include "velmora/data/saturate.h"

/// How a range class stores and tags a bound.
struct VELDoubleBound {
  using Value = double;
  static constexpr Value epsilon = std::numeric_limits<double>::epsilon();
  static Value from(VELGenericType value) { return VELGenericDouble(value); }
  static VELGenericType tagged(Value value) { return value; }
  static VELGenericType difference(Value max, Value min) { return max - min; }
  static bool same(Value a, Value b) { return a == b; }
};

struct VELFloatBound {
  using Value = float;
  static constexpr Value epsilon = std::numeric_limits<float>::epsilon();
  static Value from(VELGenericType value) { return VELGenericFloat(value); }
  static VELGenericType tagged(Value value) { return value; }
  static VELGenericType difference(Value max, Value min) { return max - min; }
  static bool same(Value a, Value b) { return a == b; }
};

struct VELIntegerBound {
  using Value = int32_t;
  static Value from(VELGenericType value) { return VELGenericInt(value); }
  static VELGenericType tagged(Value value) { return value; }
  static Value difference(Value max, Value min) {
    return static_cast<Value>(static_cast<uint32_t>(max) - static_cast<uint32_t>(min));
  }
  static bool same(Value a, Value b) { return a == b; }
  /// The bound, moved by a whole number; saturates, and NaN moves nothing.
  static Value moved(Value bound, double distance) {
    return std::isnan(distance) ? bound : VELSaturate<Value>(static_cast<double>(bound) + distance);
  }
};

struct VELDateBound {
  using Value = double;
  static constexpr Value epsilon = std::numeric_limits<double>::epsilon();
  static Value from(VELGenericType value) {
    const std::optional<VELDate> date = VELGenericDate(value);
    return date ? date->timeIntervalSince1970() : std::numeric_limits<double>::quiet_NaN();
  }
  static VELGenericType tagged(Value value) { return VELDate(value); }
  static VELGenericType difference(Value max, Value min) { return max - min; }
  /// Infinities have no difference.
  static bool same(Value a, Value b) { return a == b || std::abs(a - b) <= epsilon; }
};

/// Two bounds of one scalar type and every operation in which the range classes agree.
template <typename Bound>
class VELScalarRange : public VELRange {
 public:
  using Value = typename Bound::Value;

  VELGenericType min() const override { return Bound::tagged(_min); }
  VELGenericType max() const override { return Bound::tagged(_max); }
  void setMin(VELGenericType value) override { _min = Bound::from(value); }
  void setMax(VELGenericType value) override { _max = Bound::from(value); }

  bool isDefined() const override;
  void assertMinLessOrEqualToThanMax() const override;
  VELGenericType diff() const override { return Bound::difference(_max, _min); }
  bool isZero() const override;

  void setMinTo(VELGenericType min, VELGenericType max) override;
  void setMinTo(VELGenericType min, VELGenericType max, const VELRange& limits) override;
  VELRange& growMinBy(VELGenericType minFraction, VELGenericType maxFraction) override;
  VELRangePtr growMinBy(VELGenericType minFraction, VELGenericType maxFraction, bool isLogarithmic,
                        double logBase) override;
  VELRange& clipTo(const VELRange& limits) override;
  bool isValueWithinTheRange(VELGenericType value) const override;
  VELRangePtr unionWith(const VELRange& other) const override;
  VELRangeType rangeType() const override { return VELRangeType_Numeric; }

 protected:
  VELScalarRange() = default;
  VELScalarRange(VELGenericType min, VELGenericType max) : _min(Bound::from(min)), _max(Bound::from(max)) {}
  VELScalarRange(const VELScalarRange&) = default;
  VELScalarRange& operator=(const VELScalarRange&) = default;

  /// What stands for a bound without a logarithm.
  virtual double smallestLogBound(double bound) const;
  /// Makes the widened range of the log form.
  virtual VELRangePtr withBounds(VELGenericType min, VELGenericType max) const;
  /// `equals` for the class Range.
  template <typename Range>
  bool equalsAs(const VELRange* other) const {
    if (this == other) return true;
    const auto* same = dynamic_cast<const Range*>(other);
    return same != nullptr && Bound::same(_min, same->_min) && Bound::same(_max, same->_max);
  }
  void setOrdered(Value first, Value second);

  // Inverted: a running union starts from here.
  Value _min = std::numeric_limits<Value>::max();
  Value _max = std::numeric_limits<Value>::lowest();
};

extern template class VELMORA_API VELScalarRange<VELDoubleBound>;
extern template class VELMORA_API VELScalarRange<VELFloatBound>;
extern template class VELMORA_API VELScalarRange<VELIntegerBound>;
extern template class VELMORA_API VELScalarRange<VELDateBound>;
