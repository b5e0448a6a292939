// plot/plot_series.h: the lines of a chart and their colours.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "examples/plot/options.h"
#include "examples/plot/plot_columns.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/series/fast_line_renderable_series.h"

/// The id of the Y axis of --y2.
inline constexpr char kSecondAxisId[] = "second";

/// The colour codes of the lines, in their order. Those of the second axis are paler: the first one is what
/// the chart is about.
std::vector<uint32_t> lineColors(const PlotColumns& columns);

/// The data of a line, all of it.
std::shared_ptr<VELXyDataSeries> makeData(const PlotLine& line, PlotXKind xKind);

/// An empty ring for the newest points of a line. @param isEven x counts rows
std::shared_ptr<VELXyDataSeries> makeRing(const PlotLine& line, PlotXKind xKind, bool isEven,
                                          int32_t capacity);

/// A line that shows data, bound to its Y axis.
std::shared_ptr<VELFastLineRenderableSeries> makeSeries(const PlotLine& line,
                                                        const std::shared_ptr<VELXyDataSeries>& data,
                                                        uint32_t colorCode, const PlotOptions& options);
