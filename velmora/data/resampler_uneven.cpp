// The reducer for sorted data of any spacing: one pixel column after the other.
#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>

#include "velmora/data/extremes.h"
#include "velmora/data/resampler.h"
#include "velmora/data/resampler_parts.h"
#include "velmora/data/sorted_search.h"

namespace {

constexpr int64_t kPointsPerColumn = 4;

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
  std::array<int64_t, kPointsPerColumn + 1> _items{};
  int64_t _count = 0;
};

/// Chooses points of a y column from left to right and writes their indices.
///
/// A run of NaN is written once, where it starts; `_inGap` carries it across columns.
template <typename T>
class ColumnReducer {
 public:
  ColumnReducer(const T* y, int32_t* out) : _y(y), _out(out) {}

  int64_t written() const { return _written; }

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
    if (picks.count() > kPointsPerColumn) makeRoom(picks, firstPoint, low, high, lastPoint);
    writeAll(picks);
  }

  /// Gaps as far as there is room, one in any case. The one that leads out of the column comes first: it is
  /// the only one that may be wider than a pixel.
  void addGaps(Picks& picks, int64_t first, int64_t trailing, int64_t last) const {
    const int64_t room = std::max(kPointsPerColumn, picks.count() + 1);
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
  bool _inGap = false;
};

/// How x is parted: the points [first, last) lie in [minX, maxX], which has @p columns pixel columns.
struct Layout {
  int64_t first = 0;
  int64_t last = 0;
  double minX = 0.0;
  double maxX = 0.0;
  int32_t columns = 0;

  /// Where a column ends; the last one is closed instead.
  double edge(int32_t column) const { return minX + (maxX - minX) * (static_cast<double>(column) / columns); }

  /// The first column from @p column on that ends behind an x; `columns` when none does, and for NaN.
  int32_t columnBehind(double x, int32_t column) const {
    int32_t beyond = columns;
    while (column < beyond) {
      const int32_t middle = column + (beyond - column) / 2;
      if (x < edge(middle)) {
        beyond = middle;
      } else {
        column = middle + 1;
      }
    }
    return beyond;
  }
};

/// The visible range as far as there is data; the range of the data where the visible one is no range.
void p_VEL_o_getXRangeFrom(const VELArrayController& xColumn, VELPointRun run, const VELRange& visibleRange,
                           double& minX, double& maxX) {
  double dataMin = VELGenericDouble(xColumn.valueAt(run.first));
  double dataMax = VELGenericDouble(xColumn.valueAt(run.last()));
  for (int64_t i = run.first; i < run.last() && std::isnan(dataMin); ++i) {
    dataMin = VELGenericDouble(xColumn.valueAt(i + 1));
  }
  for (int64_t i = run.last(); i > run.first && std::isnan(dataMax); --i) {
    dataMax = VELGenericDouble(xColumn.valueAt(i - 1));
  }
  minX = visibleRange.minAsDouble();
  maxX = visibleRange.maxAsDouble();
  if (!(minX > dataMin)) minX = dataMin;
  if (!(maxX < dataMax)) maxX = dataMax;
  if (minX <= maxX) return;
  minX = dataMin;
  maxX = dataMax;
}

template <typename T>
int64_t p_VEL_o_reducePointUnevenImpl(VELPointRun run, const Layout& layout,
                                      const VELArrayController& xColumn, const T* y, int32_t* out) {
  const void* x = xColumn.data();
  const VELSortedSearch firstNotBelow = VELFirstNotBelowSearch(xColumn.type());
  const VELNumberSearch nextNumber = VELNextNumberSearch(xColumn.type());
  ColumnReducer<T> reducer(y, out);
  if (layout.first > run.first) reducer.keep(layout.first - 1);
  int64_t first = layout.first;
  int32_t column = 1;
  while (column < layout.columns && first < layout.last) {
    const int64_t last = firstNotBelow(x, first, layout.last, layout.edge(column));
    ++column;
    // Behind an empty column straight to the next one that holds a point: each search in between would walk
    // over the same run of NaN.
    if (last == first) column = layout.columnBehind(nextNumber(x, first, layout.last), column);
    reducer.reduce(first, last);
    first = last;
  }
  reducer.reduce(first, layout.last);
  if (layout.last <= run.last()) reducer.keep(layout.last);
  return reducer.written();
}

}  // namespace

std::shared_ptr<VELPointSeries> VELPointResampler::o_reducePointsMinMaxUnevenlySpaced(
    const VELIndexRange& pointRange, const VELRange& visibleRange, const VELArrayController& xColumn,
    const VELArrayController& yColumn, int32_t viewportWidth, const PointSeriesPtr& last) {
  const VELPointRun run = VELPointRunOf(pointRange, xColumn, yColumn);
  if (VELBucketSize(run.count, viewportWidth) < 1) {
    return o_resampleWithoutReduction(pointRange, xColumn, yColumn, last);
  }
  Layout layout;
  layout.columns = viewportWidth;
  p_VEL_o_getXRangeFrom(xColumn, run, visibleRange, layout.minX, layout.maxX);
  // Infinite ends have no columns between them.
  if (!std::isfinite(layout.maxX - layout.minX)) {
    return o_resampleWithoutReduction(pointRange, xColumn, yColumn, last);
  }
  const int64_t end = run.first + run.count;
  layout.first = VELFirstNotBelowSearch(xColumn.type())(xColumn.data(), run.first, end, layout.minX);
  layout.last = VELFirstAboveSearch(xColumn.type())(xColumn.data(), layout.first, end, layout.maxX);

  auto points = VELPointSeriesToFill(last, kPointsPerColumn * viewportWidth + 2);
  const VELPointBuffers out(*points);
  const int64_t written = VELVisitElements(yColumn, [&](const auto* y) {
    return p_VEL_o_reducePointUnevenImpl(run, layout, xColumn, y, out.index);
  });
  const auto gather = [&](double* target) {
    return [&out, target, written](const auto* values) {
      for (int64_t i = 0; i < written; ++i) target[i] = static_cast<double>(values[out.index[i]]);
    };
  };
  VELVisitElements(xColumn, gather(out.x));
  VELVisitElements(yColumn, gather(out.y));
  points->xValues()->setCount(written);
  points->yValues()->setCount(written);
  points->indices()->setCount(written);
  return points;
}
