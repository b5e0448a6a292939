// data/pixel_columns.h: which points of ascending x fall into which column of pixels.
//
// Internal. Units: x in data units; indices count points.
#pragma once

#include <cstdint>

#include "velmora/data/column_view.h"
#include "velmora/data/range.h"
#include "velmora/data/sorted_search.h"

/// Points [first, first + count) that all columns have.
struct VELPointRun {
  int64_t first = 0;
  int64_t count = 0;
  int64_t last() const { return first + count - 1; }
};

/// How x is parted: the points [first, last) of a run lie in [minX, maxX], which has @p count columns.
struct VELPixelColumns {
  VELPointRun run;
  int64_t first = 0;
  int64_t last = 0;
  double minX = 0.0;
  double maxX = 0.0;
  int32_t count = 0;

  /// Infinite ends have no columns between them.
  bool exist() const { return count > 0; }
  /// Where a column ends; the last one is closed instead.
  double edge(int32_t column) const { return minX + (maxX - minX) * (static_cast<double>(column) / count); }
  /// The first column from @p column on that ends behind an x; `count` when none does, and for NaN.
  int32_t columnBehind(double x, int32_t column) const;
};

/// @p width columns across the visible range as far as there are points of the run; across all of its points
/// where the visible range is none.
VELPixelColumns VELPixelColumnsOf(VELPointRun run, const VELColumnView& x, const VELRange& visibleRange,
                                  int32_t width);

/// Calls @p picker from left to right: `reduce(first, last)` with the points [first, last) of each column,
/// which may be none, and `keep(index)` with the nearest point outside on each side.
template <typename Picker>
void VELWalkPixelColumns(const VELPixelColumns& columns, const VELColumnView& x, Picker& picker) {
  const VELSortedSearch firstNotBelow = VELFirstNotBelowSearch(x.type);
  const VELNumberSearch nextNumber = VELNextNumberSearch(x.type);
  if (columns.first > columns.run.first) picker.keep(columns.first - 1);
  int64_t first = columns.first;
  int32_t column = 1;
  while (column < columns.count && first < columns.last) {
    const int64_t last = firstNotBelow(x.data, first, columns.last, columns.edge(column));
    ++column;
    // Behind an empty column straight to the next one that holds a point: each search in between would walk
    // over the same run of NaN.
    if (last == first) column = columns.columnBehind(nextNumber(x.data, first, columns.last), column);
    picker.reduce(first, last);
    first = last;
  }
  picker.reduce(first, columns.last);
  if (columns.last <= columns.run.last()) picker.keep(columns.last);
}
