// plot/picture.h: a chart as a file.
#pragma once

#include "examples/plot/options.h"
#include "examples/plot/plot_columns.h"
#include "examples/plot/plot_scene.h"
#include "velmora/platform/bitmap.h"

/// To be asked before long work: whether the picture that the options name can be drawn and written.
/// @throws PlotFailure when its place cannot be written, is the data itself, or there is no GL for its size
void assertCanMakePicture(const PlotOptions& options);

/// Draws the chart.
/// @throws PlotFailure when the picture cannot be made: no GL, no font, or a size beyond what GL can hold
VELBitmap drawPlot(const PlotColumns& columns, const PlotOptions& options);

/// As above, from what followed lines hold now.
VELBitmap drawFollowed(const PlotColumns& columns, PlotScene::Data data, const PlotOptions& options);

/// Writes the picture that the options name, and tells so on standard output.
/// @throws PlotFailure when it cannot be written; then there is no half of it
void writePicture(const VELBitmap& picture, const PlotOptions& options);
