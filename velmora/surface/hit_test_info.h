// surface/hit_test_info.h: what of a series lies under a finger.
//
// Units: points relative to the chart frame for places and distances, data units for values (seconds since
// 1970 on a date axis, the index of the category on a category axis).
#pragma once

#include <cstdint>
#include <limits>

#include "velmora/platform/geometry.h"

/// Which point of a series a hit test answers with.
enum VELHitTestMode : int32_t {
  /// The point whose place along the X axis is nearest; of several at one place, the nearest of them.
  VELHitTestMode_NearestX = 0,
  /// The point that is nearest on the screen.
  VELHitTestMode_Nearest = 1,
  /// The place on the drawn line that has the touched place along the X axis, the nearest one where the line
  /// passes there several times. Beside the line as NearestX.
  VELHitTestMode_Interpolate = 2,
};

/// The answer of a hit test.
///
/// Always true: without a point both indices are -1, the values and the distance are NaN and nothing is hit.
/// In every mode `distance` is the one to the drawn line, and a hit is a distance within the radius.
struct VELHitTestInfo {
  static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

  VELPoint hitPoint;        ///< where was asked
  bool isHit = false;       ///< the drawn line runs within the radius
  double distance = kNone;  ///< from `hitPoint` to the drawn line
  int32_t pointIndex = -1;  ///< among the drawn points of the last pass
  int32_t dataIndex = -1;   ///< the same point in the data series, as it was in that pass
  double xValue = kNone;    ///< of that point, or between two points when interpolated
  double yValue = kNone;    ///< as above
  VELPoint screenPoint;     ///< where these values are drawn; (0, 0) without a point

  bool hasPoint() const { return pointIndex >= 0; }
};
