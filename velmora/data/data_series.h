// data/data_series.h: the application's data, and what the chart asks of it.
//
// The columns are data/array_controller.h, their reduction for drawing is data/resampler.h. Units: data units
// for x and y; seconds since 1970 in a DateTime column; indices count points from the oldest.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "velmora/data/array_controller.h"
#include "velmora/data/data_series_layout.h"
#include "velmora/data/display_list.h"
#include "velmora/data/distribution_calculator.h"
#include "velmora/data/generic_type.h"
#include "velmora/data/number_span.h"
#include "velmora/data/point_series.h"
#include "velmora/data/range.h"
#include "velmora/data/ranges.h"
#include "velmora/data/resampler.h"
#include "velmora/platform/export.h"
#include "velmora/platform/invalidatable_element.h"

/// Columns of one length, x and at least one y; each change is told once to whoever displays the series.
///
/// Always true: readers go as far as the shortest column; an empty series answers undefined ranges; indices
/// outside the data are ignored by every change. A category column is read as its indices throughout. A
/// series belongs to one thread.
class VELMORA_API VELDataSeries : public std::enable_shared_from_this<VELDataSeries> {
 public:
  virtual ~VELDataSeries();
  VELDataSeries(const VELDataSeries&) = delete;
  VELDataSeries& operator=(const VELDataSeries&) = delete;

  VELDataSeriesType dataSeriesType() const { return _layout.type; }
  /// The same points and settings in columns of their own. Blocks, displays and an own calculator stay
  /// behind; what the calculator knows comes along.
  virtual std::shared_ptr<VELDataSeries> clone() const = 0;

  /// Points, counted in x. After an unsorted append that raised, the other columns are one shorter.
  int64_t count() const { return _columns[0]->count(); }
  bool hasValues() const { return count() > 0; }
  /// Storage types, of category columns too.
  VELDataType xType() const { return _columns[0]->type(); }
  VELDataType yType() const { return _columns[_layout.yColumn]->type(); }
  /// The columns, never null; y is the one that the class names. Who changes a column here calls
  /// `dataSeriesChanged` after it, and before that the event of the calculator when it is x.
  const std::shared_ptr<VELArrayController>& xValues() const { return _columns[0]; }
  const std::shared_ptr<VELArrayController>& yValues() const { return _columns[_layout.yColumn]; }

  /// The series is a ring: it keeps the newest `fifoCapacity()` points.
  bool isFifo() const { return _isFifo; }
  /// 0 for a series that is no ring.
  int32_t fifoCapacity() const { return _fifoCapacity; }
  /// A ring of another size, empty and sorted again. Nothing happens for the present size, a negative one, or
  /// to a series that is no ring.
  void setFifoCapacity(int32_t capacity);

  /// x never descends; categories never do. On purpose a full ring is not checked: new values are those by
  /// which the column grew, and it grows no more.
  bool isSorted() const { return _isCategoryX || _calculator->dataIsSortedAscending(); }
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
  void removeRangeFrom(int64_t start, int64_t count);
  /// Removes the first found point whose x equals the value.
  void removeValue(VELGenericType value);
  /// No points, sorted again; the memory is kept. The calculator is cleared after the notice of change, and
  /// then told of all points that whoever heard of it put in, in any order.
  void clear();
  /// Empties the columns and tells nobody.
  void clearColumns();

  /// First to last x of sorted data, else (also where a full ring took x in another order and these are the
  /// wrong way round) smallest to largest, in the range class of the x column (of Int32 for categories). It
  /// is the series' own cache until the next change: clone it before changing it.
  VELRangePtr getXRange() const;
  /// Smallest to largest value of the columns between which the points lie, NaN left out, as above.
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
  /// Index of a value in the x column, or -1. The whole column is searched: the answer may be an x without y
  /// that an unsorted append left over.
  /// @throws VELInvalidArgumentException for any mode but exact on unsorted data
  int64_t findIndexForValue(VELGenericType value, VELArraySearchMode mode) const;

