// data/data_series.h: the application's data, and what the chart asks of it.
//
// The columns are data/array_controller.h, their reduction for drawing is data/resampler.h. Units: data units
// for x and y; seconds since 1970 in a DateTime column; indices count points from the oldest.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "velmora/data/array_controller.h"
#include "velmora/data/display_list.h"
#include "velmora/data/distribution_calculator.h"
#include "velmora/data/generic_type.h"
#include "velmora/data/point_series.h"
#include "velmora/data/range.h"
#include "velmora/data/ranges.h"
#include "velmora/data/resampler.h"
#include "velmora/platform/export.h"
#include "velmora/platform/invalidatable_element.h"

/// What a point of a data series consists of.
enum VELDataSeriesType : int32_t {
  VELDataSeriesType_Xy = 0,
  VELDataSeriesType_Ohlc = 1,
  VELDataSeriesType_HeatMap = 2,
  VELDataSeriesType_Xyy = 3,
  VELDataSeriesType_Xyz = 4,
};

/// Columns of one length, x and at least one y; each change is told once to whoever displays the series.
///
/// Always true: readers go as far as the shortest column; an empty series answers undefined ranges; indices
/// outside the data are ignored by every change. A series belongs to one thread.
class VELMORA_API VELDataSeries : public std::enable_shared_from_this<VELDataSeries> {
 public:
  virtual ~VELDataSeries();
  VELDataSeries(const VELDataSeries&) = delete;
  VELDataSeries& operator=(const VELDataSeries&) = delete;

  virtual VELDataSeriesType dataSeriesType() const = 0;
  /// The same points and settings in columns of their own. Blocks, displays and an own calculator stay
  /// behind; what the calculator knows comes along.
  virtual std::shared_ptr<VELDataSeries> clone() const = 0;

  /// Points, as long as the shortest column.
  virtual int64_t count() const;
  bool hasValues() const { return count() > 0; }
  VELDataType xType() const { return _xColumn->type(); }
  VELDataType yType() const { return _yColumn->type(); }
  /// The columns, never null. Who changes a column here calls `dataSeriesChanged` after it.
  const std::shared_ptr<VELArrayController>& xValues() const { return _xColumn; }
  const std::shared_ptr<VELArrayController>& yValues() const { return _yColumn; }

  /// The series is a ring: it keeps the newest `fifoCapacity()` points.
  bool isFifo() const { return _isFifo; }
  /// 0 for a series that is no ring.
  int32_t fifoCapacity() const { return _fifoCapacity; }
  /// A ring of another size, empty; what is known of the order stays until `clear`. Nothing happens for the
  /// present size, a negative one, or to a series that is no ring.
  void setFifoCapacity(int32_t capacity);

  /// x never descends. On purpose a full ring is not checked: new values are those by which the column grew,
  /// and it grows no more.
  bool isSorted() const { return _calculator->dataIsSortedAscending(); }
  /// Whether x may descend; false at first.
  bool acceptUnsortedData() const { return _acceptUnsortedData; }
  void setAcceptUnsortedData(bool accept) { _acceptUnsortedData = accept; }
  const std::string& seriesName() const { return _seriesName; }
  void setSeriesName(std::string name) { _seriesName = std::move(name); }
  /// Never null.
  const std::shared_ptr<VELDataDistributionCalculatorBase>& dataDistributionCalculator() const {
    return _calculator;
  }
  /// From the next event on; null is ignored.
  void setDataDistributionCalculator(std::shared_ptr<VELDataDistributionCalculatorBase> calculator);

  /// Runs on every change. May change the series, replace itself and let go of the last owner of the series.
  std::function<void()> onDataSeriesChanged() const;
  void setOnDataSeriesChanged(std::function<void()> block);
  /// Displays are held weakly and invalidated on every change, after the block; each is listed once.
  void addDisplay(const std::shared_ptr<VELInvalidatableElement>& display) { _displays.add(display); }
  void removeDisplay(const VELInvalidatableElement* display) { _displays.remove(display); }

  void removeAt(int64_t index) { removeRangeFrom(index, 1); }
  virtual void removeRangeFrom(int64_t start, int64_t count);
  /// Removes the first found point whose x equals the value.
  void removeValue(VELGenericType value);
  /// No points, sorted again; the memory is kept. The calculator is cleared after the notice of change.
  void clear();
  /// Empties the columns and tells nobody.
  virtual void clearColumns();

  /// First to last x of sorted data, else smallest to largest, in the range class of the x column. It is the
  /// series' own cache until the next change: clone it before changing it.
  VELRangePtr getXRange() const;
  /// Smallest to largest y, NaN left out, as above.
  virtual VELRangePtr getYRange() const;
  VELGenericType XMin() const { return getXRange()->min(); }
  VELGenericType XMax() const { return getXRange()->max(); }
  VELGenericType YMin() const { return getYRange()->min(); }
  VELGenericType YMax() const { return getYRange()->max(); }

  /// The points inside a visible x range with the nearest one outside on each side; all points of unsorted
  /// data; a default range when no point of the data lies in or around it. The caller owns it.
  std::shared_ptr<VELIndexRange> getIndicesRangeWithVisibleRange(const VELRange& visibleRange) const;
  /// The same into @p out, without allocation.
  void getIndicesRangeWithVisibleRange(const VELRange& visibleRange, VELIndexRange& out) const;

