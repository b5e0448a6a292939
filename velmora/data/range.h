// data/range.h: what a pair of bounds can do, whatever it counts in.
//
// Only the interface lives here. The concrete ranges and their factory are data/ranges.h.
// Units: data units; dates in seconds since 1970; index ranges in points, both ends included.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>

#include "velmora/data/generic_type.h"
#include "velmora/platform/export.h"

class VELDoubleRange;
class VELRange;
using VELRangePtr = std::shared_ptr<VELRange>;

/// Float and integer ranges report Numeric too; who must tell them apart tests the class.
enum VELRangeType : int32_t {
  VELRangeType_Numeric = 0,
  VELRangeType_Date = 1,
  VELRangeType_Index = 2,
};

/// A mutable pair of bounds; whoever keeps one that somebody else may change keeps a clone.
///
/// Always true: a default constructed range is inverted, hence undefined and the identity of a running union.
class VELMORA_API VELRange : public std::enable_shared_from_this<VELRange> {
 public:
  virtual ~VELRange();

  /// The bounds, tagged with the type of the class (Double, Float, Int32, Int32, DateTime).
  virtual VELGenericType min() const = 0;
  virtual VELGenericType max() const = 0;
  virtual void setMin(VELGenericType value) = 0;
  virtual void setMax(VELGenericType value) = 0;

  /// The bounds as doubles (dates in seconds, NaN for no date), without an allocation.
  double minAsDouble() const { return VELGenericDouble(min()); }
  double maxAsDouble() const { return VELGenericDouble(max()); }

  /// Whether the bounds enclose something; the integer ranges need more than one value, the index range also
  /// bounds of at least 0.
  virtual bool isDefined() const = 0;
  /// @throws VELInvalidArgumentException when min is above max; a NaN bound passes
  virtual void assertMinLessOrEqualToThanMax() const = 0;
  /// Max minus min, in seconds for dates; integers wrap in 32 bits.
  virtual VELGenericType diff() const = 0;
  virtual bool isZero() const = 0;
  /// A new range with both bounds as doubles, put in order: on purpose an undefined range comes out defined,
  /// a default one as everything. Ask `isDefined` before.
  std::shared_ptr<VELDoubleRange> asDoubleRange() const;

  /// Sets both bounds, the smaller as min.
  virtual void setMinTo(VELGenericType min, VELGenericType max) = 0;
  /// Sets both bounds, each clamped by the limit's bound on its side; they are not put in order.
  virtual void setMinTo(VELGenericType min, VELGenericType max, const VELRange& limits) = 0;

  /// Widens in place by fractions of the span. @return the receiver
  virtual VELRange& growMinBy(VELGenericType minFraction, VELGenericType maxFraction) = 0;
  /// In log space the widened range is a new one and the receiver stays as it is. Otherwise the receiver is
  /// widened and handed back; a receiver that no shared pointer owns hands back a clone of itself.
  virtual VELRangePtr growMinBy(VELGenericType minFraction, VELGenericType maxFraction, bool isLogarithmic,
                                double logBase) = 0;
  /// Clips in place. @return the receiver
  virtual VELRange& clipTo(const VELRange& limits) = 0;

  /// Both ends included; NaN is never within.
  virtual bool isValueWithinTheRange(VELGenericType value) const = 0;
  /// The same object, or one of this class (or a subclass of it) with the same bounds; null equals nothing.
  virtual bool equals(const VELRange* other) const = 0;
  bool equals(const VELRange& other) const { return equals(&other); }
  bool equals(const VELRangePtr& other) const { return equals(other.get()); }

  /// A new range that covers both. Float, integer and index ranges put its bounds in order: on purpose the
  /// union of two undefined ones comes out defined.
  virtual VELRangePtr unionWith(const VELRange& other) const = 0;
  virtual VELRangePtr clone() const = 0;
  virtual VELRangeType rangeType() const = 0;
  /// The name of the class, for messages.
  virtual const char* className() const = 0;

  /// For messages and debuggers, such as "VELDoubleRange [0, 1]".
  std::string description() const;

 protected:
  VELRange() = default;
  VELRange(const VELRange&) = default;
  VELRange& operator=(const VELRange&) = default;
};

VELMORA_API std::ostream& operator<<(std::ostream& out, const VELRange& range);