  /// The points to draw for an index range. Reuses a point series that it handed out before and that nobody
  /// holds any more, so that a steady frame allocates nothing.
  /// @param viewportWidth in points of the screen
  /// @param isCategoryAxis x counts categories, which are evenly spaced whatever their values
  virtual std::shared_ptr<VELPointSeries> toPointSeriesWithResamplingMode(
      VELResamplingMode mode, const VELIndexRange& range, int32_t viewportWidth, bool isCategoryAxis,
      const VELRange& visibleRange, VELPointResampler& resampler) = 0;
  /// The point series that was handed out last; null before, and when it went into an attempt that raised.
  const std::shared_ptr<VELPointSeries>& lastPointSeries() const { return _pointSeries[_lastPointSeries]; }
  void setLastPointSeries(std::shared_ptr<VELPointSeries> pointSeries);

  /// The one notice of change: forgets what was cached, runs the block, then invalidates the displays.
  void dataSeriesChanged();

 protected:
  using Columns = std::vector<std::shared_ptr<VELArrayController>>;

  /// @param layout kept, not copied
  /// @param columns as many as the layout says, all rings of one capacity or none
  /// @throws VELInvalidArgumentException when one is null, for a type that no column stores
  VELDataSeries(const VELDataSeriesLayout& layout, Columns columns);
  /// What every way of making a series ends in: no ring, no answers, a calculator of its own.
  void p_VEL_additionalInitialize();

  // Columns; null for a type that no column stores and for a negative capacity.
  static std::shared_ptr<VELArrayController> p_VEL_plain(VELDataType type);
  static std::shared_ptr<VELArrayController> p_VEL_category(VELDataType type);
  static std::shared_ptr<VELArrayController> p_VEL_ring(VELDataType type, int32_t capacity);
  /// A series of a class whose protected constructor takes columns; null when one is null.
  template <class Series>
  static std::shared_ptr<Series> p_VEL_make(Columns columns, int32_t fifoCapacity = 0) {
    struct Made : Series {
      explicit Made(Columns made) : Series(std::move(made)) {}
    };
    for (const auto& column : columns) {
      if (!column) return nullptr;
    }
    auto series = std::make_shared<Made>(std::move(columns));
    series->_fifoCapacity = fifoCapacity;
    return series;
  }
  /// The body of `clone`.
  template <class Series>
  std::shared_ptr<VELDataSeries> p_VEL_cloneAs() const {
    auto copy = p_VEL_make<Series>(p_VEL_clonedColumns(), _fifoCapacity);
    copy->p_VEL_copySettingsFrom(*this);
    return copy;
  }

  const std::shared_ptr<VELArrayController>& p_VEL_column(size_t column) const { return _columns[column]; }
  /// Points that every column has a value of.
  int64_t p_VEL_pointCount() const;

  // All changes of points, once for all classes: values and rows stand in the order of the columns. Whatever
  // one column would refuse is asked for before any is touched; then x comes first, as `appendX` says.
  void p_VEL_appendPoint(std::span<const VELGenericType> values);
  void p_VEL_appendRows(std::initializer_list<VELNumberSpan> rows);
  void p_VEL_appendRows(std::initializer_list<VELGenericType> rows, int64_t count);
  void p_VEL_insertPoint(int64_t index, std::initializer_list<VELGenericType> values);
  void p_VEL_insertRows(int64_t index, std::initializer_list<VELNumberSpan> rows);
  void p_VEL_insertRows(int64_t index, std::initializer_list<VELGenericType> rows, int64_t count);
  /// @param values of all columns, or of all but x
  void p_VEL_updatePoint(int64_t index, std::initializer_list<VELGenericType> values);

