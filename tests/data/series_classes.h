// data/series_classes.h: the four classes of data series behind one face, for what holds for all of them.
#pragma once

#include <array>

#include "tests/data/columns.h"
#include "velmora/data/ohlc_data_series.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/data/xyy_data_series.h"
#include "velmora/data/xyz_data_series.h"

using Ends = std::pair<double, double>;
inline Ends ends(const VELRangePtr& range) { return {range->minAsDouble(), range->maxAsDouble()}; }

template <class S, class P, auto... columnsOf>
struct SeriesOf {
  using Series = S;
  using Points = P;
  static constexpr size_t values = sizeof...(columnsOf);  // beside x
  static auto columns(const Series& series) { return std::array{(series.*columnsOf)()...}; }
  /// Calls @p use with @p of(0), @p of(1) … for the values of a point.
  static void with(auto of, auto use) {
    [&]<size_t... I>(std::index_sequence<I...>) { use(of(I)...); }
    (std::make_index_sequence<values>());
  }
  static void same(const auto& value, auto use) {
    with([&value](size_t) { return value; }, use);
  }
  /// The point at x has the values 10 x, 10 x + 1 …
  static void point(double x, auto use) {
    with([x](size_t i) { return 10 * x + static_cast<double>(i); }, use);
  }
  static void rows(const Values& x, auto use) {
    const auto row = [&x](size_t i) {
      Values values;
      for (const double one : x) values.push_back(10 * one + static_cast<double>(i));
      return values;
    };
    with(row, use);
  }
  static void append(Series& series, double x) {
    point(x, [&](auto... y) { series.appendX(x, y...); });
  }
  static void appendRows(Series& series, const Values& x) {
    rows(x, [&](const auto&... y) { series.appendRangeX(x, y...); });
  }
  static void insert(Series& series, int64_t index, double x) {
    point(x, [&](auto... y) { series.insertAt(index, x, y...); });
  }
  /// x stays in the classes of more than one value.
  static void update(Series& series, int64_t index, double x) {
    point(x, [&](auto... y) {
      if constexpr (values == 1) series.updateAt(index, x, y...);
      if constexpr (values > 1) series.updateAt(index, y...);
    });
  }
  /// The x of the points as a reader sees them, each value that is not that of `point` marked.
  static std::string text(const Series& series) {
    std::string result;
    for (int64_t i = 0; i < series.count(); ++i) {
      double expected = 10 * VELGenericDouble(series.xValues()->valueAt(i));
      result += std::to_string(VELGenericLong(series.xValues()->valueAt(i)));
      for (const auto& column : columns(series))
        if (VELGenericDouble(column->valueAt(i)) != expected++) result += "!";
      result += " ";
    }
    return result;
  }
};

struct XyClass : SeriesOf<VELXyDataSeries, VELPointSeries, &VELXyDataSeries::yValues> {
  static constexpr const char* keywords = "X:Y:";
};
struct XyyClass : SeriesOf<VELXyyDataSeries, VELXyyPointSeries, &VELXyyDataSeries::y1Values,
                           &VELXyyDataSeries::y2Values> {
  static constexpr const char* keywords = "X:Y1:Y2:";
};
struct OhlcClass : SeriesOf<VELOhlcDataSeries, VELOhlcPointSeries, &VELOhlcDataSeries::openValues,
                            &VELOhlcDataSeries::highValues, &VELOhlcDataSeries::lowValues,
                            &VELOhlcDataSeries::closeValues> {
  static constexpr const char* keywords = "X:Open:High:Low:Close:";
};
struct XyzClass
    : SeriesOf<VELXyzDataSeries, VELXyzPointSeries, &VELXyzDataSeries::yValues, &VELXyzDataSeries::zValues> {
  static constexpr const char* keywords = "X:Y:Z:";
};
