#include "velmora/data/data_series.h"

#include <algorithm>
#include <utility>

#include "velmora/data/array_controller_fifo.h"
#include "velmora/platform/exception.h"

VELDataSeries::VELDataSeries(VELDataType xType, VELDataType yType)
    : _xColumn(VELArrayController::initWithType(xType)),
      _yColumn(VELArrayController::initWithType(yType)),
      _calculator(std::make_shared<VELUserDefinedDistributionCalculator>()) {
  if (_xColumn && _yColumn) return;
  throw VELInvalidArgumentException("DataSeries columns store types from Int16 to DateTime only");
}

VELDataSeries::~VELDataSeries() = default;

int64_t VELDataSeries::count() const { return std::min(_xColumn->count(), _yColumn->count()); }

void VELDataSeries::p_VEL_makeFifo(int32_t capacity) {
  // Both before either is taken over: there may be no room.
  std::shared_ptr<VELArrayController> x = VELArrayControllerFIFO::initWithType(_xColumn->type(), capacity);
  std::shared_ptr<VELArrayController> y = VELArrayControllerFIFO::initWithType(_yColumn->type(), capacity);
  _xColumn = std::move(x);
  _yColumn = std::move(y);
  _isFifo = true;
  _fifoCapacity = capacity;
}

void VELDataSeries::setFifoCapacity(int32_t capacity) {
  if (!_isFifo || capacity < 0 || capacity == _fifoCapacity) return;
  p_VEL_makeFifo(capacity);
  dataSeriesChanged();
}

void VELDataSeries::setDataDistributionCalculator(
    std::shared_ptr<VELDataDistributionCalculatorBase> calculator) {
  if (!calculator) return;
  _calculator = std::move(calculator);
  p_VEL_forgetAnswers();
}

std::function<void()> VELDataSeries::onDataSeriesChanged() const {
  return _onDataSeriesChanged ? *_onDataSeriesChanged : std::function<void()>();
}

void VELDataSeries::setOnDataSeriesChanged(std::function<void()> block) {
  _onDataSeriesChanged = block ? std::make_shared<std::function<void()>>(std::move(block)) : nullptr;
}

void VELDataSeries::setLastPointSeries(std::shared_ptr<VELPointSeries> pointSeries) {
  _pointSeries[_lastPointSeries] = std::move(pointSeries);
}

std::shared_ptr<VELPointSeries>& VELDataSeries::p_VEL_nextPointSeries() {
  const auto isIdle = [](const auto& pointSeries) { return pointSeries && pointSeries.use_count() == 1; };
  const auto isEmpty = [](const auto& pointSeries) { return !pointSeries; };
  auto place = std::find_if(_pointSeries.begin(), _pointSeries.end(), isIdle);
  if (place == _pointSeries.end()) place = std::find_if(_pointSeries.begin(), _pointSeries.end(), isEmpty);
  _lastPointSeries = place != _pointSeries.end() ? static_cast<size_t>(place - _pointSeries.begin())
                                                 : (_lastPointSeries + 1) % kPointSeriesKept;
  return _pointSeries[_lastPointSeries];
}

void VELDataSeries::p_VEL_prepareResampler(VELPointResampler& resampler, bool isCategoryAxis) const {
  resampler.setIsFifoData(_isFifo);
  resampler.setIsSortedData(isSorted());
  // Even spacing is a statement about neighbours in order: without order it says nothing.
  resampler.setIsEvenlySpacedData(isSorted() && (isCategoryAxis || _calculator->dataIsEvenlySpaced()));
}

void VELDataSeries::p_VEL_copyFrom(const VELDataSeries& other) {
  _xColumn = other._xColumn->clone();
  _yColumn = other._yColumn->clone();
  _isFifo = other._isFifo;
  _fifoCapacity = other._fifoCapacity;
  _acceptUnsortedData = other._acceptUnsortedData;
  _seriesName = other._seriesName;
  _calculator->setDataIsSortedAscending(other._calculator->dataIsSortedAscending());
  _calculator->setDataIsEvenlySpaced(other._calculator->dataIsEvenlySpaced());
}

void VELDataSeries::removeRangeFrom(int64_t start, int64_t count) {
  // Measured by x: an x that an unsorted append left over can be taken away, too.
  if (start < 0 || count < 1 || count > _xColumn->count() - start) return;
  _xColumn->removeRangeFrom(start, count);
  _yColumn->removeRangeFrom(start, count);
  _calculator->updateDataDistributionFlagsWhenRemovedXValues();
  dataSeriesChanged();
}

void VELDataSeries::removeValue(VELGenericType value) {
  const int64_t index = findIndexForValue(value, VELArraySearchMode_Exact);
  if (index >= 0) removeAt(index);
}

void VELDataSeries::clear() {
  const auto self = weak_from_this().lock();
  clearColumns();
  dataSeriesChanged();
  _calculator->clear();
}

void VELDataSeries::clearColumns() {
  _xColumn->clear();
  _yColumn->clear();
}

void VELDataSeries::dataSeriesChanged() {
  p_VEL_forgetAnswers();
  if (!_onDataSeriesChanged && _displays.isEmpty()) return;
  // Whoever is told may let go of the last owner.
  const auto self = weak_from_this().lock();
  if (_onDataSeriesChanged) {
    // Kept for the call: the block may replace itself.
    const std::shared_ptr<std::function<void()>> block = _onDataSeriesChanged;
    (*block)();
  }
  _displays.invalidateAll();
}

void VELDataSeries::p_VEL_forgetAnswers() {
  _xRangeValid = false;
  _yRangeValid = false;
  _lastIndicesRangeValid = false;
  _lastWindow.valid = false;
}

// The calculator may raise, and then no notice of change follows: answers are forgotten before.

void VELDataSeries::onAppendXColumnWithPreviousCount(int64_t previousCount) {
  p_VEL_forgetAnswers();
  _calculator->onAppendValueInArrayController(*_xColumn, _xColumn->count() - previousCount,
                                              _acceptUnsortedData);
}

void VELDataSeries::onUpdateXColumnAtIndex(int64_t index) {
  p_VEL_forgetAnswers();
  _calculator->onUpdateValueInArrayController(*_xColumn, index, _acceptUnsortedData);
}

void VELDataSeries::onInsertXColumnWithPreviousCount(int64_t previousCount, int64_t index) {
  p_VEL_forgetAnswers();
  _calculator->onInsertValueInArrayController(*_xColumn, index, _xColumn->count() - previousCount,
                                              _acceptUnsortedData);
}
