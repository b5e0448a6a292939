// data/composite_point_series.h: point series of more than one value a point.
//
// Which values a point has is data/xyy_point_series.h, data/ohlc_point_series.h and data/xyz_point_series.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

#include "velmora/data/point_series.h"

/// One whole point series per value column, all over the same x column and the same indices column.
///
/// Always true: every value column has a column of its own. The series is itself a point series, its y being
/// the one column that a class names.
class VELMORA_API VELCompositePointSeries : public VELPointSeries {
 public:
  /// Points, as long as the shortest column of all.
  int64_t count() const override;
  void clear() override;
  /// Smallest and largest of the columns that lie along the y axis, without NaN. The caller owns it.
  VELRangePtr getYRange() const override;
  void setCount(int64_t count) override;
  /// Whether anybody holds one of the point series or columns that it consists of.
  bool hasHolders() const;

 protected:
  using Parts = std::vector<std::shared_ptr<VELPointSeries>>;

  /// @param main the part whose values are the y
  /// @param partsAlongY so many parts, from the first, count for `getYRange`
  /// @throws VELInvalidArgumentException unless the parts are plain point series of one count that share x
  /// and indices and nothing else
  VELCompositePointSeries(Parts parts, size_t main, size_t partsAlongY);
  /// Parts as the constructor wants them, with room for @p capacity points.
  static Parts makeParts(size_t count, int64_t capacity);

  const std::shared_ptr<VELArrayController>& valuesOf(size_t part) const { return _parts[part]->yValues(); }
  /// The `count()` values, without a copy; valid until the series changes.
  std::span<const double> spanOf(size_t part) const;
  /// One value for each part.
  void addPoint(double x, std::initializer_list<double> values, int32_t index);

 private:
  Parts _parts;
  size_t _partsAlongY;
};
