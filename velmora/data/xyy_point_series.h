// data/xyy_point_series.h: the points of a band, two values at each x.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "velmora/data/composite_point_series.h"
#include "velmora/platform/export.h"

/// y1 and y2 over one x; the y of the series is y1. A point is a gap where either is NaN.
class VELMORA_API VELXyyPointSeries : public VELCompositePointSeries {
 public:
  /// No points, room for @p capacity of them.
  explicit VELXyyPointSeries(int64_t capacity = 0);
  /// Takes the series as they are; they are shared, not copied.
  /// @throws VELInvalidArgumentException unless both have the same x and indices columns and one count
  VELXyyPointSeries(std::shared_ptr<VELPointSeries> y1, std::shared_ptr<VELPointSeries> y2);

  /// Never null: a column of Double.
  const std::shared_ptr<VELArrayController>& y1Values() const { return valuesOf(0); }
  const std::shared_ptr<VELArrayController>& y2Values() const { return valuesOf(1); }
  /// The `count()` values, without a copy; valid until the series changes.
  std::span<const double> y1Span() const { return spanOf(0); }
  std::span<const double> y2Span() const { return spanOf(1); }

  /// A point at which the band has no width.
  void addX(double x, double y, int32_t index) override { addX(x, y, y, index); }
  void addX(double x, double y1, double y2, int32_t index) { addPoint(x, {y1, y2}, index); }
};
