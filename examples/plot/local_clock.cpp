#include "examples/plot/local_clock.h"

#include <cmath>

namespace {

constexpr double kQuarter = 900.0;

}  // namespace

LocalClock::LocalClock(const std::string& timeZone)
    : _calendar(timeZone.empty() ? VELCalendar::current() : std::make_shared<const VELCalendar>(timeZone)) {}

double LocalClock::asked(double clockSeconds) const {
  const auto clock = _utc.componentsFromDate(VELDate(clockSeconds));
  return clock ? _calendar->dateFromComponents(*clock).timeIntervalSince1970() : clockSeconds;
}

double LocalClock::secondsOf(const IsoDate& date) {
  if (!date.isLocal || !std::isfinite(date.seconds)) return date.seconds;
  const double quarter = std::floor(date.seconds / kQuarter);
  if (quarter != _quarter) {
    _quarter = quarter;
    _offset = quarter * kQuarter - asked(quarter * kQuarter);
    // Clocks that are set inside the quarter have two offsets there.
    constexpr double kBeforeTheNext = 1.0 / 1024.0;
    const double last = (quarter + 1.0) * kQuarter - kBeforeTheNext;
    _offsetHolds = last - asked(last) == _offset;
  }
  return _offsetHolds ? date.seconds - _offset : asked(date.seconds);
}
