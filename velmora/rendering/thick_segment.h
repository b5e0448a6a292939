// rendering/thick_segment.h: which way a thick line widens.
#pragma once

#include <cfloat>
#include <cmath>

/// The two offsets from a segment's ends to its edges are +(x, y) and −(x, y), in points. A line is thus
/// twice as wide as its pen's thickness; that is meant, and the pens of this library are set with it in mind.
struct VELThickSegment {
  float x;
  float y;
};

/// Edge offset of the segment from (px, py) to (qx, qy), all finite. The side that + points to swaps where a
/// line changes its vertical direction; polylines know that and turn the strip over.
///
/// Never NaN. The normal is (s, −k·s) with k = (px − qx) / (py − qy) and s = 1 / √(k² + 1).
inline VELThickSegment VELMakeThickSegment(double px, double py, double qx, double qy, float thickness) {
  if (px == qx) return {thickness, 0.0f * thickness};
  if (py == qy) return {0.0f * thickness, thickness};
  const double k = (px - qx) / (py - qy);
  const double s = std::sqrt(1.0 / (k * k + 1.0));
  // Flatter than a double can tell from horizontal: 0 × ∞ must not become NaN.
  const double y = s == 0.0 ? std::copysign(1.0, -k) : -k * s;
  return {static_cast<float>(s) * thickness, static_cast<float>(y) * thickness};
}
