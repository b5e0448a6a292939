// axes/pixel_grid.h: where a line must lie to be crisp.
//
// Units: points; `scale` is device pixels per point.
#pragma once

#include <algorithm>
#include <cmath>

/// The device pixels along one direction of a drawing area.
///
/// Always true of a snapped line that is a whole number of pixels wide: it covers whole pixels and lies
/// within half a pixel of where it belongs. One that an end of the area would cut moves inside, one beyond
/// the end stays outside.
struct VELPixelGrid {
  double scale = 1.0;   ///< pixels per point; anything but a positive number counts as 1
  double origin = 0.0;  ///< start of the drawing area on the surface
  double length = 0.0;  ///< length of the drawing area

  /// Centre of a line of a width, relative to the drawing area.
  double snapLine(double centre, double width) const {
    const double density = usableScale();
    const double pixels = std::max(1.0, std::round(width * density));
    const double first = std::ceil(origin * density - kSlack);
    const double last = std::floor((origin + length) * density + kSlack) - pixels;
    double start = std::floor((origin + centre) * density - pixels / 2.0 + 0.5);
    const bool isInSight = start >= first - pixels && start <= last + pixels;
    if (first <= last && isInSight) start = std::clamp(start, first, last);
    return (start + pixels / 2.0) / density - origin;
  }

  /// The pixel edge nearest to a coordinate, relative to the drawing area.
  double snapEdge(double coordinate) const {
    const double density = usableScale();
    return std::floor((origin + coordinate) * density + 0.5) / density - origin;
  }

 private:
  static constexpr double kSlack = 1e-6;  // of a pixel: rounding of the products is no pixel

  double usableScale() const { return scale > 0.0 && std::isfinite(scale) ? scale : 1.0; }
};
