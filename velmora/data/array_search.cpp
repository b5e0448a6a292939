#include "velmora/data/array_search.h"

#include <algorithm>
#include <type_traits>

#include "velmora/data/saturate.h"
#include "velmora/data/value_order.h"
#include "velmora/platform/exception.h"

namespace {

template <typename T, typename Order>
class Search {
 public:
  using Key = typename Order::Key;

  Search(const VELArraySearch& column, Key value)
      : _elements(static_cast<const T*>(column.data)),
        _count(column.count),
        _head(column.head),
        _value(value) {}

  int64_t first() const {
    for (int64_t i = 0; i < _count; ++i) {
      if (compareAt(i) == VELGenericCompareResult_Equal) return i;
    }
    return -1;
  }

  int64_t sorted(VELArraySearchMode mode) const {
    const int64_t last = _count - 1;
    const int64_t beyond = mode == VELArraySearchMode_Exact ? -1 : 0;
    const VELGenericCompareResult atFirst = compareAt(0);
    if (atFirst == VELGenericCompareResult_Less) return beyond;
    if (atFirst == VELGenericCompareResult_Equal) return 0;
    const VELGenericCompareResult atLast = compareAt(last);
    if (atLast == VELGenericCompareResult_Equal) return last;
    if (atLast == VELGenericCompareResult_Greater) return beyond == 0 ? last : -1;
    return bisect(mode);
  }

 private:
  int64_t bisect(VELArraySearchMode mode) const {
    int64_t low = 0;
    int64_t high = _count - 1;
    while (low <= high) {
      const int64_t middle = low + (high - low) / 2;
      const VELGenericCompareResult result = compareAt(middle);
      if (result == VELGenericCompareResult_Equal) return middle;
      if (result == VELGenericCompareResult_NotComparable) return -1;
      if (result == VELGenericCompareResult_Greater)
        low = middle + 1;
      else
        high = middle - 1;
    }
    switch (mode) {
      case VELArraySearchMode_Nearest:
        return nearest(low, high);
      case VELArraySearchMode_RoundDown:
        return std::clamp<int64_t>(high, 0, _count - 1);
      case VELArraySearchMode_RoundUp:
        return std::clamp<int64_t>(low, 0, _count - 1);
      default:
        return -1;
    }
  }

  int64_t nearest(int64_t low, int64_t high) const {
    low = std::clamp<int64_t>(low, 0, _count - 1);
    high = std::clamp<int64_t>(high, 0, _count - 1);
    return Order::distance(keyAt(high), _value) >= Order::distance(_value, keyAt(low)) ? low : high;
  }

  Key keyAt(int64_t index) const {
    const int64_t physical = index + _head;
    const T element = _elements[physical >= _count ? physical - _count : physical];
    if constexpr (std::is_same_v<Key, int64_t> && std::is_floating_point_v<T>) {
      return VELSaturate<int64_t>(static_cast<double>(element));
    } else {
      return static_cast<Key>(element);
    }
  }

  VELGenericCompareResult compareAt(int64_t index) const { return Order::compare(_value, keyAt(index)); }

  const T* _elements;
  int64_t _count;
  int64_t _head;
  Key _value;
};

}  // namespace

int64_t VELArraySearch::indexOf(VELGenericType value, bool isSorted, VELArraySearchMode mode) const {
  if (!isSorted && mode != VELArraySearchMode_Exact) {
    throw VELInvalidArgumentException(
        "Unsorted data occurs in the collection. The only allowed SearchMode is VELArraySearchMode_Exact");
  }
  if (count == 0 || !VELIsComparable(value.type, type)) return -1;
  // Sorted dates are searched by moments only; the plain scan below also finds whole seconds.
  const bool isMoment = value.type == VELDataType_Double || value.type == VELDataType_DateTime;
  if (isSorted && type == VELDataType_DateTime && !isMoment) return -1;

  return VELVisitElementType(type, [&](auto element) {
    using T = typename decltype(element)::type;
    const auto run = [&](const auto& search) { return isSorted ? search.sorted(mode) : search.first(); };
    // The order is chosen here once instead of at every element.
    return VELIsExactOrder(value.type, type) ? run(Search<T, VELExactOrder>(*this, VELGenericLong(value)))
                                             : run(Search<T, VELDoubleOrder>(*this, VELGenericDouble(value)));
  });
}
