#include "velmora/data/xy_data_series.h"

#include <cstddef>
#include <utility>

namespace {

constexpr size_t yExtent[] = {1};
constexpr VELDataSeriesLayout layout = {VELDataSeriesType_Xy, 2, 1, yExtent, "X:Y:"};

}  // namespace

VELXyDataSeries::VELXyDataSeries(Columns columns) : VELDataSeries(layout, std::move(columns)) {}

VELXyDataSeries::VELXyDataSeries(VELDataType xType, VELDataType yType)
    : VELXyDataSeries(Columns{p_VEL_plain(xType), p_VEL_plain(yType)}) {}

std::shared_ptr<VELXyDataSeries> VELXyDataSeries::initFifoWithXType(VELDataType xType, VELDataType yType,
                                                                    int32_t fifoSize) {
  return p_VEL_make<VELXyDataSeries>({p_VEL_ring(xType, fifoSize), p_VEL_ring(yType, fifoSize)}, fifoSize);
}

std::shared_ptr<VELXyDataSeries> VELXyDataSeries::initWithCategoryXType(VELDataType xType,
                                                                        VELDataType yType) {
  return p_VEL_make<VELXyDataSeries>({p_VEL_category(xType), p_VEL_plain(yType)});
}

std::shared_ptr<VELXyDataSeries> VELXyDataSeries::initWithCategoryXTypeCategoryYType(VELDataType xType,
                                                                                     VELDataType yType) {
  return p_VEL_make<VELXyDataSeries>({p_VEL_category(xType), p_VEL_category(yType)});
}

std::shared_ptr<VELXyDataSeries> VELXyDataSeries::initWithXTypeCategoryYType(VELDataType xType,
                                                                             VELDataType yType) {
  return p_VEL_make<VELXyDataSeries>({p_VEL_plain(xType), p_VEL_category(yType)});
}

std::shared_ptr<VELDataSeries> VELXyDataSeries::clone() const { return p_VEL_cloneAs<VELXyDataSeries>(); }

void VELXyDataSeries::appendX(VELGenericType x, VELGenericType y) {
  const VELGenericType point[] = {x, y};
  p_VEL_appendPoint(point);
}

void VELXyDataSeries::appendRangeX(VELNumberSpan x, VELNumberSpan y) { p_VEL_appendRows({x, y}); }

void VELXyDataSeries::appendRangeX(VELGenericType x, VELGenericType y, int64_t count) {
  p_VEL_appendRows({x, y}, count);
}

void VELXyDataSeries::updateAt(int64_t index, VELGenericType xValue, VELGenericType yValue) {
  p_VEL_updatePoint(index, {xValue, yValue});
}

void VELXyDataSeries::insertAt(int64_t index, VELGenericType x, VELGenericType y) {
  p_VEL_insertPoint(index, {x, y});
}

void VELXyDataSeries::insertRangeAt(int64_t index, VELNumberSpan x, VELNumberSpan y) {
  p_VEL_insertRows(index, {x, y});
}

void VELXyDataSeries::insertRangeAt(int64_t index, VELGenericType x, VELGenericType y, int64_t count) {
  p_VEL_insertRows(index, {x, y}, count);
}

std::shared_ptr<VELPointSeries> VELXyDataSeries::toPointSeriesWithResamplingMode(
    VELResamplingMode mode, const VELIndexRange& range, int32_t viewportWidth, bool isCategoryAxis,
    const VELRange& visibleRange, VELPointResampler& resampler) {
  return p_VEL_resampled(resampler, isCategoryAxis, [&](const HeldColumns& columns, const auto& last) {
    return resampler.o_executeMode(mode, *columns[0], *columns[1], range, visibleRange, viewportWidth, last);
  });
}
