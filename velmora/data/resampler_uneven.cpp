// The reducer for sorted data of any spacing: one pixel column after the other.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <type_traits>

#include "velmora/data/extremes.h"
#include "velmora/data/resampler_parts.h"

namespace {

/// Indices in ascending order, each once; room for what one column may give and one more.
class Picks {
 public:
  void add(int64_t index) {
    const auto end = _items.begin() + _count;
    const auto place = std::lower_bound(_items.begin(), end, index);
    if (place != end && *place == index) return;
    std::move_backward(place, end, end + 1);
    *place = index;
    ++_count;
  }
  void remove(int64_t index) {
    const auto end = _items.begin() + _count;
    const auto place = std::find(_items.begin(), end, index);
    if (place == end) return;
    std::move(place + 1, end, place);
    --_count;
  }
  int64_t count() const { return _count; }
  const int64_t* begin() const { return _items.data(); }
  const int64_t* end() const { return _items.data() + _count; }

 private:
  std::array<int64_t, kVELPointsPerPixelColumn + 1> _items{};
  int64_t _count = 0;
};

/// Chooses points of a y column from left to right and writes their indices.
///
/// A run of NaN is written once, where it starts; `_inGap` carries it across columns.
template <typename T>
class ColumnReducer {
 public:
  ColumnReducer(const T* y, int32_t* out, bool inGap) : _y(y), _out(out), _inGap(inGap) {}

  int64_t written() const { return _written; }
  bool inGap() const { return _inGap; }

  /// A point that is kept whatever it is.
  void keep(int64_t index) {
    const bool gap = isGap(index);
    if (!gap || !_inGap) write(index);
    _inGap = gap;
  }

  /// The points [first, last) of one pixel column: at most four.
  void reduce(int64_t first, int64_t last) {
    if (first == last) return;
    if (hasGap(first, last)) {
      reduceWithGaps(first, last);
    } else {
      const VELExtremes found = VELFindExtremes(_y + first, last - first);
      Picks picks;
      picks.add(first);
      picks.add(first + found.minAt);
      picks.add(first + found.maxAt);
      picks.add(last - 1);
      writeAll(picks);
    }
    _inGap = isGap(last - 1);
  }

 private:
  bool isGap(int64_t index) const {
    if constexpr (std::is_floating_point_v<T>) return std::isnan(_y[index]);
    return false;
  }

  bool hasGap(int64_t first, int64_t last) const {
    bool any = false;
    if constexpr (std::is_floating_point_v<T>) {
      for (int64_t i = first; i < last; ++i) any |= _y[i] != _y[i];
    }
    return any;
  }

  void write(int64_t index) { _out[_written++] = static_cast<int32_t>(index); }

  void writeAll(const Picks& picks) {
    for (const int64_t index : picks) write(index);
  }

  void reduceWithGaps(int64_t first, int64_t last) {
    const VELExtremes found = VELFindExtremes(_y + first, last - first);
    if (!found.exist()) {
      if (!_inGap) write(first);
      return;
    }
    const int64_t low = first + found.minAt;
    const int64_t high = first + found.maxAt;
    int64_t firstPoint = first;
    while (isGap(firstPoint)) ++firstPoint;
    int64_t lastPoint = last - 1;
    while (isGap(lastPoint)) --lastPoint;
    Picks picks;
    for (const int64_t index : {firstPoint, low, high, lastPoint}) picks.add(index);
    addGaps(picks, first, lastPoint + 1 < last ? lastPoint + 1 : last, last);
    if (picks.count() > kVELPointsPerPixelColumn) makeRoom(picks, firstPoint, low, high, lastPoint);
    writeAll(picks);
  }

  /// Gaps as far as there is room, one in any case. The one that leads out of the column comes first: it is
  /// the only one that may be wider than a pixel.
  void addGaps(Picks& picks, int64_t first, int64_t trailing, int64_t last) const {
    const int64_t room = std::max(kVELPointsPerPixelColumn, picks.count() + 1);
    if (trailing < last) picks.add(trailing);
    bool inGap = _inGap;
    for (int64_t i = first; i < trailing && picks.count() < room; ++i) {
      const bool gap = isGap(i);
      if (gap && !inGap) picks.add(i);
      inGap = gap;
    }
  }

