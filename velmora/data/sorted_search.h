// data/sorted_search.h: where a value belongs in ascending elements.
//
// Internal. Both searches leap forward from where they start in doubling steps and then halve: what is near
// is found in the cache lines next to it. Elements are compared as doubles; NaN has no place in an order and
// is passed over. Always true: the answer lies in [first, last], whatever the elements are.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "velmora/data/array_controller.h"
#include "velmora/data/element_type.h"

/// The element at @p index, or the next one that is a number; @p last when there is none.
template <typename T>
int64_t VELNextNumber(const T* values, int64_t index, int64_t last) {
  if constexpr (std::is_floating_point_v<T>) {
    while (index < last && std::isnan(values[index])) ++index;
  }
  return index;
}

/// The next number itself; NaN when there is none: elements, first, last.
using VELNumberSearch = double (*)(const void*, int64_t, int64_t);

/// The way to it for one storage type, to be chosen once.
inline VELNumberSearch VELNextNumberSearch(VELDataType type) {
  return VELVisitElementType(type, [](auto element) -> VELNumberSearch {
    using T = typename decltype(element)::type;
    return [](const void* values, int64_t first, int64_t last) {
      const int64_t index = VELNextNumber(static_cast<const T*>(values), first, last);
      if (index == last) return std::numeric_limits<double>::quiet_NaN();
      return static_cast<double>(static_cast<const T*>(values)[index]);
    };
  });
}

/// First index in [first, last) at which @p isBefore no longer holds, else last.
template <typename T, typename Predicate>
int64_t VELFirstNot(const T* values, int64_t first, int64_t last, Predicate isBefore) {
  const auto at = [values](int64_t index) { return static_cast<double>(values[index]); };
  int64_t step = 1;
  while (step < last - first) {
    const int64_t probe = VELNextNumber(values, first + step - 1, last);
    if (probe == last || !isBefore(at(probe))) break;
    first = probe + 1;
    step *= 2;
  }
  int64_t left = first;
  int64_t right = first + std::min(step, last - first);
  while (left < right) {
    const int64_t middle = left + (right - left) / 2;
    const int64_t probe = VELNextNumber(values, middle, right);
    if (probe < right && isBefore(at(probe))) {
      left = probe + 1;
    } else {
      right = middle;
    }
  }
  return left;
}

/// The search for one storage type, to be chosen once: elements, first, last, value.
using VELSortedSearch = int64_t (*)(const void*, int64_t, int64_t, double);

/// Finds the first element that is not below the value.
inline VELSortedSearch VELFirstNotBelowSearch(VELDataType type) {
  return VELVisitElementType(type, [](auto element) -> VELSortedSearch {
    using T = typename decltype(element)::type;
    return [](const void* values, int64_t first, int64_t last, double value) {
      return VELFirstNot(static_cast<const T*>(values), first, last, [value](double x) { return x < value; });
    };
  });
}

/// Finds the first element that is above the value.
inline VELSortedSearch VELFirstAboveSearch(VELDataType type) {
  return VELVisitElementType(type, [](auto element) -> VELSortedSearch {
    using T = typename decltype(element)::type;
    return [](const void* values, int64_t first, int64_t last, double value) {
      return VELFirstNot(static_cast<const T*>(values), first, last,
                         [value](double x) { return x <= value; });
    };
  });
}
