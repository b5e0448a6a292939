// axes/numeric_tick_provider.h: ticks at the multiples of a step.
#pragma once

#include <memory>

#include "velmora/axes/axis_delta.h"
#include "velmora/axes/tick_provider.h"
#include "velmora/data/range.h"
#include "velmora/platform/export.h"

/// Ticks of numeric axes.
///
/// Always true: a tick is (first + k) × step with first the whole number of steps at or above the minimum,
/// never a running sum; the last one is the maximum itself where it lies beyond it by less than 1e-10 of a
/// step; ticks ascend; no list is longer than `maxTicksPerPass`; the major list holds multiples of the major
/// step alone and the minor list none of them, unless both steps are equal: then both lists are.
class VELMORA_API VELNumericTickProvider : public VELTickProvider {
 public:
  /// Below this a minor step is no use (data units).
  static constexpr double MinDeltaValue = 1e-13;

  std::shared_ptr<VELArrayController> getMajorTicksFromAxis(const VELAxisCore& axis) override;
  std::shared_ptr<VELArrayController> getMinorTicksFromAxis(const VELAxisCore& axis) override;

  /// @param range both ends included
  /// @return null for a range that is inverted or has a NaN bound, and for a minor step that is NaN or below
  ///         `MinDeltaValue`; an empty list where no tick lies in the range, it is infinite, or the major
  ///         step is not above 0
  virtual std::shared_ptr<VELArrayController> calculateMajorTicksWithRange(const VELRange& range,
                                                                           const VELAxisDelta& delta);
  /// As above, whatever the major step: one of 0 or NaN leaves every minor tick.
  virtual std::shared_ptr<VELArrayController> calculateMinorTicksWithRange(const VELRange& range,
                                                                           const VELAxisDelta& delta);

 protected:
  /// Whether there can be ticks. Both passes look at the minor step, on purpose.
  static bool p_VEL_isParamsValidRange(const VELRange& range, const VELAxisDelta& delta);

 private:
  static void p_VEL_calculateTicksWithRange(const VELRange& range, double step, double majorDelta,
                                            VELArrayController& ticks);
};
