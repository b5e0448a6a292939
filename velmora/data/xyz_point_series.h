// data/xyz_point_series.h: the points of a bubble chart, a size for each.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <span>

#include "velmora/data/composite_point_series.h"
#include "velmora/platform/export.h"

/// y and z over one x; z lies along no axis, so the y range is that of y alone.
class VELMORA_API VELXyzPointSeries : public VELCompositePointSeries {
 public:
  /// No points, room for @p capacity of them.
  explicit VELXyzPointSeries(int64_t capacity = 0);
  /// Takes the series as they are, z being the y of the second; they are shared, not copied.
  /// @throws VELInvalidArgumentException unless both have the same x and indices columns and one count
  VELXyzPointSeries(std::shared_ptr<VELPointSeries> xy, std::shared_ptr<VELPointSeries> xz);

  /// Never null: a column of Double.
  const std::shared_ptr<VELArrayController>& zValues() const { return valuesOf(1); }
  /// The `count()` values, without a copy; valid until the series changes.
  std::span<const double> zSpan() const { return spanOf(1); }

  /// A point of unknown z, which is NaN.
  void addX(double x, double y, int32_t index) override {
    addX(x, y, std::numeric_limits<double>::quiet_NaN(), index);
  }
  void addX(double x, double y, double z, int32_t index) { addPoint(x, {y, z}, index); }
};
