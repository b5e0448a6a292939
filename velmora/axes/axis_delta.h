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

  std::shared_ptr<VELAxisDelta> clone() const;
  /// Both spacings are equal by `VELGenericCompare`.
  bool equals(const VELAxisDelta& other) const;
};

/// Tick spacing in data units, as doubles; 0 and 0 by default.
struct VELMORA_API VELDoubleAxisDelta : VELAxisDelta {
  VELDoubleAxisDelta() = default;
  VELDoubleAxisDelta(double minor, double major) : VELAxisDelta(minor, major) {}
  std::shared_ptr<VELDoubleAxisDelta> clone() const;
};

/// Tick spacing in seconds; 0 and 0 by default. A whole number of `VELTimeSpans::SecInMonth` stands for
/// months of the calendar, one of `VELTimeSpans::SecInYear` for its years.
struct VELMORA_API VELTimeSpanDelta : VELAxisDelta {
  VELTimeSpanDelta() = default;
  VELTimeSpanDelta(double minor, double major) : VELAxisDelta(minor, major) {}
  std::shared_ptr<VELTimeSpanDelta> clone() const;
};
