#include "velmora/data/point_series.h"

#include <algorithm>
#include <utility>

#include "velmora/data/array_controller_fifo.h"
#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"
#include "velmora/platform/exception.h"

VELPointSeries::VELPointSeries() : VELPointSeries(0) {}

VELPointSeries::VELPointSeries(int64_t capacity)
    : _xValues(VELArrayController::initWithType(VELDataType_Double, capacity)),
      _yValues(VELArrayController::initWithType(VELDataType_Double, capacity)),
      _indices(VELArrayController::initWithType(VELDataType_Int32, capacity)) {}

VELPointSeries::VELPointSeries(std::shared_ptr<VELArrayController> xData,
                               std::shared_ptr<VELArrayController> yData,
                               std::shared_ptr<VELArrayController> indices)
    : _xValues(std::move(xData)), _yValues(std::move(yData)), _indices(std::move(indices)) {
  // A ring never grows and may hold its elements out of order.
  const auto stores = [](const auto& column, VELDataType type) {
    return column && column->type() == type && dynamic_cast<VELArrayControllerFIFO*>(column.get()) == nullptr;
  };
  if (stores(_xValues, VELDataType_Double) && stores(_yValues, VELDataType_Double) &&
      stores(_indices, VELDataType_Int32)) {
    return;
  }
  throw VELInvalidArgumentException(
      "PointSeries needs Double columns for x and y and an Int32 column of indices, none of them a ring");
}

int64_t VELPointSeries::count() const {
  return std::min({_xValues->count(), _yValues->count(), _indices->count()});
}

std::span<const double> VELPointSeries::xSpan() const {
  return xValues()->doubles().first(static_cast<size_t>(count()));
}

std::span<const double> VELPointSeries::ySpan() const {
  return yValues()->doubles().first(static_cast<size_t>(count()));
}

std::span<const int32_t> VELPointSeries::indexSpan() const {
  return indices()->int32s().first(static_cast<size_t>(count()));
}

void VELPointSeries::clear() {
  _xValues->clear();
  _yValues->clear();
  _indices->clear();
}

void VELPointSeries::addX(double x, double y, int32_t index) {
  _xValues->append(x);
  _yValues->append(y);
  _indices->append(index);
}

VELRangePtr VELPointSeries::getYRange() const {
  double min = 0.0;
  double max = 0.0;
  yValues()->getRangeMin(min, max);
  if (!(min <= max)) return VELMakeRecycled<VELDoubleRange>();
  return VELMakeRecycled<VELDoubleRange>(min, max);
}

void VELPointSeries::setCount(int64_t count) {
  for (const auto* column : {&_xValues, &_yValues, &_indices}) {
    // What is about to be overwritten need not be carried into a larger buffer.
    if (count > (*column)->currentMaxSize()) (*column)->purge();
    (*column)->setCount(count);
  }
}
