// data/data_series_layout.h: what the points of a class of data series consist of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// The numbers are fixed.
enum VELDataSeriesType : int32_t {
  VELDataSeriesType_Xy = 0,
  VELDataSeriesType_Ohlc = 1,
  VELDataSeriesType_HeatMap = 2,
  VELDataSeriesType_Xyy = 3,
  VELDataSeriesType_Xyz = 4,
};

/// No class of series has more, x included.
constexpr size_t kVELMostColumns = 8;

/// One for each class, as long as the program runs. Columns are counted with x, which is column 0.
struct VELDataSeriesLayout {
  VELDataSeriesType type;
  size_t columnCount;
  /// The column that `yValues` answers.
  size_t yColumn;
  /// The columns between whose lowest and highest value a point lies.
  std::span<const size_t> yExtent;
  /// The values of a point as the names of operations spell them, such as "X:Y:".
  const char* keywords;
};
