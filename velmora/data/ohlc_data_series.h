// data/ohlc_data_series.h: prices over a span of time.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/data/data_series.h"

/// The data of candlesticks and OHLC bars. `yValues` is the close; y ranges go from the lowest low to the
/// highest high, and open and close count too, should the data put one of them outside.
class VELMORA_API VELOhlcDataSeries : public VELDataSeries {
 public:
  /// Empty columns; all four prices are of the y type.
  /// @throws VELInvalidArgumentException for a type that no column stores
  VELOhlcDataSeries(VELDataType xType, VELDataType yType);
  // The other forms are those of `VELXyDataSeries`; a category y makes category columns of all values.
  static std::shared_ptr<VELOhlcDataSeries> initFifoWithXType(VELDataType xType, VELDataType yType,
                                                              int32_t fifoSize);
  static std::shared_ptr<VELOhlcDataSeries> initWithCategoryXType(VELDataType xType, VELDataType yType);
  static std::shared_ptr<VELOhlcDataSeries> initWithCategoryXTypeCategoryYType(VELDataType xType,
                                                                               VELDataType yType);
  static std::shared_ptr<VELOhlcDataSeries> initWithXTypeCategoryYType(VELDataType xType, VELDataType yType);

  std::shared_ptr<VELDataSeries> clone() const override;

  VELDataType openType() const { return openValues()->type(); }
  VELDataType highType() const { return highValues()->type(); }
  VELDataType lowType() const { return lowValues()->type(); }
  VELDataType closeType() const { return closeValues()->type(); }
  // The columns, never null, as `yValues`.
  const std::shared_ptr<VELArrayController>& openValues() const { return p_VEL_column(1); }
  const std::shared_ptr<VELArrayController>& highValues() const { return p_VEL_column(2); }
  const std::shared_ptr<VELArrayController>& lowValues() const { return p_VEL_column(3); }
  const std::shared_ptr<VELArrayController>& closeValues() const { return p_VEL_column(4); }

  // Changes of points do what those of `VELXyDataSeries` do, also where they raise, with as many values as a
  // point has here.
  void appendX(VELGenericType x, VELGenericType open, VELGenericType high, VELGenericType low,
               VELGenericType close);
  void appendRangeX(VELNumberSpan x, VELNumberSpan open, VELNumberSpan high, VELNumberSpan low,
                    VELNumberSpan close);
  void appendRangeX(VELGenericType x, VELGenericType open, VELGenericType high, VELGenericType low,
                    VELGenericType close, int64_t count);
  /// x stays.
  void updateAt(int64_t index, VELGenericType open, VELGenericType high, VELGenericType low,
                VELGenericType close);
  void insertAt(int64_t index, VELGenericType x, VELGenericType open, VELGenericType high, VELGenericType low,
                VELGenericType close);
  void insertRangeAt(int64_t index, VELNumberSpan x, VELNumberSpan open, VELNumberSpan high,
                     VELNumberSpan low, VELNumberSpan close);
  void insertRangeAt(int64_t index, VELGenericType x, VELGenericType open, VELGenericType high,
                     VELGenericType low, VELGenericType close, int64_t count);

  std::shared_ptr<VELPointSeries> toPointSeriesWithResamplingMode(VELResamplingMode mode,
                                                                  const VELIndexRange& range,
                                                                  int32_t viewportWidth, bool isCategoryAxis,
                                                                  const VELRange& visibleRange,
                                                                  VELPointResampler& resampler) override;

 protected:
  explicit VELOhlcDataSeries(Columns columns);
};
