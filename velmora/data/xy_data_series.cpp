#include "velmora/data/xy_data_series.h"

#include <string>

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

bool VELXyDataSeries::p_VEL_takesX(VELGenericType x, VELGenericType y) const {
  // The usual case: what the columns store themselves.
  if (x.type == xType() && y.type == yType()) return true;
  const int64_t xCount = _xColumn->countToAppend(x);
  const int64_t yCount = _yColumn->countToAppend(y);
  if (xCount == 0 || yCount == 0) return false;
  assertEqualSize(static_cast<size_t>(xCount), static_cast<size_t>(yCount), "appendX:Y:");
  return true;
}

void VELXyDataSeries::appendX(VELGenericType x, VELGenericType y) {
  if (!p_VEL_takesX(x, y)) return;
  const int64_t previousCount = _xColumn->count();
  _xColumn->append(x);
  onAppendXColumnWithPreviousCount(previousCount);
  _yColumn->append(y);
  dataSeriesChanged();
}

void VELXyDataSeries::appendRangeX(VELGenericType x, VELGenericType y, int64_t count) {
  if (isFifo()) return;
  const auto added = [count](const VELArrayController& column, VELGenericType values) {
    return values.type == VELDataType_Array ? column.countToAppend(values)
                                            : column.countToInsert(values, count);
  };
  const int64_t xCount = added(*_xColumn, x);
  const int64_t yCount = added(*_yColumn, y);
  if (xCount == 0 || yCount == 0) return;
  assertEqualSize(static_cast<size_t>(xCount), static_cast<size_t>(yCount), "appendRangeX:Y:Count:");
  VELRawBuffer copy;
  y = _xColumn->detached(y, count, copy);
  const int64_t previousCount = _xColumn->count();
  _xColumn->appendRange(x, count);
  onAppendXColumnWithPreviousCount(previousCount);
  _yColumn->appendRange(y, count);
  dataSeriesChanged();
}

void VELXyDataSeries::updateAt(int64_t index, VELGenericType xValue, VELGenericType yValue) {
  if (index < 0 || index >= count()) return;
  if (!VELIsNumericType(xValue.type) || !VELIsNumericType(yValue.type)) return;
  _xColumn->setValue(xValue, index);
  onUpdateXColumnAtIndex(index);
  _yColumn->setValue(yValue, index);
  dataSeriesChanged();
}

void VELXyDataSeries::insertAt(int64_t index, VELGenericType x, VELGenericType y) {
  if (isFifo() || index < 0 || index > count()) return;
  // Asked for what they raise, both before either is touched; arrays are appended only.
  _xColumn->countToAppend(x);
  _yColumn->countToAppend(y);
  if (!VELIsNumericType(x.type) || !VELIsNumericType(y.type)) return;
  const int64_t previousCount = _xColumn->count();
  _xColumn->insertValue(x, index);
  onInsertXColumnWithPreviousCount(previousCount, index);
  _yColumn->insertValue(y, index);
  dataSeriesChanged();
}

void VELXyDataSeries::insertRangeAt(int64_t index, VELGenericType x, VELGenericType y, int64_t count) {
  if (isFifo() || index < 0 || index > this->count()) return;
  const int64_t xCount = _xColumn->countToInsert(x, count);
  const int64_t yCount = _yColumn->countToInsert(y, count);
  if (xCount == 0 || yCount == 0) return;
  VELRawBuffer copy;
  y = _xColumn->detached(y, count, copy);
  const int64_t previousCount = _xColumn->count();
  _xColumn->insertRange(x, index, count);
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

void VELXyDataSeries::assertEqualSize(size_t xCount, size_t yCount, const char* selector) {
  if (xCount == yCount) return;
  throw VELInvalidArgumentException(std::string("DataSeries ") + selector +
                                    " can operate only on arrays with equal size");
}
