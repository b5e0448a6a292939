// data/xy_data_series.h: points of one x and one y.
#pragma once

#include <cstdint>
#include <memory>
#include <ranges>
#include <span>

#include "velmora/data/data_series.h"

/// Rows of numbers in contiguous memory: std::span, std::vector, std::array.
template <class Values>
concept VELContiguousValues = std::ranges::contiguous_range<Values> && std::ranges::sized_range<Values>;

/// The data of lines, mountains, columns, impulses and scatters.
///
///     VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
///     series.appendX(1.0, 2.0);
class VELMORA_API VELXyDataSeries : public VELDataSeries {
 public:
  /// Empty columns of the two storage types, Int16 to DateTime.
  /// @throws VELInvalidArgumentException for any other type
  VELXyDataSeries(VELDataType xType, VELDataType yType);
  /// A ring that keeps the newest @p fifoSize points; null for a negative size or a type that no column
  /// stores.
  static std::shared_ptr<VELXyDataSeries> initFifoWithXType(VELDataType xType, VELDataType yType,
                                                            int32_t fifoSize);

  VELDataSeriesType dataSeriesType() const override { return VELDataSeriesType_Xy; }
  std::shared_ptr<VELDataSeries> clone() const override;

  /// x is appended before its order is looked at: when the call raises, the x column is one longer than y and
  /// readers leave that x out. Meant so; `removeAt` of its index takes it away.
  /// @throws VELException "Operation exception" for unsorted x that is not accepted
  /// @throws VELInvalidArgumentException for a date in a column of numbers and the other way round
  void appendX(VELGenericType x, VELGenericType y);
  /// Appends rows of equal length, unboxed. Rings take single points only.
  /// @throws VELInvalidArgumentException for rows of different length; and as above
  template <VELContiguousValues XValues, VELContiguousValues YValues>
  void appendRangeX(const XValues& x, const YValues& y) {
    assertEqualSize(std::ranges::size(x), std::ranges::size(y));
    const int64_t previousCount = _xColumn->count();
    _xColumn->appendRange(std::span(std::ranges::data(x), std::ranges::size(x)));
    onAppendXColumnWithPreviousCount(previousCount);
    _yColumn->appendRange(std::span(std::ranges::data(y), std::ranges::size(y)));
    dataSeriesChanged();
  }
  /// Appends @p count points from pointers to scalars, as above.
  void appendRangeX(VELGenericType x, VELGenericType y, int64_t count);

  /// Replaces a point.
  /// @throws VELException "Operation exception" for unsorted x that is not accepted, x being replaced then
  void updateAt(int64_t index, VELGenericType xValue, VELGenericType yValue);
  /// Puts a point in at an index of 0 to `count()`. Rings ignore it.
  /// @throws VELException as above
  void insertAt(int64_t index, VELGenericType x, VELGenericType y);
  /// Puts @p count points from pointers to scalars in, as above.
  void insertRangeAt(int64_t index, VELGenericType x, VELGenericType y, int64_t count);

  std::shared_ptr<VELPointSeries> toPointSeriesWithResamplingMode(VELResamplingMode mode,
                                                                  const VELIndexRange& range,
                                                                  int32_t viewportWidth, bool isCategoryAxis,
                                                                  const VELRange& visibleRange,
                                                                  VELPointResampler& resampler) override;

 private:
  static void assertEqualSize(size_t xCount, size_t yCount);
};
