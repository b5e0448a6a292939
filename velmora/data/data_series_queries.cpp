// What a data series answers: ranges of x and y, and which points a visible range shows.
#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

#include "velmora/data/array_controller_fifo.h"
#include "velmora/data/column_view.h"
#include "velmora/data/data_series.h"
#include "velmora/data/extent.h"
#include "velmora/data/recycled.h"
#include "velmora/data/saturate.h"
#include "velmora/data/sorted_search.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// What was found in a column; the wrong way round or NaN as long as nothing was.
struct Bounds {
  double min = std::numeric_limits<double>::infinity();
  double max = -std::numeric_limits<double>::infinity();
  bool exist() const { return min <= max; }
  void include(Bounds other) {
    if (!other.exist()) return;
    min = std::min(min, other.min);
    max = std::max(max, other.max);
  }
};

/// Nothing found gives an undefined range.
VELRangePtr rangeOf(const VELArrayController& column, Bounds bounds) {
  if (!bounds.exist()) bounds = {kNaN, kNaN};
  return VELRangeFactory::getRangeOfType(column.view().type, bounds.min, bounds.max);
}

/// First and last x that are numbers, in logical order.
Bounds endsOfSorted(const VELArrayController& column, int64_t count) {
  Bounds bounds{kNaN, kNaN};
  for (int64_t i = 0; i < count && std::isnan(bounds.min); ++i)
    bounds.min = VELGenericDouble(column.valueAt(i));
  for (int64_t i = count; i > 0 && std::isnan(bounds.max); --i) {
    bounds.max = VELGenericDouble(column.valueAt(i - 1));
  }
  return bounds;
}

template <bool OnlyPositive, typename T>
Bounds extentOf(std::span<const T> values) {
  VELExtent<T> extent;
  VELFoldExtent<OnlyPositive>(values, extent);
  if (!extent.exists()) return {};
  return {static_cast<double>(extent.low), static_cast<double>(extent.high)};
}

/// Of the elements [first, last] in storage order.
Bounds extentOfPoints(const VELColumnView& column, int64_t first, int64_t last, bool positive) {
  return VELVisitElements(column, [=](const auto* values) {
    const std::span points(values + first, static_cast<size_t>(last - first + 1));
    return positive ? extentOf<true>(points) : extentOf<false>(points);
  });
}

/// Of the first @p points elements in storage order, as the column itself answers for all.
Bounds extentOfColumn(const VELArrayController& column, int64_t points) {
  if (points == 0) return {};
  if (column.count() == points) {
    Bounds bounds;
    column.getRangeMin(bounds.min, bounds.max);
    return bounds;
  }
  const VELColumnView view = column.view();
  // Like a whole one, a part of a float column ends at its first NaN.
  if (const auto* values = static_cast<const float*>(view.data); view.type == VELDataType_Float)
    points = std::find_if(values, values + points, [](float value) { return std::isnan(value); }) - values;
  return extentOfPoints(view, 0, points - 1, false);
}

int32_t asIndex(int64_t index) { return VELSaturate<int32_t>(static_cast<double>(index)); }

}  // namespace

void VELDataSeries::p_VEL_normalizeColumns() const {
  if (!_isFifo) return;
  for (const auto& column : _columns) static_cast<VELArrayControllerFIFO&>(*column).normalizeIndices();
}

VELRangePtr VELDataSeries::getXRange() const {
  if (_xRangeValid) return _xRange;
  const int64_t points = p_VEL_pointCount();
  const VELArrayController& x = *_columns[0];
  // The first points of a longer ring are the first in its buffer only when it is in order.
  if (x.count() > points) p_VEL_normalizeColumns();
  Bounds bounds = isSorted() ? endsOfSorted(x, points) : Bounds();
  // The wrong way round: a full ring takes x in any order.
  if (!bounds.exist()) bounds = extentOfColumn(x, points);
  _xRange = rangeOf(x, bounds);
  _xRangeValid = true;
  return _xRange;
}

VELRangePtr VELDataSeries::getYRange() const {
  if (_yRangeValid) return _yRange;
  const int64_t points = p_VEL_pointCount();
  Bounds all;
  for (const size_t column : _layout.yExtent) {
    const VELArrayController& y = *_columns[column];
    if (y.count() > points) p_VEL_normalizeColumns();
    all.include(extentOfColumn(y, points));
  }
  _yRange = rangeOf(*yValues(), all);
  _yRangeValid = true;
  return _yRange;
}

std::shared_ptr<VELIndexRange> VELDataSeries::getIndicesRangeWithVisibleRange(
    const VELRange& visibleRange) const {
  auto answer = VELMakeRecycled<VELIndexRange>();
  getIndicesRangeWithVisibleRange(visibleRange, *answer);
  return answer;
}

void VELDataSeries::getIndicesRangeWithVisibleRange(const VELRange& visibleRange, VELIndexRange& out) const {
  const double visibleMin = visibleRange.minAsDouble();
  const double visibleMax = visibleRange.maxAsDouble();
  const VELDoubleRange& last = _lastRangeForIndicesRangeCalculation;
  // Compared by value: a visible range is changed in place, its identity says nothing.
  if (!_lastIndicesRangeValid || last.minAsDouble() != visibleMin || last.maxAsDouble() != visibleMax) {
    p_VEL_searchDataIndexesOn(visibleMin, visibleMax, _lastIndicesRange);
    p_VEL_toIndicesRange(_lastIndicesRange);
    _lastRangeForIndicesRangeCalculation.setMin(visibleMin);
    _lastRangeForIndicesRangeCalculation.setMax(visibleMax);
    _lastIndicesRangeValid = true;
  }
  out.setMin(_lastIndicesRange.min());
  out.setMax(_lastIndicesRange.max());
}

