// axes/month_starts.h: when the months of a local calendar begin.
//
// Units: seconds since 1970. Months are counted from January of year 0, which is month 0.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "velmora/platform/calendar.h"

/// Midnights at which months begin in a time zone, remembered: the calendar takes a microsecond to say one.
///
/// Always true: months from -`farthestMonth` to `farthestMonth` have a start, and starts ascend.
class VELMonthStarts {
 public:
  /// Five million years, as far as the calendar counts.
  static constexpr int64_t farthestMonth = 60'000'000;

  /// Whose months are asked for from now on; it must live until the last call. Starts of another time zone
  /// are forgotten.
  void setCalendar(const VELCalendar& calendar);

  /// Local midnight of the first of the month, or the first moment of that day where there is no midnight.
  /// A month out of reach counts as the last one that is not.
  double startOf(int64_t month);
  /// The month that a moment belongs to; finite moments only.
  int64_t monthOf(double moment);

 private:
  // Twenty years without a collision; more only costs time.
  static constexpr int64_t kSlots = 256;
  struct Slot {
    int64_t month = INT64_MIN;
    double start = 0.0;
  };

  const VELCalendar* _calendar = nullptr;
  std::string _timeZone;
  std::array<Slot, kSlots> _slots;
};
