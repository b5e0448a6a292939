#include "velmora/data/ohlc_data_series.h"

#include <cstddef>
#include <utility>

namespace {

constexpr size_t yExtent[] = {1, 2, 3, 4};
constexpr VELDataSeriesLayout layout = {VELDataSeriesType_Ohlc, 5, 4, yExtent, "X:Open:High:Low:Close:"};

}  // namespace

VELOhlcDataSeries::VELOhlcDataSeries(Columns columns) : VELDataSeries(layout, std::move(columns)) {}

VELOhlcDataSeries::VELOhlcDataSeries(VELDataType xType, VELDataType yType)
    : VELOhlcDataSeries(Columns{p_VEL_plain(xType), p_VEL_plain(yType), p_VEL_plain(yType),
                                p_VEL_plain(yType), p_VEL_plain(yType)}) {}

std::shared_ptr<VELOhlcDataSeries> VELOhlcDataSeries::initFifoWithXType(VELDataType xType, VELDataType yType,
                                                                        int32_t fifoSize) {
  return p_VEL_make<VELOhlcDataSeries>(
      {p_VEL_ring(xType, fifoSize), p_VEL_ring(yType, fifoSize), p_VEL_ring(yType, fifoSize),
       p_VEL_ring(yType, fifoSize), p_VEL_ring(yType, fifoSize)},
      fifoSize);
}

std::shared_ptr<VELOhlcDataSeries> VELOhlcDataSeries::initWithCategoryXType(VELDataType xType,
                                                                            VELDataType yType) {
  return p_VEL_make<VELOhlcDataSeries>({p_VEL_category(xType), p_VEL_plain(yType), p_VEL_plain(yType),
                                        p_VEL_plain(yType), p_VEL_plain(yType)});
}

std::shared_ptr<VELOhlcDataSeries> VELOhlcDataSeries::initWithCategoryXTypeCategoryYType(VELDataType xType,
                                                                                         VELDataType yType) {
  return p_VEL_make<VELOhlcDataSeries>({p_VEL_category(xType), p_VEL_category(yType), p_VEL_category(yType),
                                        p_VEL_category(yType), p_VEL_category(yType)});
}

std::shared_ptr<VELOhlcDataSeries> VELOhlcDataSeries::initWithXTypeCategoryYType(VELDataType xType,
                                                                                 VELDataType yType) {
  return p_VEL_make<VELOhlcDataSeries>({p_VEL_plain(xType), p_VEL_category(yType), p_VEL_category(yType),
                                        p_VEL_category(yType), p_VEL_category(yType)});
}

std::shared_ptr<VELDataSeries> VELOhlcDataSeries::clone() const { return p_VEL_cloneAs<VELOhlcDataSeries>(); }

void VELOhlcDataSeries::appendX(VELGenericType x, VELGenericType open, VELGenericType high,
                                VELGenericType low, VELGenericType close) {
  const VELGenericType point[] = {x, open, high, low, close};
  p_VEL_appendPoint(point);
}

void VELOhlcDataSeries::appendRangeX(VELNumberSpan x, VELNumberSpan open, VELNumberSpan high,
                                     VELNumberSpan low, VELNumberSpan close) {
  p_VEL_appendRows({x, open, high, low, close});
}

void VELOhlcDataSeries::appendRangeX(VELGenericType x, VELGenericType open, VELGenericType high,
                                     VELGenericType low, VELGenericType close, int64_t count) {
  p_VEL_appendRows({x, open, high, low, close}, count);
}

void VELOhlcDataSeries::updateAt(int64_t index, VELGenericType open, VELGenericType high, VELGenericType low,
                                 VELGenericType close) {
  p_VEL_updatePoint(index, {open, high, low, close});
}

void VELOhlcDataSeries::insertAt(int64_t index, VELGenericType x, VELGenericType open, VELGenericType high,
                                 VELGenericType low, VELGenericType close) {
  p_VEL_insertPoint(index, {x, open, high, low, close});
}

void VELOhlcDataSeries::insertRangeAt(int64_t index, VELNumberSpan x, VELNumberSpan open, VELNumberSpan high,
                                      VELNumberSpan low, VELNumberSpan close) {
  p_VEL_insertRows(index, {x, open, high, low, close});
}

void VELOhlcDataSeries::insertRangeAt(int64_t index, VELGenericType x, VELGenericType open,
                                      VELGenericType high, VELGenericType low, VELGenericType close,
                                      int64_t count) {
  p_VEL_insertRows(index, {x, open, high, low, close}, count);
}

std::shared_ptr<VELPointSeries> VELOhlcDataSeries::toPointSeriesWithResamplingMode(
    VELResamplingMode mode, const VELIndexRange& range, int32_t viewportWidth, bool isCategoryAxis,
    const VELRange& visibleRange, VELPointResampler& resampler) {
  return p_VEL_resampled(resampler, isCategoryAxis, [&](const HeldColumns& columns, const auto& last) {
    return resampler.o_executeModeOhlc(mode, *columns[0], *columns[1], *columns[2], *columns[3], *columns[4],
                                       range, visibleRange, viewportWidth, last);
  });
}
