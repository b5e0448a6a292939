// platform/density.h: how many pixels a point has, from two sizes in whole numbers.
#pragma once

#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"

/// True for pixels per point that can be drawn with: above 0, and a number that a float holds as well.
VELMORA_API bool VELIsDensity(double pixelsPerPoint);

/// Pixels per point of a window of @p points points that has @p pixels pixels, both whole numbers.
///
/// Both were rounded, so their quotient changes a little with every size of one and the same window. The
/// @p previous density stays as long as it explains the sizes to less than one pixel; a new one is a multiple
/// of 1/120, the step in which displays are scaled, when such a one explains them.
/// @return the previous density when a side is not positive
VELMORA_API double VELDensityOf(const VELSize& points, const VELSize& pixels, double previous);
