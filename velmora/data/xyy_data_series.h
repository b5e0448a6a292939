// data/xyy_data_series.h: points of one x and two y.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/data/data_series.h"

/// The data of bands: y1 and y2 at each x, each above or below the other. `yValues` is y1.
class VELMORA_API VELXyyDataSeries : public VELDataSeries {
 public:
  /// Empty columns; y1 and y2 are both of the y type.
  /// @throws VELInvalidArgumentException for a type that no column stores
  VELXyyDataSeries(VELDataType xType, VELDataType yType);
  // The other forms are those of `VELXyDataSeries`; a category y makes category columns of all values.
  static std::shared_ptr<VELXyyDataSeries> initFifoWithXType(VELDataType xType, VELDataType yType,
                                                             int32_t fifoSize);
  static std::shared_ptr<VELXyyDataSeries> initWithCategoryXType(VELDataType xType, VELDataType yType);
  static std::shared_ptr<VELXyyDataSeries> initWithCategoryXTypeCategoryYType(VELDataType xType,
                                                                              VELDataType yType);
  static std::shared_ptr<VELXyyDataSeries> initWithXTypeCategoryYType(VELDataType xType, VELDataType yType);

  std::shared_ptr<VELDataSeries> clone() const override;

  VELDataType y1Type() const { return y1Values()->type(); }
  VELDataType y2Type() const { return y2Values()->type(); }
  // The columns, never null, as `yValues`.
  const std::shared_ptr<VELArrayController>& y1Values() const { return p_VEL_column(1); }
  const std::shared_ptr<VELArrayController>& y2Values() const { return p_VEL_column(2); }

  // Changes of points do what those of `VELXyDataSeries` do, also where they raise, with as many values as a
  // point has here.
  void appendX(VELGenericType x, VELGenericType y1, VELGenericType y2);
  void appendRangeX(VELNumberSpan x, VELNumberSpan y1, VELNumberSpan y2);
  void appendRangeX(VELGenericType x, VELGenericType y1, VELGenericType y2, int64_t count);
  /// x stays.
  void updateAt(int64_t index, VELGenericType y1, VELGenericType y2);
  void insertAt(int64_t index, VELGenericType x, VELGenericType y1, VELGenericType y2);
  void insertRangeAt(int64_t index, VELNumberSpan x, VELNumberSpan y1, VELNumberSpan y2);
  void insertRangeAt(int64_t index, VELGenericType x, VELGenericType y1, VELGenericType y2, int64_t count);

  std::shared_ptr<VELPointSeries> toPointSeriesWithResamplingMode(VELResamplingMode mode,
                                                                  const VELIndexRange& range,
                                                                  int32_t viewportWidth, bool isCategoryAxis,
                                                                  const VELRange& visibleRange,
                                                                  VELPointResampler& resampler) override;

 protected:
  explicit VELXyyDataSeries(Columns columns);
};
