#include "velmora/data/xyy_data_series.h"

#include <cstddef>
#include <utility>

namespace {

constexpr size_t yExtent[] = {1, 2};
constexpr VELDataSeriesLayout layout = {VELDataSeriesType_Xyy, 3, 1, yExtent, "X:Y1:Y2:"};

}  // namespace

VELXyyDataSeries::VELXyyDataSeries(Columns columns) : VELDataSeries(layout, std::move(columns)) {}

VELXyyDataSeries::VELXyyDataSeries(VELDataType xType, VELDataType yType)
    : VELXyyDataSeries(Columns{p_VEL_plain(xType), p_VEL_plain(yType), p_VEL_plain(yType)}) {}

std::shared_ptr<VELXyyDataSeries> VELXyyDataSeries::initFifoWithXType(VELDataType xType, VELDataType yType,
                                                                      int32_t fifoSize) {
  return p_VEL_make<VELXyyDataSeries>(
      {p_VEL_ring(xType, fifoSize), p_VEL_ring(yType, fifoSize), p_VEL_ring(yType, fifoSize)}, fifoSize);
}

std::shared_ptr<VELXyyDataSeries> VELXyyDataSeries::initWithCategoryXType(VELDataType xType,
                                                                          VELDataType yType) {
  return p_VEL_make<VELXyyDataSeries>({p_VEL_category(xType), p_VEL_plain(yType), p_VEL_plain(yType)});
}

std::shared_ptr<VELXyyDataSeries> VELXyyDataSeries::initWithCategoryXTypeCategoryYType(VELDataType xType,
                                                                                       VELDataType yType) {
  return p_VEL_make<VELXyyDataSeries>({p_VEL_category(xType), p_VEL_category(yType), p_VEL_category(yType)});
}

std::shared_ptr<VELXyyDataSeries> VELXyyDataSeries::initWithXTypeCategoryYType(VELDataType xType,
                                                                               VELDataType yType) {
  return p_VEL_make<VELXyyDataSeries>({p_VEL_plain(xType), p_VEL_category(yType), p_VEL_category(yType)});
}

std::shared_ptr<VELDataSeries> VELXyyDataSeries::clone() const { return p_VEL_cloneAs<VELXyyDataSeries>(); }

void VELXyyDataSeries::appendX(VELGenericType x, VELGenericType y1, VELGenericType y2) {
  const VELGenericType point[] = {x, y1, y2};
  p_VEL_appendPoint(point);
}

void VELXyyDataSeries::appendRangeX(VELNumberSpan x, VELNumberSpan y1, VELNumberSpan y2) {
  p_VEL_appendRows({x, y1, y2});
}

void VELXyyDataSeries::appendRangeX(VELGenericType x, VELGenericType y1, VELGenericType y2, int64_t count) {
  p_VEL_appendRows({x, y1, y2}, count);
}

void VELXyyDataSeries::updateAt(int64_t index, VELGenericType y1, VELGenericType y2) {
  p_VEL_updatePoint(index, {y1, y2});
}

void VELXyyDataSeries::insertAt(int64_t index, VELGenericType x, VELGenericType y1, VELGenericType y2) {
  p_VEL_insertPoint(index, {x, y1, y2});
}

void VELXyyDataSeries::insertRangeAt(int64_t index, VELNumberSpan x, VELNumberSpan y1, VELNumberSpan y2) {
  p_VEL_insertRows(index, {x, y1, y2});
}

void VELXyyDataSeries::insertRangeAt(int64_t index, VELGenericType x, VELGenericType y1, VELGenericType y2,
                                     int64_t count) {
  p_VEL_insertRows(index, {x, y1, y2}, count);
}

std::shared_ptr<VELPointSeries> VELXyyDataSeries::toPointSeriesWithResamplingMode(
    VELResamplingMode mode, const VELIndexRange& range, int32_t viewportWidth, bool isCategoryAxis,
    const VELRange& visibleRange, VELPointResampler& resampler) {
  return p_VEL_resampled(resampler, isCategoryAxis, [&](const HeldColumns& columns, const auto& last) {
    return resampler.o_executeModeXyy(mode, *columns[0], *columns[1], *columns[2], range, visibleRange,
                                      viewportWidth, last);
  });
}
