// axes/date_grid.h: all moments that are multiples of one step of time.
//
// Units: seconds since 1970 for moments, seconds for steps.
#pragma once

#include "velmora/axes/month_starts.h"

/// The ticks of a step, numbered. A step of whole months stands on the local calendar, tick 0 being 1 January
/// of year 0; any other step counts from 1970.
///
/// Always true: `at` never falls from one index to the next.
class VELDateGrid {
 public:
  /// @param months must outlive the grid
  VELDateGrid(double delta, VELMonthStarts& months);

  /// Index of the first tick at or after a finite moment; not finite where there is none.
  double firstIndex(double moment);
  /// The tick of a whole index; infinity beyond the end of the calendar.
  double at(double index);
  /// Whether a tick is within @p tolerance seconds.
  bool isNear(double moment, double tolerance);

 private:
  double _factor;
  double _divisor = 1.0;
  int64_t _monthsPerStep = 0;  ///< 0 where the step is none of the calendar
  VELMonthStarts& _months;
};
