// data/xy_data_series.h: points of one x and one y.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/data/data_series.h"

/// The data of lines, mountains, columns, impulses and scatters.
///
///     VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
///     series.appendX(1.0, 2.0);
class VELMORA_API VELXyDataSeries : public VELDataSeries {
 public:
  /// Empty columns of the two storage types, Int16 to DateTime.
  /// @throws VELInvalidArgumentException for any other type
  VELXyDataSeries(VELDataType xType, VELDataType yType);
  // The other forms are null for a type that no column stores.
  /// A ring that keeps the newest @p fifoSize points; null for a negative size, too.
  static std::shared_ptr<VELXyDataSeries> initFifoWithXType(VELDataType xType, VELDataType yType,
                                                            int32_t fifoSize);
  // Category columns keep their values and are read as their indices.
  static std::shared_ptr<VELXyDataSeries> initWithCategoryXType(VELDataType xType, VELDataType yType);
  static std::shared_ptr<VELXyDataSeries> initWithCategoryXTypeCategoryYType(VELDataType xType,
                                                                             VELDataType yType);
  static std::shared_ptr<VELXyDataSeries> initWithXTypeCategoryYType(VELDataType xType, VELDataType yType);

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
  ///         arrays of different length; no column has changed then
  void appendX(VELGenericType x, VELGenericType y);
  /// Appends rows of equal length, unboxed; they may be of this series' own columns. Rings take single points
  /// only.
  /// @throws VELInvalidArgumentException for rows of different length; and as above
  void appendRangeX(VELNumberSpan x, VELNumberSpan y);
  /// Appends @p count points from pointers to scalars, as above; a column of dates also takes an array of
  /// dates. Any other value and a null pointer on either side append nothing.
  void appendRangeX(VELGenericType x, VELGenericType y, int64_t count);

  /// Replaces a point; nothing happens when either value is no number.
  ///
  /// Unlike an append, an update or insert that raises for the order of x is carried out all the same: the
  /// point is whole and the change was told before the exception goes on.
  /// @throws VELException "Operation exception" for unsorted x that is not accepted
  void updateAt(int64_t index, VELGenericType xValue, VELGenericType yValue);
  /// Puts a point in at an index of 0 to as many points as have all values. Rings ignore it.
  /// @throws VELException as above
  void insertAt(int64_t index, VELGenericType x, VELGenericType y);
  /// Puts rows of equal length in, as `appendRangeX` takes them.
  void insertRangeAt(int64_t index, VELNumberSpan x, VELNumberSpan y);
  /// Puts @p count points from pointers to scalars in, as above.
  void insertRangeAt(int64_t index, VELGenericType x, VELGenericType y, int64_t count);

  std::shared_ptr<VELPointSeries> toPointSeriesWithResamplingMode(VELResamplingMode mode,
                                                                  const VELIndexRange& range,
                                                                  int32_t viewportWidth, bool isCategoryAxis,
                                                                  const VELRange& visibleRange,
                                                                  VELPointResampler& resampler) override;

 protected:
  explicit VELXyDataSeries(Columns columns);
};
