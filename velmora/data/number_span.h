// data/number_span.h: numbers or dates in a row of memory, of whatever type, on their way into a column.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ranges>
#include <span>
#include <type_traits>

#include "velmora/data/element_type.h"
#include "velmora/data/generic_type.h"
#include "velmora/platform/export.h"

/// Rows of numbers or dates in contiguous memory: std::span, std::vector, std::array, plain arrays.
template <class Values>
concept VELContiguousValues = std::ranges::contiguous_range<Values> && std::ranges::sized_range<Values> &&
    (VELElementTypeOf<std::ranges::range_value_t<Values>>() != VELDataType_None ||
     std::is_same_v<std::ranges::range_value_t<Values>, VELDate>);

/// Any such row, unboxed. Not owned: valid as long as the row stands where it does.
class VELMORA_API VELNumberSpan {
 public:
  VELNumberSpan() = default;
  template <VELContiguousValues Values>
  VELNumberSpan(const Values& values)
      : VELNumberSpan(typeOf<std::ranges::range_value_t<Values>>(), std::ranges::data(values),
                      static_cast<int64_t>(std::ranges::size(values))) {}
  /// The numbers behind a pointer-tagged value; empty for any other tag, for null and a count below 1.
  VELNumberSpan(VELGenericType pointer, int64_t count);

  /// DateTime says that the elements are `VELDate`; None that there are none.
  VELDataType type() const { return _type; }
  const void* data() const { return _data; }
  int64_t count() const { return _count; }
  bool isEmpty() const { return _count == 0; }
  size_t bytes() const { return static_cast<size_t>(_count) * static_cast<size_t>(VELElementSize(_type)); }
  /// The same numbers at another place.
  VELNumberSpan at(const void* data) const { return {_type, data, _count}; }

 private:
  VELNumberSpan(VELDataType type, const void* data, int64_t count)
      : _type(type), _data(data), _count(count) {}
  template <class T>
  static constexpr VELDataType typeOf() {
    return std::is_same_v<T, VELDate> ? VELDataType_DateTime : VELElementTypeOf<T>();
  }

  VELDataType _type = VELDataType_None;
  const void* _data = nullptr;
  int64_t _count = 0;
};

/// Calls @p visitor with the row as a `std::span<const T>`, T being its type.
template <typename Visitor>
decltype(auto) VELVisitNumbers(VELNumberSpan numbers, Visitor&& visitor) {
  static_assert(sizeof(VELDate) == sizeof(double));
  const auto count = static_cast<size_t>(numbers.count());
  if (numbers.type() == VELDataType_DateTime)
    return visitor(std::span(static_cast<const VELDate*>(numbers.data()), count));
  return VELVisitElementType(numbers.type(), [&](auto element) -> decltype(auto) {
    using T = typename decltype(element)::type;
    return visitor(std::span(static_cast<const T*>(numbers.data()), count));
  });
}
