// data/ranges.h: the range classes and the factory that picks among them.
#pragma once

#include <typeinfo>

#include "velmora/data/range.h"
#include "velmora/data/scalar_range.h"

/// Bounds in doubles; the range of most axes.
class VELMORA_API VELDoubleRange : public VELScalarRange<VELDoubleBound> {
 public:
  VELDoubleRange() = default;
  VELDoubleRange(VELGenericType min, VELGenericType max) : VELScalarRange(min, max) {}
  ~VELDoubleRange() override;
  using VELRange::equals;
  bool equals(const VELRange* other) const override;
  VELRangePtr unionWith(const VELRange& other) const override;
  VELRangePtr clone() const override;
  const char* className() const override { return "VELDoubleRange"; }
};

/// Bounds and arithmetic in single precision.
class VELMORA_API VELFloatRange : public VELScalarRange<VELFloatBound> {
 public:
  VELFloatRange() = default;
  VELFloatRange(VELGenericType min, VELGenericType max) : VELScalarRange(min, max) {}
  ~VELFloatRange() override;
  using VELRange::equals;
  bool equals(const VELRange* other) const override;
  VELRangePtr clone() const override;
  const char* className() const override { return "VELFloatRange"; }
};

/// Signed 32-bit bounds.
class VELMORA_API VELIntegerRange : public VELScalarRange<VELIntegerBound> {
 public:
  VELIntegerRange() = default;
  VELIntegerRange(VELGenericType min, VELGenericType max) : VELScalarRange(min, max) {}
  ~VELIntegerRange() override;
  using VELRange::equals;
  bool equals(const VELRange* other) const override;
  VELRangePtr clone() const override;
  const char* className() const override { return "VELIntegerRange"; }
};

/// First and last index of a run of points, both included.
///
/// Kept apart from the integer range in three ways that are meant: a negative bound makes it undefined,
/// growing rounds half away from zero, and the grown bounds are put in order.
class VELMORA_API VELIndexRange : public VELScalarRange<VELIntegerBound> {
 public:
  VELIndexRange() = default;
  VELIndexRange(VELGenericType min, VELGenericType max) : VELScalarRange(min, max) {}
  ~VELIndexRange() override;
  bool isDefined() const override;
  using VELScalarRange::growMinBy;
  VELRange& growMinBy(VELGenericType minFraction, VELGenericType maxFraction) override;
  using VELRange::equals;
  bool equals(const VELRange* other) const override;
  VELRangePtr clone() const override;
  VELRangeType rangeType() const override { return VELRangeType_Index; }
  const char* className() const override { return "VELIndexRange"; }
};

/// Bounds in seconds since 1970; NaN stands for no date.
class VELMORA_API VELDateRange : public VELScalarRange<VELDateBound> {
 public:
  VELDateRange() = default;
  /// Takes dates as well as seconds; Int64 and Byte values are no dates.
  VELDateRange(VELGenericType min, VELGenericType max) : VELScalarRange(min, max) {}
  ~VELDateRange() override;
  bool isZero() const override;
  using VELRange::equals;
  bool equals(const VELRange* other) const override;
  VELRangePtr unionWith(const VELRange& other) const override;
  VELRangePtr clone() const override;
  VELRangeType rangeType() const override { return VELRangeType_Date; }
  const char* className() const override { return "VELDateRange"; }

 protected:
  VELRangePtr withBounds(VELGenericType min, VELGenericType max) const override;
};

/// Makes ranges by a range, a data type or a class.
class VELMORA_API VELRangeFactory {
 public:
  /// A clone with other bounds, put in order.
  static VELRangePtr clone(const VELRange& range, VELGenericType min, VELGenericType max);
  /// As above, clamped when a limit is given; clamped bounds are not put in order.
  static VELRangePtr clone(const VELRange& range, VELGenericType min, VELGenericType max,
                           const VELRange* limit);
  /// Int32, DateTime and Float give their range, every other tag a double range; never an index range.
  /// The bounds stay in the order given; a NaN bound gives an undefined range.
  static VELRangePtr getRangeOfType(VELDataType type, VELGenericType min, VELGenericType max);
  /// As above by class, `typeid(VELIndexRange)` for example; an unknown class gives a double range.
  static VELRangePtr getRangeWithRangeType(const std::type_info& rangeClass, VELGenericType min,
                                           VELGenericType max);
};
