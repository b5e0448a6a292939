#include "velmora/data/data_series.h"

#include <algorithm>
#include <utility>

#include "velmora/data/array_controller_fifo.h"
#include "velmora/data/category_array_controller.h"
#include "velmora/platform/exception.h"

VELDataSeries::VELDataSeries(const VELDataSeriesLayout& layout, Columns columns)
    : _layout(layout), _columns(std::move(columns)) {
  if (_columns.size() != layout.columnCount || layout.columnCount > kVELMostColumns)
    throw VELInternalInconsistencyException("DataSeries columns must be those of its layout");
  if (std::find(_columns.begin(), _columns.end(), nullptr) != _columns.end())
    throw VELInvalidArgumentException("DataSeries columns store types from Int16 to DateTime only");
  _isFifo = dynamic_cast<const VELArrayControllerFIFO*>(_columns[0].get()) != nullptr;
  _isCategoryX = dynamic_cast<const VELCategoryArrayController*>(_columns[0].get()) != nullptr;
  p_VEL_additionalInitialize();
}

void VELDataSeries::p_VEL_additionalInitialize() {
  _fifoCapacity = 0;
  p_VEL_forgetAnswers();
  _calculator = std::make_shared<VELUserDefinedDistributionCalculator>();
}

std::shared_ptr<VELArrayController> VELDataSeries::p_VEL_plain(VELDataType type) {
  return VELArrayController::initWithType(type);
}

std::shared_ptr<VELArrayController> VELDataSeries::p_VEL_category(VELDataType type) {
  return VELCategoryArrayController::initWithType(type);
}

std::shared_ptr<VELArrayController> VELDataSeries::p_VEL_ring(VELDataType type, int32_t capacity) {
  return VELArrayControllerFIFO::initWithType(type, capacity);
}

VELDataSeries::~VELDataSeries() = default;

int64_t VELDataSeries::p_VEL_pointCount() const {
  int64_t points = _columns[0]->count();
  for (const auto& column : _columns) points = std::min(points, column->count());
  return points;
}

void VELDataSeries::setFifoCapacity(int32_t capacity) {
  if (!_isFifo || capacity < 0 || capacity == _fifoCapacity) return;
  // All before any is taken over: there may be no room.
  Columns rings;
  for (const auto& column : _columns) rings.push_back(p_VEL_ring(column->type(), capacity));
  _columns = std::move(rings);
  _fifoCapacity = capacity;
  p_VEL_event().calculator->clear();
  _pointSeries.fill(nullptr);
  dataSeriesChanged();
}

void VELDataSeries::setDataDistributionCalculator(
    std::shared_ptr<VELDataDistributionCalculatorBase> calculator) {
  if (!calculator) return;
  _calculator = std::move(calculator);
  _isCalculatorInstalled = true;
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

std::shared_ptr<VELPointSeries> VELDataSeries::p_VEL_takeIdlePointSeries() {
  const auto isIdle = [](const auto& pointSeries) { return pointSeries.use_count() == 1; };
  const auto place = std::find_if(_pointSeries.begin(), _pointSeries.end(), isIdle);
  return place != _pointSeries.end() ? std::exchange(*place, nullptr) : nullptr;
}

void VELDataSeries::p_VEL_keepPointSeries(std::shared_ptr<VELPointSeries> pointSeries) {
  const auto empty = std::find(_pointSeries.begin(), _pointSeries.end(), nullptr);
  _lastPointSeries = empty != _pointSeries.end() ? static_cast<size_t>(empty - _pointSeries.begin())
                                                 : (_lastPointSeries + 1) % kPointSeriesKept;
  _pointSeries[_lastPointSeries] = std::move(pointSeries);
}

void VELDataSeries::p_VEL_prepareResampler(VELPointResampler& resampler, bool isCategoryAxis) const {
  resampler.setIsFifoData(_isFifo);
  resampler.setIsSortedData(isSorted());
  // Even spacing is a statement about neighbours in order: without order it says nothing.
  resampler.setIsEvenlySpacedData(isSorted() &&
                                  (isCategoryAxis || _isCategoryX || _calculator->dataIsEvenlySpaced()));
}

VELDataSeries::Columns VELDataSeries::p_VEL_clonedColumns() const {
  Columns copies;
  for (const auto& column : _columns) copies.push_back(column->clone());
  return copies;
}

void VELDataSeries::p_VEL_copySettingsFrom(const VELDataSeries& other) {
  _acceptUnsortedData = other._acceptUnsortedData;
  _seriesName = other._seriesName;
  _calculator->setDataIsSortedAscending(other._calculator->dataIsSortedAscending());
  _calculator->setDataIsEvenlySpaced(other._calculator->dataIsEvenlySpaced());
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
