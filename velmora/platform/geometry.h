// platform/geometry.h: points, sizes, rectangles and affine transforms.
//
// Units: points unless a name says pixels; origin top left, y downwards.
#pragma once

#include <algorithm>
#include <cmath>

/// A place, in points.
struct VELPoint {
  double x = 0.0;
  double y = 0.0;
  bool operator==(const VELPoint&) const = default;
};

/// An extent, in points.
struct VELSize {
  double width = 0.0;
  double height = 0.0;
  bool operator==(const VELSize&) const = default;
};

/// A rectangle, in points.
struct VELRect {
  double x = 0.0;
  double y = 0.0;
  double width = 0.0;
  double height = 0.0;

  VELPoint origin() const { return {x, y}; }
  VELSize size() const { return {width, height}; }
  double right() const { return x + width; }
  double bottom() const { return y + height; }
  VELPoint center() const { return {x + width / 2.0, y + height / 2.0}; }
  /// Edges included.
  bool contains(VELPoint p) const { return p.x >= x && p.x <= right() && p.y >= y && p.y <= bottom(); }
  VELRect offsetBy(double dx, double dy) const { return {x + dx, y + dy, width, height}; }
  VELRect intersection(const VELRect& o) const {
    const double left = std::max(x, o.x), top = std::max(y, o.y);
    return {left, top, std::max(0.0, std::min(right(), o.right()) - left),
            std::max(0.0, std::min(bottom(), o.bottom()) - top)};
  }
  bool operator==(const VELRect&) const = default;
};

/// x' = a·x + c·y + tx, y' = b·x + d·y + ty. A default one changes nothing.
struct VELAffineTransform {
  double a = 1.0, b = 0.0, c = 0.0, d = 1.0, tx = 0.0, ty = 0.0;

  /// Turns by @p radians, clockwise on the screen since y grows downwards.
  static VELAffineTransform rotation(double radians) {
    const double s = std::sin(radians), k = std::cos(radians);
    return {k, s, -s, k, 0.0, 0.0};
  }
  /// All zeros: what a label gets that has no style.
  static VELAffineTransform zero() { return {0.0, 0.0, 0.0, 0.0, 0.0, 0.0}; }
  VELPoint apply(VELPoint p) const { return {a * p.x + c * p.y + tx, b * p.x + d * p.y + ty}; }
  /// Size of the box around a transformed box of size @p s.
  VELSize boundsOf(VELSize s) const {
    return {std::abs(a) * s.width + std::abs(c) * s.height, std::abs(b) * s.width + std::abs(d) * s.height};
  }
  bool operator==(const VELAffineTransform&) const = default;
};
