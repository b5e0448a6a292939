// rendering/pixel_grid.h: which whole pixels of a surface a length in points is.
//
// Units: points and pixels; scale = pixels per point. NaN stays NaN.
#pragma once

#include <cmath>

/// Parts of a pixel that are the rounding of scales and frames, no pixel of their own.
inline constexpr double VELPixelSlack = 1.0 / 256.0;

/// Whole pixels that a side of a surface touches.
inline double VELTouchedPixels(double points, double scale) {
  return std::ceil(points * scale - VELPixelSlack);
}

/// The edge between two pixels that a place lies on but for rounding; else the place itself. What is cut to
/// whole pixels afterwards does not lose one to a scale such as 1.3, which no float holds.
inline double VELSnappedToPixels(double pixels) {
  const double edge = std::round(pixels);
  return std::abs(pixels - edge) <= VELPixelSlack ? edge : pixels;
}
