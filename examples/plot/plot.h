// plot/plot.h: columns as a picture of a chart.
#pragma once

#include "examples/plot/options.h"
#include "examples/plot/plot_columns.h"
#include "velmora/platform/bitmap.h"

/// Draws the chart.
/// @throws PlotFailure when the picture cannot be made: no GL, no font, or a size beyond what GL can hold
VELBitmap drawPlot(const PlotColumns& columns, const PlotOptions& options);

/// The whole program: reads, draws, writes, and tells on standard output and standard error what a person
/// should know. @return exit code: 0, or 2 with one sentence on standard error
int runPlot(int argc, const char* const* argv);
