// axes/axis_params.h: the state of an axis from which a coordinate calculator is made.
#pragma once

#include <limits>
#include <memory>

#include "velmora/data/range.h"
#include "velmora/platform/export.h"

class VELPointSeries;

/// A snapshot of an axis. Units: points for size and offset, data units for the visible bounds.
struct VELMORA_API VELAxisParams {
  bool flipCoordinates = false;
  double size = 0.0;    ///< length of the axis
  double offset = 0.0;  ///< from the start of the chart frame
  double visibleMax = std::numeric_limits<double>::quiet_NaN();
  double visibleMin = std::numeric_limits<double>::quiet_NaN();
  bool isPolarAxis = false;
  bool isCategoryAxis = false;
  bool isLogarithmicAxis = false;
  double logarithmicBase = 0.0;
  bool isXAxis = false;
  bool isHorizontal = false;
  std::shared_ptr<const VELPointSeries> categoryPointSeries;
  VELRangePtr pointRange;
  double dataPointWidth = 0.0;
  double barTimeFrame = 0.0;

  /// Offset and polar flag take no part, and parameters without a point range equal nothing, not even
  /// themselves: both are meant.
  bool equals(const VELAxisParams& other) const;
};
