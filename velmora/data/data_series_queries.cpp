// What a data series answers: ranges of x and y, and which points a visible range shows.
#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include "velmora/data/array_controller_fifo.h"
#include "velmora/data/data_series.h"
#include "velmora/data/element_type.h"
#include "velmora/data/extremes.h"
#include "velmora/data/saturate.h"
#include "velmora/data/sorted_search.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Bounds {
  double min = kNaN;
  double max = kNaN;
};

/// A pair without a number, or the wrong way round as an empty column reports it, gives an undefined range.
VELRangePtr rangeOfColumn(const VELArrayController& column, Bounds bounds) {
  if (!(bounds.min <= bounds.max)) bounds = Bounds();
  return VELRangeFactory::getRangeOfType(column.type(), bounds.min, bounds.max);
}

/// First and last x that are numbers, in logical order.
Bounds endsOfSorted(const VELArrayController& column, int64_t count) {
  Bounds bounds;
  for (int64_t i = 0; i < count && std::isnan(bounds.min); ++i)
    bounds.min = VELGenericDouble(column.valueAt(i));
  for (int64_t i = count; i > 0 && std::isnan(bounds.max); --i) {
    bounds.max = VELGenericDouble(column.valueAt(i - 1));
  }
  return bounds;
}

template <typename T>
Bounds positiveExtent(const T* values, int64_t count) {
  Bounds bounds{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
  for (int64_t i = 0; i < count; ++i) {
    const double value = static_cast<double>(values[i]);
    if (!(value > 0.0)) continue;
    bounds.min = value < bounds.min ? value : bounds.min;
    bounds.max = value > bounds.max ? value : bounds.max;
  }
  return bounds;
}

template <typename T>
Bounds fullExtent(const T* values, int64_t count) {
  const VELExtremes extremes = VELFindExtremes(values, count);
  if (!extremes.exist()) return {};
  return {static_cast<double>(values[extremes.minAt]), static_cast<double>(values[extremes.maxAt])};
}

/// Of the first @p points elements in storage order, as the column itself answers for all.
Bounds extentOf(const VELArrayController& column, int64_t points) {
  if (points == 0) return {};
  if (column.count() == points) {
    Bounds bounds;
    column.getRangeMin(bounds.min, bounds.max);
    return bounds;
  }
  return VELVisitElementType(column.type(), [&](auto element) {
    using T = typename decltype(element)::type;
    const T* values = static_cast<const T*>(column.data());
    // Like a whole one, a part of a float column ends at its first NaN.
    if constexpr (std::is_same_v<T, float>) {
      points = std::find_if(values, values + points, [](float value) { return std::isnan(value); }) - values;
    }
    return fullExtent(values, points);
  });
}

int32_t asIndex(int64_t index) { return VELSaturate<int32_t>(static_cast<double>(index)); }

}  // namespace

void VELDataSeries::p_VEL_normalizeColumns() const {
  if (!_isFifo) return;
  static_cast<VELArrayControllerFIFO&>(*_xColumn).normalizeIndices();
  static_cast<VELArrayControllerFIFO&>(*_yColumn).normalizeIndices();
}

VELRangePtr VELDataSeries::getXRange() const {
  if (_xRangeValid) return _xRange;
  const int64_t points = count();
  // The first points of a longer ring are the first in its buffer only when it is in order.
  if (_xColumn->count() > points) p_VEL_normalizeColumns();
  _xRange =
      rangeOfColumn(*_xColumn, isSorted() ? endsOfSorted(*_xColumn, points) : extentOf(*_xColumn, points));
  _xRangeValid = true;
  return _xRange;
}

VELRangePtr VELDataSeries::getYRange() const {
  if (_yRangeValid) return _yRange;
  const int64_t points = count();
  if (_yColumn->count() > points) p_VEL_normalizeColumns();
  _yRange = rangeOfColumn(*_yColumn, extentOf(*_yColumn, points));
  _yRangeValid = true;
  return _yRange;
}

std::shared_ptr<VELIndexRange> VELDataSeries::getIndicesRangeWithVisibleRange(
    const VELRange& visibleRange) const {
  auto answer = std::make_shared<VELIndexRange>();
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
  const int64_t points = count();
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
  const void* x = _xColumn->data();
  const int64_t inside = VELFirstNotBelowSearch(xType())(x, 0, points, visibleMin);
  const int64_t beyond = VELFirstAboveSearch(xType())(x, inside, points, visibleMax);
  // Everything lies on one side: nothing of it, and no line between two of its points, can be seen.
  if (inside == beyond && (inside == 0 || inside == points)) return;
  const auto isAt = [this](int64_t index, double value) {
    return VELGenericDouble(_xColumn->valueAt(index)) == value;
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
  range.setMax(std::min(VELGenericInt(range.max()), asIndex(count() - 1)));
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
  const int64_t points = count();
  if (!isSorted()) return p_VEL_yRangeOfPoints(0, points - 1, positive);
  if (!(xMin <= xMax)) return rangeOfColumn(*_yColumn, {});
  p_VEL_normalizeColumns();
  const int64_t inside = VELFirstNotBelowSearch(xType())(_xColumn->data(), 0, points, xMin);
  const int64_t beyond = VELFirstAboveSearch(xType())(_xColumn->data(), inside, points, xMax);
  if (inside < beyond) return p_VEL_yRangeOfPoints(inside, beyond - 1, positive);
  if (inside == 0 || inside == points) return rangeOfColumn(*_yColumn, {});
  return p_VEL_yRangeOfPoints(inside - 1, inside, positive);
}

VELRangePtr VELDataSeries::getWindowYRangeWithIndexRange(const VELIndexRange& indexRange,
                                                         bool getPositiveRange) const {
  return p_VEL_yRangeOfPoints(VELGenericInt(indexRange.min()), VELGenericInt(indexRange.max()),
                              getPositiveRange);
}

VELRangePtr VELDataSeries::p_VEL_yRangeOfPoints(int64_t first, int64_t last, bool positive) const {
  first = std::max<int64_t>(first, 0);
  last = std::min(last, count() - 1);
  if (first > last) return rangeOfColumn(*_yColumn, {});
  p_VEL_normalizeColumns();
  const Bounds bounds = VELVisitElementType(yType(), [&](auto element) {
    using T = typename decltype(element)::type;
    const T* y = static_cast<const T*>(_yColumn->data()) + first;
    return positive ? positiveExtent(y, last - first + 1) : fullExtent(y, last - first + 1);
  });
  return rangeOfColumn(*_yColumn, bounds);
}

double VELDataSeries::getYMinAt(int64_t index, double existingYMin) const {
  if (index < 0 || index >= count()) return existingYMin;
  return std::fmin(existingYMin, VELGenericDouble(_yColumn->valueAt(index)));
}

double VELDataSeries::getYMaxAt(int64_t index, double existingYMax) const {
  if (index < 0 || index >= count()) return existingYMax;
  return std::fmax(existingYMax, VELGenericDouble(_yColumn->valueAt(index)));
}

int64_t VELDataSeries::findIndexForValue(VELGenericType value, VELArraySearchMode mode) const {
  return _xColumn->indexOf(value, isSorted(), mode);
}