void VELDataSeries::p_VEL_searchDataIndexesOn(double visibleMin, double visibleMax,
                                              VELIndexRange& out) const {
  const int64_t points = p_VEL_pointCount();
  const VELIndexRange none;
  out.setMin(none.min());
  out.setMax(none.max());
  if (points == 0 || !(visibleMin <= visibleMax)) return;
  if (!isSorted()) {
    out.setMin(0);
    out.setMax(asIndex(points - 1));
    return;
  }
  p_VEL_normalizeColumns();
  const VELColumnView x = _columns[0]->view();
  const int64_t inside = VELFirstNotBelowSearch(x.type)(x.data, 0, points, visibleMin);
  const int64_t beyond = VELFirstAboveSearch(x.type)(x.data, inside, points, visibleMax);
  // Everything lies on one side: nothing of it, and no line between two of its points, can be seen.
  if (inside == beyond && (inside == 0 || inside == points)) return;
  const auto isAt = [this](int64_t index, double value) {
    return VELGenericDouble(_columns[0]->valueAt(index)) == value;
  };
  // A point right on an end of the visible range needs no neighbour outside.
  const bool startsAtPoint = inside < beyond && isAt(inside, visibleMin);
  const bool endsAtPoint = inside < beyond && isAt(beyond - 1, visibleMax);
  out.setMin(asIndex(std::max<int64_t>(startsAtPoint ? inside : inside - 1, 0)));
  out.setMax(asIndex(std::min(endsAtPoint ? beyond - 1 : beyond, points - 1)));
}

void VELDataSeries::p_VEL_toIndicesRange(VELIndexRange& range) const {
  if (!range.isDefined()) return;
  range.setMin(std::max(VELGenericInt(range.min()), 0));
  range.setMax(std::min(VELGenericInt(range.max()), asIndex(p_VEL_pointCount() - 1)));
  if (VELGenericInt(range.min()) > VELGenericInt(range.max())) range.setMin(0);
}

VELRangePtr VELDataSeries::getWindowYRangeWithXRange(const VELRange& xRange, bool getPositiveRange) const {
  const double xMin = xRange.minAsDouble();
  const double xMax = xRange.maxAsDouble();
  WindowAnswer& last = _lastWindow;
  if (!last.valid || last.xMin != xMin || last.xMax != xMax || last.positive != getPositiveRange) {
    last.range = p_VEL_windowYRange(xMin, xMax, getPositiveRange);
    last = {xMin, xMax, getPositiveRange, true, last.range, last.range->min(), last.range->max()};
    return last.range;
  }
  if (last.range.use_count() > 1) last.range = last.range->clone();
  last.range->setMin(last.min);
  last.range->setMax(last.max);
  return last.range;
}

VELRangePtr VELDataSeries::p_VEL_windowYRange(double xMin, double xMax, bool positive) const {
  const int64_t points = p_VEL_pointCount();
  if (!isSorted()) return p_VEL_yRangeOfPoints(0, points - 1, positive);
  if (!(xMin <= xMax)) return rangeOf(*yValues(), {});
  p_VEL_normalizeColumns();
  const VELColumnView x = _columns[0]->view();
  const int64_t inside = VELFirstNotBelowSearch(x.type)(x.data, 0, points, xMin);
  const int64_t beyond = VELFirstAboveSearch(x.type)(x.data, inside, points, xMax);
  if (inside < beyond) return p_VEL_yRangeOfPoints(inside, beyond - 1, positive);
  if (inside == 0 || inside == points) return rangeOf(*yValues(), {});
  return p_VEL_yRangeOfPoints(inside - 1, inside, positive);
}

VELRangePtr VELDataSeries::getWindowYRangeWithIndexRange(const VELIndexRange& indexRange,
                                                         bool getPositiveRange) const {
  return p_VEL_yRangeOfPoints(VELGenericInt(indexRange.min()), VELGenericInt(indexRange.max()),
                              getPositiveRange);
}

VELRangePtr VELDataSeries::p_VEL_yRangeOfPoints(int64_t first, int64_t last, bool positive) const {
  first = std::max<int64_t>(first, 0);
  last = std::min(last, p_VEL_pointCount() - 1);
  if (first > last) return rangeOf(*yValues(), {});
  p_VEL_normalizeColumns();
  Bounds all;
  for (const size_t column : _layout.yExtent)
    all.include(extentOfPoints(_columns[column]->view(), first, last, positive));
  return rangeOf(*yValues(), all);
}

double VELDataSeries::getYMinAt(int64_t index, double existingYMin) const {
  if (index < 0 || index >= p_VEL_pointCount()) return existingYMin;
  for (const size_t column : _layout.yExtent)
    existingYMin = std::fmin(existingYMin, VELGenericDouble(_columns[column]->valueAt(index)));
  return existingYMin;
}

double VELDataSeries::getYMaxAt(int64_t index, double existingYMax) const {
  if (index < 0 || index >= p_VEL_pointCount()) return existingYMax;
  for (const size_t column : _layout.yExtent)
    existingYMax = std::fmax(existingYMax, VELGenericDouble(_columns[column]->valueAt(index)));
  return existingYMax;
}

int64_t VELDataSeries::findIndexForValue(VELGenericType value, VELArraySearchMode mode) const {
  return _columns[0]->indexOf(value, isSorted(), mode);
}
