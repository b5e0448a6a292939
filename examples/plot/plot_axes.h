// plot/plot_axes.h: the axes of a chart, each by what it counts.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "examples/plot/options.h"
#include "examples/plot/plot_columns.h"
#include "velmora/axes/axis_base.h"
#include "velmora/surface/chart_surface.h"

/// The axes of one chart.
struct PlotAxes {
  std::shared_ptr<VELAxisBase> x;
  std::shared_ptr<VELAxisBase> y;
  std::shared_ptr<VELAxisBase> y2;  ///< null unless a line needs it
};

/// Makes the axes and attaches them: sides, directions, titles and formats of numbers. An axis with one line
/// has its colour where there are two Y axes.
/// @param colors of the lines, in their order
PlotAxes addAxes(VELChartSurface& surface, const PlotColumns& columns, const std::vector<uint32_t>& colors,
                 const PlotOptions& options);

/// Gives the labels of dates a pattern that fits the range of the data, and the title what they leave out.
/// The lines are attached already.
void formatDates(VELAxisBase& x, const PlotColumns& columns);
