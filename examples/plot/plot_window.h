// plot/plot_window.h: charts in a window.
#pragma once

#include <string>

#include "examples/plot/options.h"
#include "examples/plot/plot_columns.h"

/// True when the machine has a display to open a window on. @param why else the reason in one sentence
bool canOpenWindow(std::string& why);

/// Shows a chart until its window is closed or the process is interrupted.
/// @throws PlotFailure when there is no window, font or GL
void showPlot(const PlotColumns& columns, const PlotOptions& options);

/// Shows the newest rows of a file that grows, until the window is closed, the process is interrupted or the
/// data ends; then tells what was left out.
/// @throws PlotFailure as above, and when there is nothing to draw
void followInWindow(const PlotOptions& options);
