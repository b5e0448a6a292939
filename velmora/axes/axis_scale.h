// axes/axis_scale.h: where equal steps of an axis are equally far apart.
//
// Scrolling, zooming and animation are sums and products of places on this scale, so each is written once for
// linear and logarithmic axes.
#pragma once

#include <cmath>

#include "velmora/platform/export.h"

/// Values themselves, or the natural exponents of their magnitudes.
///
/// Always true: places ascend with values; `value(place(v))` is v up to rounding. A value on the other side
/// of zero has no place: NaN.
struct VELMORA_API VELAxisScale {
  bool isLogarithmic = false;
  double sign = 1.0;  ///< side of zero on which a logarithmic range lies

  /// The scale for a range of which @p bound is an end.
  static VELAxisScale forBound(bool isLogarithmic, double bound) {
    return {isLogarithmic, std::signbit(bound) ? -1.0 : 1.0};
  }
  double place(double value) const { return isLogarithmic ? sign * std::log(sign * value) : value; }
  double value(double place) const { return isLogarithmic ? sign * std::exp(sign * place) : place; }
};