  /// x has grown at its end since it held @p previousCount values.
  void onAppendXColumnWithPreviousCount(int64_t previousCount);
  void onUpdateXColumnAtIndex(int64_t index);
  /// x has grown at @p index since it held @p previousCount values.
  void onInsertXColumnWithPreviousCount(int64_t previousCount, int64_t index);
  /// Cuts a defined index range to the data, in place.
  void p_VEL_toIndicesRange(VELIndexRange& range) const;
  /// The columns of a series, alive as long as they are read.
  using HeldColumns = std::array<VELArrayControllerPtr, kVELMostColumns>;
  /// The body of `toPointSeriesWithResamplingMode`.
  /// @param resample gives the points of the held columns, from a point series of which it is the only holder
  template <class Resample>
  std::shared_ptr<VELPointSeries> p_VEL_resampled(VELPointResampler& resampler, bool isCategoryAxis,
                                                  Resample resample) {
    // A resampler of the application's may change the series or let go of it.
    const auto self = weak_from_this().lock();
    HeldColumns columns;
    std::copy(_columns.begin(), _columns.end(), columns.begin());
    p_VEL_prepareResampler(resampler, isCategoryAxis);
    std::shared_ptr<VELPointSeries> points = p_VEL_takeIdlePointSeries();
    points = resample(columns, points);
    p_VEL_keepPointSeries(points);
    return points;
  }

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

  /// Whom an event of x is told and what it is about, alive as long as it lasts: a calculator may install
  /// another or give a ring another size.
  struct Event {
    std::shared_ptr<VELDataDistributionCalculatorBase> calculator;
    VELArrayControllerPtr x;
  };
  Event p_VEL_event() const;
  /// The last @p added values of x are new.
  void p_VEL_tellOfGrowth(int64_t added, bool acceptsUnsortedData);
  /// Tells the resampler what is known of this data.
  void p_VEL_prepareResampler(VELPointResampler& resampler, bool isCategoryAxis) const;
  /// Takes out one that was handed out before and that nobody holds any more; null where there is none.
  std::shared_ptr<VELPointSeries> p_VEL_takeIdlePointSeries();
  /// Keeps what is handed out: it is `lastPointSeries` from now on.
  void p_VEL_keepPointSeries(std::shared_ptr<VELPointSeries> pointSeries);
  Columns p_VEL_clonedColumns() const;
  /// Settings and what is known of the data.
  void p_VEL_copySettingsFrom(const VELDataSeries& other);
  bool p_VEL_takes(std::span<const VELGenericType> values) const;
  /// @throws VELInvalidArgumentException with the selector, made of the keywords and what stands around them,
  ///         when the counts differ
  void p_VEL_assertEqual(std::span<const int64_t> counts, const char* before, const char* after) const;
  bool p_VEL_takesRows(std::span<const VELNumberSpan> rows, const char* before, const char* after) const;
  template <class Change>
  void p_VEL_append(Change change);
  template <class Change>
  void p_VEL_insert(int64_t index, Change change);
  void p_VEL_forgetAnswers();
  /// Rings in logical order, so that raw columns can be searched.
  void p_VEL_normalizeColumns() const;
  void p_VEL_searchDataIndexesOn(double visibleMin, double visibleMax, VELIndexRange& out) const;
  VELRangePtr p_VEL_yRangeOfPoints(int64_t first, int64_t last, bool positive) const;
  VELRangePtr p_VEL_windowYRange(double xMin, double xMax, bool positive) const;

  const VELDataSeriesLayout& _layout;
  Columns _columns;  // x first
  std::shared_ptr<std::function<void()>> _onDataSeriesChanged;
  VELDisplayList _displays;
  mutable VELRangePtr _yRange;
  mutable VELRangePtr _xRange;
  mutable bool _yRangeValid = false;
  mutable bool _xRangeValid = false;
  mutable bool _lastIndicesRangeValid = false;
  bool _acceptUnsortedData = false;
  bool _isFifo = false;
  bool _isCategoryX = false;
  int32_t _fifoCapacity = 0;
  mutable VELDoubleRange _lastRangeForIndicesRangeCalculation;
  mutable VELIndexRange _lastIndicesRange;
  mutable WindowAnswer _lastWindow;
  std::string _seriesName;
  std::shared_ptr<VELDataDistributionCalculatorBase> _calculator;
  bool _isCalculatorInstalled = false;
  std::array<std::shared_ptr<VELPointSeries>, kPointSeriesKept> _pointSeries;
  size_t _lastPointSeries = 0;
};
