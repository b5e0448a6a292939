#include "velmora/platform/density.h"

#include <cmath>
#include <limits>

bool VELIsDensity(double pixelsPerPoint) {
  using Limits = std::numeric_limits<float>;
  return pixelsPerPoint >= double{Limits::min()} && pixelsPerPoint <= double{Limits::max()};
}

double VELDensityOf(const VELSize& points, const VELSize& pixels, double previous) {
  if (!(points.width > 0.0 && points.height > 0.0 && pixels.width > 0.0 && pixels.height > 0.0))
    return previous;
  const auto explains = [&](double density) {
    return std::abs(points.width * density - pixels.width) < 1.0 &&
           std::abs(points.height * density - pixels.height) < 1.0;
  };
  if (explains(previous)) return previous;
  // The longer side was rounded by the smaller part.
  const bool isWide = points.width > points.height;
  const double quotient = isWide ? pixels.width / points.width : pixels.height / points.height;
  const double stepped = std::round(quotient * 120.0) / 120.0;
  return explains(stepped) ? stepped : quotient;
}
