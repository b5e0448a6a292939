#include "velmora/data/xy_data_series.h"

#include "velmora/platform/exception.h"

VELXyDataSeries::VELXyDataSeries(VELDataType xType, VELDataType yType) : VELDataSeries(xType, yType) {}

std::shared_ptr<VELXyDataSeries> VELXyDataSeries::initFifoWithXType(VELDataType xType, VELDataType yType,
                                                                    int32_t fifoSize) {
  if (fifoSize < 0 || !VELIsNumericType(xType) || !VELIsNumericType(yType)) return nullptr;
  auto series = std::make_shared<VELXyDataSeries>(xType, yType);
  series->p_VEL_makeFifo(fifoSize);
  return series;
}

std::shared_ptr<VELDataSeries> VELXyDataSeries::clone() const {
  auto copy = std::make_shared<VELXyDataSeries>(xType(), yType());
  copy->p_VEL_copyFrom(*this);
  return copy;
}

void VELXyDataSeries::appendX(VELGenericType x, VELGenericType y) {
  const int64_t previousCount = _xColumn->count();
  _xColumn->append(x);
  onAppendXColumnWithPreviousCount(previousCount);
  _yColumn->append(y);
  dataSeriesChanged();
}

void VELXyDataSeries::appendRangeX(VELGenericType x, VELGenericType y, int64_t count) {
  const int64_t previousCount = _xColumn->count();
  _xColumn->appendRange(x, count);
  onAppendXColumnWithPreviousCount(previousCount);
  _yColumn->appendRange(y, count);
  dataSeriesChanged();
}

void VELXyDataSeries::updateAt(int64_t index, VELGenericType xValue, VELGenericType yValue) {
  if (index < 0 || index >= count()) return;
  _xColumn->setValue(xValue, index);
  onUpdateXColumnAtIndex(index);
  _yColumn->setValue(yValue, index);
  dataSeriesChanged();
}

void VELXyDataSeries::insertAt(int64_t index, VELGenericType x, VELGenericType y) {
  const int64_t previousCount = _xColumn->count();
  _xColumn->insertValue(x, index);
  if (_xColumn->count() == previousCount) return;
  onInsertXColumnWithPreviousCount(previousCount, index);
  _yColumn->insertValue(y, index);
  dataSeriesChanged();
}

void VELXyDataSeries::insertRangeAt(int64_t index, VELGenericType x, VELGenericType y, int64_t count) {
  const int64_t previousCount = _xColumn->count();
  _xColumn->insertRange(x, index, count);
  if (_xColumn->count() == previousCount) return;
  onInsertXColumnWithPreviousCount(previousCount, index);
  _yColumn->insertRange(y, index, count);
  dataSeriesChanged();
}

std::shared_ptr<VELPointSeries> VELXyDataSeries::toPointSeriesWithResamplingMode(
    VELResamplingMode mode, const VELIndexRange& range, int32_t viewportWidth, bool isCategoryAxis,
    const VELRange& visibleRange, VELPointResampler& resampler) {
  p_VEL_prepareResampler(resampler, isCategoryAxis);
  std::shared_ptr<VELPointSeries>& place = p_VEL_nextPointSeries();
  place = resampler.o_executeMode(mode, *_xColumn, *_yColumn, range, visibleRange, viewportWidth, place);
  return place;
}

void VELXyDataSeries::assertEqualSize(size_t xCount, size_t yCount) {
  if (xCount == yCount) return;
  throw VELInvalidArgumentException("DataSeries appendRangeX:Y: can operate only on arrays with equal size");
}
