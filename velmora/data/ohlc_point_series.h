// data/ohlc_point_series.h: the points of a financial chart, four prices at each x.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "velmora/data/composite_point_series.h"
#include "velmora/platform/export.h"

/// Open, high, low and close over one x; the y of the series is the close, its y range spans all four.
class VELMORA_API VELOhlcPointSeries : public VELCompositePointSeries {
 public:
  /// No points, room for @p capacity of them.
  explicit VELOhlcPointSeries(int64_t capacity = 0);
  /// Takes the series as they are; they are shared, not copied.
  /// @throws VELInvalidArgumentException unless all have the same x and indices columns and one count
  VELOhlcPointSeries(std::shared_ptr<VELPointSeries> open, std::shared_ptr<VELPointSeries> high,
                     std::shared_ptr<VELPointSeries> low, std::shared_ptr<VELPointSeries> close);

  /// Never null: a column of Double.
  const std::shared_ptr<VELArrayController>& openValues() const { return valuesOf(0); }
  const std::shared_ptr<VELArrayController>& highValues() const { return valuesOf(1); }
  const std::shared_ptr<VELArrayController>& lowValues() const { return valuesOf(2); }
  const std::shared_ptr<VELArrayController>& closeValues() const { return valuesOf(3); }
  /// The `count()` values, without a copy; valid until the series changes.
  std::span<const double> openSpan() const { return spanOf(0); }
  std::span<const double> highSpan() const { return spanOf(1); }
  std::span<const double> lowSpan() const { return spanOf(2); }
  std::span<const double> closeSpan() const { return spanOf(3); }

  /// A price that did not move.
  void addX(double x, double y, int32_t index) override { addX(x, y, y, y, y, index); }
  void addX(double x, double open, double high, double low, double close, int32_t index) {
    addPoint(x, {open, high, low, close}, index);
  }
};
