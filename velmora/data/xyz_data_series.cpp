#include "velmora/data/xyz_data_series.h"

#include <cstddef>
#include <utility>

namespace {

constexpr size_t yExtent[] = {1};
constexpr VELDataSeriesLayout layout = {VELDataSeriesType_Xyz, 3, 1, yExtent, "X:Y:Z:"};

}  // namespace

VELXyzDataSeries::VELXyzDataSeries(Columns columns) : VELDataSeries(layout, std::move(columns)) {}

VELXyzDataSeries::VELXyzDataSeries(VELDataType xType, VELDataType yType)
    : VELXyzDataSeries(xType, yType, yType) {}

VELXyzDataSeries::VELXyzDataSeries(VELDataType xType, VELDataType yType, VELDataType zType)
    : VELXyzDataSeries(Columns{p_VEL_plain(xType), p_VEL_plain(yType), p_VEL_plain(zType)}) {}

std::shared_ptr<VELXyzDataSeries> VELXyzDataSeries::initFifoWithXType(VELDataType xType, VELDataType yType,
                                                                      int32_t fifoSize) {
  return initFifoWithXType(xType, yType, yType, fifoSize);
}

std::shared_ptr<VELXyzDataSeries> VELXyzDataSeries::initFifoWithXType(VELDataType xType, VELDataType yType,
                                                                      VELDataType zType, int32_t fifoSize) {
  return p_VEL_make<VELXyzDataSeries>(
      {p_VEL_ring(xType, fifoSize), p_VEL_ring(yType, fifoSize), p_VEL_ring(zType, fifoSize)}, fifoSize);
}

std::shared_ptr<VELXyzDataSeries> VELXyzDataSeries::initWithCategoryXType(VELDataType xType,
                                                                          VELDataType yType) {
  return p_VEL_make<VELXyzDataSeries>({p_VEL_category(xType), p_VEL_plain(yType), p_VEL_plain(yType)});
}

std::shared_ptr<VELXyzDataSeries> VELXyzDataSeries::initWithCategoryXTypeCategoryYType(VELDataType xType,
                                                                                       VELDataType yType) {
  return p_VEL_make<VELXyzDataSeries>({p_VEL_category(xType), p_VEL_category(yType), p_VEL_plain(yType)});
}

std::shared_ptr<VELXyzDataSeries> VELXyzDataSeries::initWithXTypeCategoryYType(VELDataType xType,
                                                                               VELDataType yType) {
  return p_VEL_make<VELXyzDataSeries>({p_VEL_plain(xType), p_VEL_category(yType), p_VEL_plain(yType)});
}

std::shared_ptr<VELDataSeries> VELXyzDataSeries::clone() const { return p_VEL_cloneAs<VELXyzDataSeries>(); }

void VELXyzDataSeries::appendX(VELGenericType x, VELGenericType y, VELGenericType z) {
  const VELGenericType point[] = {x, y, z};
  p_VEL_appendPoint(point);
}

void VELXyzDataSeries::appendRangeX(VELNumberSpan x, VELNumberSpan y, VELNumberSpan z) {
  p_VEL_appendRows({x, y, z});
}

void VELXyzDataSeries::appendRangeX(VELGenericType x, VELGenericType y, VELGenericType z, int64_t count) {
  p_VEL_appendRows({x, y, z}, count);
}

void VELXyzDataSeries::updateAt(int64_t index, VELGenericType y, VELGenericType z) {
  p_VEL_updatePoint(index, {y, z});
}

void VELXyzDataSeries::insertAt(int64_t index, VELGenericType x, VELGenericType y, VELGenericType z) {
  p_VEL_insertPoint(index, {x, y, z});
}

void VELXyzDataSeries::insertRangeAt(int64_t index, VELNumberSpan x, VELNumberSpan y, VELNumberSpan z) {
  p_VEL_insertRows(index, {x, y, z});
}

void VELXyzDataSeries::insertRangeAt(int64_t index, VELGenericType x, VELGenericType y, VELGenericType z,
                                     int64_t count) {
  p_VEL_insertRows(index, {x, y, z}, count);
}

std::shared_ptr<VELPointSeries> VELXyzDataSeries::toPointSeriesWithResamplingMode(
    VELResamplingMode mode, const VELIndexRange& range, int32_t viewportWidth, bool isCategoryAxis,
    const VELRange& visibleRange, VELPointResampler& resampler) {
  return p_VEL_resampled(resampler, isCategoryAxis, [&](const HeldColumns& columns, const auto& last) {
    return resampler.o_executeModeXyz(mode, *columns[0], *columns[1], *columns[2], range, visibleRange,
                                      viewportWidth, last);
  });
}
