// data/point_series.h: the points that one series draws in one pass.
//
// Who chooses the points is data/resampler.h. Units: data units; indices count points of the data series.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "velmora/data/array_controller.h"
#include "velmora/data/range.h"
#include "velmora/platform/export.h"

/// Three columns of one length: x and y as doubles and the index of each point in its data series.
///
/// A point with a NaN y is a gap: a line breaks there.
class VELMORA_API VELPointSeries {
 public:
  /// No points.
  VELPointSeries();
  /// No points, room for @p capacity of them.
  explicit VELPointSeries(int64_t capacity);
  /// Takes the columns as they are; they are shared, not copied.
  /// @throws VELInvalidArgumentException unless x and y are Double and the indices Int32, and for rings
  VELPointSeries(std::shared_ptr<VELArrayController> xData, std::shared_ptr<VELArrayController> yData,
                 std::shared_ptr<VELArrayController> indices);
  virtual ~VELPointSeries() = default;
  VELPointSeries(const VELPointSeries&) = delete;
  VELPointSeries& operator=(const VELPointSeries&) = delete;

  /// Never null: a column of Double.
  virtual const std::shared_ptr<VELArrayController>& xValues() const { return _xValues; }
  /// Never null: a column of Double.
  virtual const std::shared_ptr<VELArrayController>& yValues() const { return _yValues; }
  /// Never null: a column of Int32.
  virtual const std::shared_ptr<VELArrayController>& indices() const { return _indices; }

  /// Points, as long as the shortest column.
  virtual int64_t count() const;
  /// The `count()` x values, without a copy; valid until the series changes.
  std::span<const double> xSpan() const;
  /// The `count()` y values, as above.
  std::span<const double> ySpan() const;
  /// The `count()` indices, as above.
  std::span<const int32_t> indexSpan() const;

  /// No points any more; the memory is kept.
  virtual void clear();
  virtual void addX(double x, double y, int32_t index);
  /// Smallest and largest y without NaN, undefined when there is none. The caller owns it.
  virtual VELRangePtr getYRange() const;

  /// Exactly @p count points whose values are to be written through the columns' buffers: they are
  /// uninitialised. Memory only ever grows, so the same count again allocates nothing.
  virtual void setCount(int64_t count);

 private:
  std::shared_ptr<VELArrayController> _xValues;
  std::shared_ptr<VELArrayController> _yValues;
  std::shared_ptr<VELArrayController> _indices;
};