  /// A gap took the fifth place: the first or the last point gives way, the one of which the drawing loses
  /// nothing that another point on its side of the gap does not show.
  void makeRoom(Picks& picks, int64_t firstPoint, int64_t low, int64_t high, int64_t lastPoint) const {
    const auto gap = std::find_if(picks.begin(), picks.end(), [this](int64_t i) { return isGap(i); });
    const bool lastHasCompany = std::max(low, high) > *gap;
    const bool dropLast = *gap > lastPoint || (*gap > firstPoint && lastHasCompany);
    picks.remove(dropLast ? lastPoint : firstPoint);
  }

  const T* _y;
  int32_t* _out;
  int64_t _written = 0;
  bool _inGap;
};

/// What one y column of any type wants kept of one pixel column; its type is chosen once for all of them.
class AnyColumnReducer {
 public:
  explicit AnyColumnReducer(const VELColumnView& y) : _y(y.data) {
    VELVisitElements(y, [this](const auto* values) {
      using T = std::remove_cvref_t<decltype(*values)>;
      _reduce = &call<T, &ColumnReducer<T>::reduce, int64_t, int64_t>;
      _keep = &call<T, &ColumnReducer<T>::keep, int64_t>;
    });
  }

  std::span<const int32_t> reduce(int64_t first, int64_t last) { return _reduce(*this, first, last); }
  std::span<const int32_t> keep(int64_t index) { return _keep(*this, index); }

 private:
  template <typename T, auto operation, typename... Arguments>
  static std::span<const int32_t> call(AnyColumnReducer& self, Arguments... arguments) {
    ColumnReducer<T> reducer(static_cast<const T*>(self._y), self._picked.data(), self._inGap);
    (reducer.*operation)(arguments...);
    self._inGap = reducer.inGap();
    return {self._picked.data(), static_cast<size_t>(reducer.written())};
  }

  const void* _y;
  bool _inGap = false;
  std::span<const int32_t> (*_reduce)(AnyColumnReducer&, int64_t, int64_t) = nullptr;
  std::span<const int32_t> (*_keep)(AnyColumnReducer&, int64_t) = nullptr;
  std::array<int32_t, kVELPointsPerPixelColumn> _picked{};
};

/// What either of two y columns wants kept.
class PairReducer {
 public:
  PairReducer(const VELColumnView& y1, const VELColumnView& y2, int32_t* out)
      : _y1(y1), _y2(y2), _begin(out), _end(out) {}

  int64_t written() const { return _end - _begin; }
  void reduce(int64_t first, int64_t last) { merge(_y1.reduce(first, last), _y2.reduce(first, last)); }
  void keep(int64_t index) { merge(_y1.keep(index), _y2.keep(index)); }

 private:
  void merge(std::span<const int32_t> a, std::span<const int32_t> b) {
    _end = std::set_union(a.begin(), a.end(), b.begin(), b.end(), _end);
  }

  AnyColumnReducer _y1;
  AnyColumnReducer _y2;
  int32_t* _begin;
  int32_t* _end;
};

}  // namespace

int64_t VELPickFromPixelColumns(const VELPixelColumns& columns, const VELColumnView& x,
                                const VELColumnView& y, int32_t* out) {
  return VELVisitElements(y, [&](const auto* values) {
    ColumnReducer reducer(values, out, false);
    VELWalkPixelColumns(columns, x, reducer);
    return reducer.written();
  });
}

int64_t VELPickFromPixelColumns(const VELPixelColumns& columns, const VELColumnView& x,
                                const VELColumnView& y1, const VELColumnView& y2, int32_t* out) {
  PairReducer reducer(y1, y2, out);
  VELWalkPixelColumns(columns, x, reducer);
  return reducer.written();
}
