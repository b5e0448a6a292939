// axes/axis_delta.h: the distance between ticks.
#pragma once

#include <memory>

#include "velmora/data/generic_type.h"
#include "velmora/platform/export.h"

/// Major and minor tick spacing of an axis. A plain value.
struct VELMORA_API VELAxisDelta {
  VELAxisDelta() = default;
  VELAxisDelta(const VELGenericType& minor, const VELGenericType& major)
      : minorDelta(minor), majorDelta(major) {}

  VELGenericType minorDelta = 0.0;
  VELGenericType majorDelta = 0.0;
};

/// Tick spacing in data units, as doubles; 0 and 0 by default.
struct VELMORA_API VELDoubleAxisDelta : VELAxisDelta {
  VELDoubleAxisDelta() = default;
  VELDoubleAxisDelta(double minor, double major) : VELAxisDelta(minor, major) {}
  std::shared_ptr<VELDoubleAxisDelta> clone() const;
  /// Both spacings are equal by `VELGenericCompare`.
  bool equals(const VELDoubleAxisDelta& other) const;
};
