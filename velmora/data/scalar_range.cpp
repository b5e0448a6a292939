#include "velmora/data/scalar_range.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "velmora/data/ranges.h"
#include "velmora/platform/exception.h"

namespace {

// A bound that is NaN counts as absent: the other one stands. So do these two differ from std::min and
// std::max.
template <typename T>
T smaller(T a, T b) {
  if constexpr (std::is_floating_point_v<T>)
    return std::fmin(a, b);
  else
    return std::min(a, b);
}

template <typename T>
T larger(T a, T b) {
  if constexpr (std::is_floating_point_v<T>)
    return std::fmax(a, b);
  else
    return std::max(a, b);
}

}  // namespace

template <typename Bound>
bool VELScalarRange<Bound>::isDefined() const {
  if constexpr (std::is_floating_point_v<Value>) {
    // The difference against -epsilon, not max + epsilon against min: the latter loses epsilon on large
    // values.
    return _max - _min > -Bound::epsilon;
  } else {
    return _max > _min;
  }
}

template <typename Bound>
void VELScalarRange<Bound>::assertMinLessOrEqualToThanMax() const {
  if (!(_min > _max)) return;
  throw VELInvalidArgumentException(std::string("-[") + this->className() +
                                    " assertMinLessOrEqualToThanMax] Min should not be greater than Max");
}

template <typename Bound>
bool VELScalarRange<Bound>::isZero() const {
  if constexpr (std::is_floating_point_v<Value>) {
    return std::abs(_max - _min) <= Bound::epsilon;
  } else {
    return _max == _min;
  }
}

template <typename Bound>
void VELScalarRange<Bound>::setOrdered(Value first, Value second) {
  const bool inOrder = first < second;
  _min = inOrder ? first : second;
  _max = inOrder ? second : first;
}

template <typename Bound>
void VELScalarRange<Bound>::setMinTo(VELGenericType min, VELGenericType max) {
  setOrdered(Bound::from(min), Bound::from(max));
}

template <typename Bound>
void VELScalarRange<Bound>::setMinTo(VELGenericType min, VELGenericType max, const VELRange& limits) {
  _min = larger(Bound::from(min), Bound::from(limits.min()));
  _max = smaller(Bound::from(max), Bound::from(limits.max()));
}

template <typename Bound>
VELRange& VELScalarRange<Bound>::growMinBy(VELGenericType minFraction, VELGenericType maxFraction) {
  if constexpr (std::is_floating_point_v<Value>) {
    const auto a = static_cast<Value>(VELGenericDouble(minFraction));
    const auto b = static_cast<Value>(VELGenericDouble(maxFraction));
    const Value span = _max - _min;
    const bool zero = isZero();
    Value newMin = _min - a * (zero ? _min : span);
    Value newMax = _max + b * (zero ? _max : span);
    if (newMin > newMax) std::swap(newMin, newMax);
    if (std::abs(newMin - newMax) <= Bound::epsilon && std::abs(newMin) <= Bound::epsilon) {
      newMin = -1;
      newMax = 1;
    }
    _min = newMin;
    _max = newMax;
  } else {
    // Truncated and left in the order they come out: indices do otherwise, on purpose.
    const double base = static_cast<double>(_max != _min ? Bound::difference(_max, _min) : _min);
    _min = Bound::moved(_min, -std::trunc(VELGenericDouble(minFraction) * base));
    _max = Bound::moved(_max, std::trunc(VELGenericDouble(maxFraction) * base));
  }
  return *this;
}

template <typename Bound>
VELRangePtr VELScalarRange<Bound>::growMinBy(VELGenericType minFraction, VELGenericType maxFraction,
                                             bool isLogarithmic, double logBase) {
  if (!isLogarithmic) {
    growMinBy(minFraction, maxFraction);
    const VELRangePtr self = this->weak_from_this().lock();
    return self ? self : this->clone();
  }
  const double perPower = std::log(logBase);
  const double logMin = std::log(smallestLogBound(this->minAsDouble())) / perPower;
  const double logMax = std::log(smallestLogBound(this->maxAsDouble())) / perPower;
  const double span = logMax - logMin;
  return withBounds(std::pow(logBase, logMin - VELGenericDouble(minFraction) * span),
                    std::pow(logBase, logMax + VELGenericDouble(maxFraction) * span));
}

template <typename Bound>
double VELScalarRange<Bound>::smallestLogBound(double bound) const {
  if constexpr (std::is_floating_point_v<Value>) {
    return bound <= 0.0 ? static_cast<double>(Bound::epsilon) : bound;
  } else {
    // Zero has an infinite logarithm, which is meant: counting starts at 1.
    return bound < 1.0 ? 0.0 : bound;
  }
}

template <typename Bound>
VELRangePtr VELScalarRange<Bound>::withBounds(VELGenericType min, VELGenericType max) const {
  return VELRangeFactory::clone(*this, min, max);
}

template <typename Bound>
VELRange& VELScalarRange<Bound>::clipTo(const VELRange& limits) {
  const Value limitMin = Bound::from(limits.min());
  const Value limitMax = Bound::from(limits.max());
  Value newMin = larger(_min, limitMin);
  if (newMin > limitMax) newMin = limitMin;
  // Compared with the own min, not with the limit's, on purpose: only a range wholly above its limit opens to
  // it.
  Value newMax = smaller(_max, limitMax);
  if (newMax < _min) newMax = limitMax;
  if (newMin > newMax) {
    newMin = limitMin;
    newMax = limitMax;
  }
  setOrdered(newMin, newMax);
  return *this;
}

template <typename Bound>
bool VELScalarRange<Bound>::isValueWithinTheRange(VELGenericType value) const {
  if constexpr (std::is_floating_point_v<Value>) {
    const Value number = Bound::from(value);
    return _min <= number && number <= _max;
  } else {
    // As doubles: narrowed to 32 bits first, NaN and 2^40 would land inside.
    const double number = VELGenericDouble(value);
    return static_cast<double>(_min) <= number && number <= static_cast<double>(_max);
  }
}

template <typename Bound>
VELRangePtr VELScalarRange<Bound>::unionWith(const VELRange& other) const {
  return VELRangeFactory::clone(*this, Bound::tagged(smaller(_min, Bound::from(other.min()))),
                                Bound::tagged(larger(_max, Bound::from(other.max()))));
}

template class VELScalarRange<VELDoubleBound>;
template class VELScalarRange<VELFloatBound>;
template class VELScalarRange<VELIntegerBound>;
template class VELScalarRange<VELDateBound>;
