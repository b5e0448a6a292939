// plot/plot_series.h: the lines of a chart and their colours.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "examples/plot/options.h"
#include "examples/plot/plot_columns.h"
#include "velmora/series/fast_line_renderable_series.h"

/// The id of the Y axis of --y2.
inline constexpr char kSecondAxisId[] = "second";

/// The colour codes of the lines, in their order. Those of the second axis are paler: the first one is what
/// the chart is about.
std::vector<uint32_t> lineColors(const PlotColumns& columns);

/// A line with its data, bound to its Y axis.
std::shared_ptr<VELFastLineRenderableSeries> makeSeries(const PlotLine& line, PlotXKind xKind,
                                                        uint32_t colorCode, const PlotOptions& options);
