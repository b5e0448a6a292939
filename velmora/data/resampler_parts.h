// data/resampler_parts.h: what all reducers of data/resampler.h begin and end with.
//
// Internal.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/data/array_controller.h"
#include "velmora/data/element_type.h"
#include "velmora/data/point_series.h"
#include "velmora/data/ranges.h"

/// Points [first, first + count) that both columns have.
struct VELPointRun {
  int64_t first = 0;
  int64_t count = 0;
  int64_t last() const { return first + count - 1; }
};

VELPointRun VELPointRunOf(const VELIndexRange& range, const VELArrayController& xColumn,
                          const VELArrayController& yColumn);

/// Points per bucket, n / (2 × width) in whole numbers; below 1 there is nothing to reduce.
int64_t VELBucketSize(int64_t pointCount, int32_t viewportWidth);

/// @p last when nobody but the caller holds it or a column of it, else a new one; with @p count points still
/// to be written.
std::shared_ptr<VELPointSeries> VELPointSeriesToFill(const std::shared_ptr<VELPointSeries>& last,
                                                     int64_t count);

/// The three buffers of a point series, which made sure of their types.
struct VELPointBuffers {
  explicit VELPointBuffers(const VELPointSeries& points)
      : x(static_cast<double*>(points.xValues()->data())),
        y(static_cast<double*>(points.yValues()->data())),
        index(static_cast<int32_t*>(points.indices()->data())) {}
  double* x;
  double* y;
  int32_t* index;
};

/// Calls @p visitor with a column's elements as a `const T*`, T being their type.
template <typename Visitor>
decltype(auto) VELVisitElements(const VELArrayController& column, Visitor&& visitor) {
  return VELVisitElementType(column.type(), [&](auto element) -> decltype(auto) {
    using T = typename decltype(element)::type;
    return visitor(static_cast<const T*>(column.data()));
  });
}