  /// Smallest to largest y of the points with x inside the range, or of the two neighbours when it lies
  /// between two points; of all points when the data is unsorted. NaN never counts; undefined when nothing
  /// does. The answer is used again for an equal question while nobody else holds it.
  /// @param getPositiveRange only y above 0 counts, as a logarithmic axis needs
  VELRangePtr getWindowYRangeWithXRange(const VELRange& xRange, bool getPositiveRange = false) const;
  /// As above for the points of an index range, both ends included. The caller owns it.
  VELRangePtr getWindowYRangeWithIndexRange(const VELIndexRange& indexRange,
                                            bool getPositiveRange = false) const;
  /// The smaller of a running value and the lowest y of a point. NaN and points outside do not count.
  virtual double getYMinAt(int64_t index, double existingYMin) const;
  /// The larger of a running value and the highest y of a point, as above.
  virtual double getYMaxAt(int64_t index, double existingYMax) const;
  /// Index of a value in the x column, or -1. The whole column is searched: the answer may be `count()` or
  /// more, an x without y that an unsorted append left over.
  /// @throws VELInvalidArgumentException for any mode but exact on unsorted data
  int64_t findIndexForValue(VELGenericType value, VELArraySearchMode mode) const;

  /// The points to draw for an index range. Reuses a point series that it handed out before and that nobody
  /// holds any more, so that a steady frame allocates nothing.
  /// @param viewportWidth in points of the screen
  /// @param isCategoryAxis x counts categories, which are evenly spaced whatever their values
  virtual std::shared_ptr<VELPointSeries> toPointSeriesWithResamplingMode(
      VELResamplingMode mode, const VELIndexRange& range, int32_t viewportWidth, bool isCategoryAxis,
      const VELRange& visibleRange, VELPointResampler& resampler) = 0;
  /// The point series that was handed out last; null before.
  const std::shared_ptr<VELPointSeries>& lastPointSeries() const { return _pointSeries[_lastPointSeries]; }
  void setLastPointSeries(std::shared_ptr<VELPointSeries> pointSeries);

  /// The one notice of change: forgets what was cached, runs the block, then invalidates the displays.
  void dataSeriesChanged();

 protected:
  /// Plain columns.
  /// @throws VELInvalidArgumentException for a type that no column stores
  VELDataSeries(VELDataType xType, VELDataType yType);
  /// Every column becomes an empty ring of its type, @p capacity at least 0. Classes with more columns do so
  /// for theirs and call this.
  virtual void p_VEL_makeFifo(int32_t capacity);
  /// x has grown at its end since it held @p previousCount values.
  void onAppendXColumnWithPreviousCount(int64_t previousCount);
  void onUpdateXColumnAtIndex(int64_t index);
  /// x has grown at @p index since it held @p previousCount values.
  void onInsertXColumnWithPreviousCount(int64_t previousCount, int64_t index);
  /// Cuts a defined index range to the data, in place.
  void p_VEL_toIndicesRange(VELIndexRange& range) const;
  /// Copies x, y, settings and what is known of the data, for `clone`.
  void p_VEL_copyFrom(const VELDataSeries& other);
  /// Tells the resampler what is known of this data.
  void p_VEL_prepareResampler(VELPointResampler& resampler, bool isCategoryAxis) const;
  /// The place of the next point series to hand out: it holds one that nobody else holds any more, where
  /// there is such a one. From now on it is `lastPointSeries`.
  std::shared_ptr<VELPointSeries>& p_VEL_nextPointSeries();

  std::shared_ptr<VELArrayController> _xColumn;
  std::shared_ptr<VELArrayController> _yColumn;

 private:
  /// The last windowed y range and its question.
  struct WindowAnswer {
    double xMin = 0.0;
    double xMax = 0.0;
    bool positive = false;
    bool valid = false;
    VELRangePtr range;
    VELGenericType min;  // the bounds as they were handed out, should the holder have changed them
    VELGenericType max;
  };
  /// This and last frame of four displays find a place each; only with more one is made anew every frame.
  static constexpr size_t kPointSeriesKept = 8;

  void p_VEL_forgetAnswers();
  /// Rings in logical order, so that raw columns can be searched.
  void p_VEL_normalizeColumns() const;
  void p_VEL_searchDataIndexesOn(double visibleMin, double visibleMax, VELIndexRange& out) const;
  VELRangePtr p_VEL_yRangeOfPoints(int64_t first, int64_t last, bool positive) const;
  VELRangePtr p_VEL_windowYRange(double xMin, double xMax, bool positive) const;

  std::shared_ptr<std::function<void()>> _onDataSeriesChanged;
  VELDisplayList _displays;
  mutable VELRangePtr _yRange;
  mutable VELRangePtr _xRange;
  mutable bool _yRangeValid = false;
  mutable bool _xRangeValid = false;
  mutable bool _lastIndicesRangeValid = false;
  bool _acceptUnsortedData = false;
  bool _isFifo = false;
  int32_t _fifoCapacity = 0;
  mutable VELDoubleRange _lastRangeForIndicesRangeCalculation;
  mutable VELIndexRange _lastIndicesRange;
  mutable WindowAnswer _lastWindow;
  std::string _seriesName;
  std::shared_ptr<VELDataDistributionCalculatorBase> _calculator;
  std::array<std::shared_ptr<VELPointSeries>, kPointSeriesKept> _pointSeries;
  size_t _lastPointSeries = 0;
};
