// axes/date_time_tick_provider.h: ticks at steps of the clock and of the local calendar.
//
// Units: seconds since 1970 for moments, seconds for steps.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/axes/month_starts.h"
#include "velmora/axes/time_span_tick_provider.h"
#include "velmora/platform/calendar.h"
#include "velmora/platform/date.h"
#include "velmora/platform/export.h"

/// Ticks of date-time axes.
///
/// A step of whole months or years (of `VELTimeSpans`) lists local midnights on the first of a month, as the
/// calendar of the axis has them, counted from January of year 0: quarters start in January, April, July and
/// October, and ticks stay where they are when the range moves. Any other step lists its multiples since
/// 1970. The operations on single moments add months and years as fixed lengths; chained, they would leave
/// the first of the month at the second tick, which is why the lists do not chain them.
///
/// The lists therefore never ask `roundUp`, `addDelta` or `isDateDivisible`: a kind of time of one's own
/// derives from `VELTimeSpanTickProviderBase`, whose lists do, or overrides the two p_VEL_get… operations.
/// A minor tick within 0.001 s of a major one is dropped; where minors are less than 0.004 s apart, one
/// within a quarter of their step.
class VELMORA_API VELDateTimeTickProvider : public VELTimeSpanTickProviderBase {
 public:
  /// On the calendar of this very axis, whichever the provider was last bound to.
  std::shared_ptr<VELArrayController> getMajorTicksFromAxis(const VELAxisCore& axis) override;
  std::shared_ptr<VELArrayController> getMinorTicksFromAxis(const VELAxisCore& axis) override;

  double getTicks(const VELGenericType& value) const override;
  /// The moment itself when its local day is one on which a step begins, at whatever time of that day; else
  /// the local midnight of the next such day. Other steps: the next multiple since 1970.
  double roundUp(double value, double delta) const override;
  /// Adds whole years and months as their fixed lengths.
  double addDelta(double value, double delta) const override;
  /// The sum is finite.
  bool isAdditionValid(double value, double delta) const override;
  /// Whole years on any local 1 January and whole months on any first of a month, however many the step
  /// counts; other steps within 0.001 s of a multiple.
  bool isDateDivisible(double value, double delta) const override;
  /// Local midnight on the first of a month; months from 13 on roll over into the years after.
  VELDate p_VEL_newAlignedDateTime(int32_t year, int32_t month) const;

 protected:
  void p_VEL_getMajorTicksWithRange(const VELRange& range, const VELAxisDelta& delta,
                                    VELArrayController& ticks) override;
  void p_VEL_getMinorTicksWithRange(const VELRange& range, const VELAxisDelta& delta,
                                    VELArrayController& ticks) override;

 private:
  /// The calendar of the axis whose list is being made, else of `axis()`; that of the process where there is
  /// none.
  const VELCalendar& calendar() const;

  const VELAxisCore* _listedAxis = nullptr;  ///< only while its list is being made
  VELMonthStarts _months;
};
