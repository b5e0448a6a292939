#include "velmora/axes/month_starts.h"

#include <algorithm>
#include <cmath>

#include "velmora/axes/time_spans.h"

namespace {

constexpr int64_t kMonthsPerYear = 12;
constexpr double kMonthOf1970 = 1970.0 * kMonthsPerYear;

int64_t floorDiv(int64_t a, int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }

}  // namespace

void VELMonthStarts::setCalendar(const VELCalendar& calendar) {
  _calendar = &calendar;
  if (_timeZone == calendar.timeZone()) return;
  _timeZone = calendar.timeZone();
  _slots.fill({});
}

double VELMonthStarts::startOf(int64_t month) {
  month = std::clamp(month, -farthestMonth, farthestMonth);
  Slot& slot = _slots[static_cast<size_t>(month - floorDiv(month, kSlots) * kSlots)];
  if (slot.month == month) return slot.start;
  const int64_t year = floorDiv(month, kMonthsPerYear);
  VELDateComponents first;
  first.year = static_cast<int32_t>(year);
  first.month = static_cast<int32_t>(month - year * kMonthsPerYear) + 1;
  slot = {month, _calendar->dateFromComponents(first).timeIntervalSince1970()};
  return slot.start;
}

// Months of the mean length never run more than a few days from those of the calendar: the guess is at most
// one month off.
int64_t VELMonthStarts::monthOf(double moment) {
  constexpr double kFarthest = static_cast<double>(farthestMonth);
  const double guess = std::floor(moment / VELTimeSpans::SecInMonth) + kMonthOf1970;
  auto month = static_cast<int64_t>(std::clamp(guess, -kFarthest, kFarthest));
  if (startOf(month) > moment && month > -farthestMonth) return month - 1;
  if (month < farthestMonth && startOf(month + 1) <= moment) return month + 1;
  return month;
}
