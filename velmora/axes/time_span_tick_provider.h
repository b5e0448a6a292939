// axes/time_span_tick_provider.h: ticks at steps of time, for kinds of time that say what a step is.
//
// Units: seconds since 1970 for moments, seconds for steps. Steps of the calendar are
// axes/date_time_tick_provider.h.
#pragma once

#include <memory>

#include "velmora/axes/axis_delta.h"
#include "velmora/axes/tick_provider.h"
#include "velmora/data/generic_type.h"
#include "velmora/data/range.h"
#include "velmora/platform/export.h"

/// Walks from tick to tick with the operations of its kind.
///
/// Always true: lists are VELDataType_DateTime columns, never null; ticks ascend; no list is longer than
/// `maxTicksPerPass`, and no walk takes more than twice as many steps.
class VELMORA_API VELTimeSpanTickProviderBase : public VELTickProvider {
 public:
  std::shared_ptr<VELArrayController> getMajorTicksFromAxis(const VELAxisCore& axis) override;
  std::shared_ptr<VELArrayController> getMinorTicksFromAxis(const VELAxisCore& axis) override;

  // For the kinds of time. Here they raise VELInternalInconsistencyException
  // "roundUp:Delta: must be implemented in subclass", each with its own name.
  /// A bound of the visible range as a moment.
  virtual double getTicks(const VELGenericType& value) const;
  /// The first tick at or after a moment.
  virtual double roundUp(double value, double delta) const;
  /// The moment one step later.
  virtual double addDelta(double value, double delta) const;
  /// Whether a step can be made from here.
  virtual bool isAdditionValid(double value, double delta) const;
  /// Whether a moment stands on a step.
  virtual bool isDateDivisible(double value, double delta) const;

 protected:
  /// Whether there can be ticks, both ends and the step known.
  bool p_VEL_assertRangesValid(const VELRange& range, double delta) const;
  /// Fills an empty list. Range and step were found valid.
  virtual void p_VEL_getMajorTicksWithRange(const VELRange& range, const VELAxisDelta& delta,
                                            VELArrayController& ticks);
  /// The same for minor ticks: strictly inside the range, and none on a major one.
  virtual void p_VEL_getMinorTicksWithRange(const VELRange& range, const VELAxisDelta& delta,
                                            VELArrayController& ticks);
};
