// axes/numeric_tick_provider.h: ticks at the multiples of a step.
#pragma once

#include <memory>

#include "velmora/axes/axis_delta.h"
#include "velmora/axes/tick_provider.h"
#include "velmora/platform/export.h"

/// Ticks of numeric axes.
///
/// Always true: a tick is start + k × step, never a running sum; ticks ascend; no list is longer than
/// `maxTicksPerPass`; the major list holds multiples of the major step alone and the minor
/// list none of them, unless both steps are equal: then both lists are.
class VELMORA_API VELNumericTickProvider : public VELTickProvider {
 public:
  /// What one list holds at most, whatever range and step an application sets.
  static constexpr int64_t maxTicksPerPass = 10'000;
  /// Below this a minor step is no use (data units).
  static constexpr double MinDeltaValue = 1e-13;

  std::shared_ptr<VELArrayController> getMajorTicksFromAxis(const VELAxisCore& axis) override;
  std::shared_ptr<VELArrayController> getMinorTicksFromAxis(const VELAxisCore& axis) override;

  /// @param min, max ends of the range, both inclusive; null when they or the steps are no use
  std::shared_ptr<VELArrayController> calculateMajorTicksWithRange(double min, double max,
                                                                   const VELAxisDelta& delta);
  std::shared_ptr<VELArrayController> calculateMinorTicksWithRange(double min, double max,
                                                                   const VELAxisDelta& delta);

 private:
  std::shared_ptr<VELArrayController> _majorTicks;
  std::shared_ptr<VELArrayController> _minorTicks;
};
