// data/xy_data_series.h: points of one x and one y.
#pragma once

#include <cstdint>
#include <memory>
#include <ranges>
#include <span>
#include <type_traits>

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

  /// Appends a point. Two values, or two arrays of dates of equal length to columns of dates; when either has
  /// no number nothing happens.
  ///
  /// x is appended before its order is looked at: when the call raises for that, the x column is one longer
  /// than y and readers leave that x out. Meant so; the next y that is appended pairs with it, unless
  /// `removeAt` of its index takes it away before. A full ring is not checked for order, on purpose: it does
  /// not grow by what is appended.
  /// @throws VELException "Operation exception" for unsorted x that is not accepted
  /// @throws VELInvalidArgumentException for a date in a column of numbers and the other way round, and for
  ///         arrays of different length; neither column has changed then
  void appendX(VELGenericType x, VELGenericType y);
  /// Appends rows of equal length, unboxed; they may be of this series' own columns. Rings take single points
  /// only.
  /// @throws VELInvalidArgumentException for rows of different length; and as above
  template <VELContiguousValues XValues, VELContiguousValues YValues>
  void appendRangeX(const XValues& x, const YValues& y) {
    using Y = std::ranges::range_value_t<YValues>;
    const size_t added = std::ranges::size(x);
    assertEqualSize(added, std::ranges::size(y), "appendRangeX:Y:");
    if (isFifo() || added == 0) return;
    if constexpr (std::is_same_v<Y, VELDate>) _yColumn->countToAppend(VELDate(0.0));
    VELRawBuffer copy;
    const auto yValues = _xColumn->detached(std::span<const Y>(std::ranges::data(y), added), copy);
    const int64_t previousCount = _xColumn->count();
    _xColumn->appendRange(std::span(std::ranges::data(x), added));
    onAppendXColumnWithPreviousCount(previousCount);
    _yColumn->appendRange(yValues);
    dataSeriesChanged();
  }
  /// Appends @p count points from pointers to scalars, as above; a column of dates also takes an array of
  /// dates. Any other value and a null pointer on either side append nothing.
  void appendRangeX(VELGenericType x, VELGenericType y, int64_t count);

  /// Replaces a point; nothing happens when either value is no number.
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
  /// @throws VELInvalidArgumentException with the selector when the counts differ
  static void assertEqualSize(size_t xCount, size_t yCount, const char* selector);
  /// Both columns take a value of it. Asked before either is touched.
  bool p_VEL_takesX(VELGenericType x, VELGenericType y) const;
};
