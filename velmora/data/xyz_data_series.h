// data/xyz_data_series.h: points of one x, one y and a size.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/data/data_series.h"

/// The data of bubbles: z is the size of the bubble at (x, y) and no part of the y range.
class VELMORA_API VELXyzDataSeries : public VELDataSeries {
 public:
  /// Empty columns; z is of the y type unless it has its own.
  /// @throws VELInvalidArgumentException for a type that no column stores
  VELXyzDataSeries(VELDataType xType, VELDataType yType);
  VELXyzDataSeries(VELDataType xType, VELDataType yType, VELDataType zType);
  // The other forms are those of `VELXyDataSeries`; z is never a category column, its size is what counts.
  static std::shared_ptr<VELXyzDataSeries> initFifoWithXType(VELDataType xType, VELDataType yType,
                                                             int32_t fifoSize);
  static std::shared_ptr<VELXyzDataSeries> initFifoWithXType(VELDataType xType, VELDataType yType,
                                                             VELDataType zType, int32_t fifoSize);
  static std::shared_ptr<VELXyzDataSeries> initWithCategoryXType(VELDataType xType, VELDataType yType);
  static std::shared_ptr<VELXyzDataSeries> initWithCategoryXTypeCategoryYType(VELDataType xType,
                                                                              VELDataType yType);
  static std::shared_ptr<VELXyzDataSeries> initWithXTypeCategoryYType(VELDataType xType, VELDataType yType);

  std::shared_ptr<VELDataSeries> clone() const override;

  VELDataType zType() const { return zValues()->type(); }
  // The columns, never null, as `yValues`.
  const std::shared_ptr<VELArrayController>& zValues() const { return p_VEL_column(2); }

  // Changes of points do what those of `VELXyDataSeries` do, also where they raise, with as many values as a
  // point has here.
  void appendX(VELGenericType x, VELGenericType y, VELGenericType z);
  void appendRangeX(VELNumberSpan x, VELNumberSpan y, VELNumberSpan z);
  void appendRangeX(VELGenericType x, VELGenericType y, VELGenericType z, int64_t count);
  /// x stays.
  void updateAt(int64_t index, VELGenericType y, VELGenericType z);
  void insertAt(int64_t index, VELGenericType x, VELGenericType y, VELGenericType z);
  void insertRangeAt(int64_t index, VELNumberSpan x, VELNumberSpan y, VELNumberSpan z);
  void insertRangeAt(int64_t index, VELGenericType x, VELGenericType y, VELGenericType z, int64_t count);

  std::shared_ptr<VELPointSeries> toPointSeriesWithResamplingMode(VELResamplingMode mode,
                                                                  const VELIndexRange& range,
                                                                  int32_t viewportWidth, bool isCategoryAxis,
                                                                  const VELRange& visibleRange,
                                                                  VELPointResampler& resampler) override;

 protected:
  explicit VELXyzDataSeries(Columns columns);
};
