// plot/local_clock.h: which moment the clocks of a place mean.
#pragma once

#include <limits>
#include <memory>
#include <string>

#include "examples/plot/iso_date.h"
#include "velmora/platform/calendar.h"

/// Turns dates as they are written into moments. Dates close to each other, as rows mostly are, cost a
/// subtraction: the calendar is asked once per quarter of an hour.
class LocalClock {
 public:
  /// @param timeZone IANA name; empty for that of the process
  explicit LocalClock(const std::string& timeZone);

  /// Seconds since 1970; NaN stays NaN.
  double secondsOf(const IsoDate& date);

 private:
  double asked(double clockSeconds) const;

  std::shared_ptr<const VELCalendar> _calendar;
  VELCalendar _utc{"UTC"};
  // The quarter that was asked for last: inside it clocks are ahead by one offset.
  double _quarter = std::numeric_limits<double>::quiet_NaN();
  double _offset = 0.0;
  bool _offsetHolds = false;
};
