// data/points.h: what a resampler gave, in plain vectors, for tests.
#pragma once

#include <ostream>

#include "tests/data/columns.h"
#include "velmora/data/point_series.h"

struct Point {
  double x;
  double y;
  int64_t index;
  bool operator==(const Point& other) const {
    return same(x, other.x) && same(y, other.y) && index == other.index;
  }
};
using Points = std::vector<Point>;

inline void PrintTo(const Point& point, std::ostream* out) {
  *out << "(" << point.x << ", " << point.y << ", #" << point.index << ")";
}

inline double valueAt(const VELArrayController& column, int64_t index) {
  return VELGenericDouble(column.valueAt(index));
}

/// The points with the values of one column as y.
inline Points pointsOf(const VELPointSeries& series, const VELArrayController& values) {
  Points points;
  for (size_t i = 0; i < series.xSpan().size(); ++i) {
    points.push_back({series.xSpan()[i], valueAt(values, static_cast<int64_t>(i)), series.indexSpan()[i]});
  }
  return points;
}

inline Points pointsOf(const VELPointSeries& series) { return pointsOf(series, *series.yValues()); }

/// Pixel column of an x inside the range, by a plain count of the edges that it has reached.
inline int32_t pixelColumn(double x, double minX, double maxX, int32_t width) {
  int32_t column = 0;
  while (column + 1 < width && x >= minX + (maxX - minX) * (static_cast<double>(column + 1) / width))
    ++column;
  return column;
}
