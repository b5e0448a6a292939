// plot/live_labels.h: labels of axes whose ranges move with the data.
#pragma once

#include <string>

#include "examples/plot/plot_axes.h"

/// Lets the axes follow their data, and their labels the range that is shown: numbers with the digits that
/// tell neighbours apart, dates without what all labels have in common. The axes are attached already.
void makeLive(const PlotAxes& axes);

/// Gives a live axis of dates the title that says what its labels leave out; others stay.
/// @param name what the axis counts
void updateLiveTitle(VELAxisBase& x, const std::string& name);
