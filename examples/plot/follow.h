// plot/follow.h: the picture of the last points of a file that grows.
#pragma once

#include "examples/plot/options.h"

/// Reads until the data ends or the process is interrupted, then writes the picture of the newest rows.
/// @throws PlotFailure when there is nothing to draw, or no way to draw it
void followToPicture(const PlotOptions& options);
