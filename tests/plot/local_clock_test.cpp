// Which moment the clocks of a place mean.
#include "examples/plot/local_clock.h"

#include <gtest/gtest.h>

namespace {

TEST(LocalClock, MeansWhatTheCalendarSaysAlsoAroundClocksThatAreSet) {
  // Summer time comes and goes, a zone changes inside a quarter of an hour, a day is left out.
  const struct {
    const char* zone;
    const char* around;
  } rows[] = {{"Europe/Berlin", "2004-03-28T02:00"},
              {"Europe/Berlin", "2004-10-31T03:00"},
              {"Europe/Amsterdam", "1940-05-16T00:00"},
              {"Pacific/Apia", "2011-12-30T00:00"}};
  for (const auto& row : rows) {
    LocalClock clock(row.zone);
    const VELCalendar calendar(row.zone), utc;
    const double middle = parseIsoDate(row.around)->seconds;
    for (double seconds = middle - 5400.0; seconds < middle + 5400.0; seconds += 97.25) {
      const double expected =
          calendar.dateFromComponents(*utc.componentsFromDate(VELDate(seconds))).timeIntervalSince1970();
      EXPECT_NEAR(clock.secondsOf({seconds, true}), expected, 1e-6) << row.zone << ' ' << seconds - middle;
      EXPECT_EQ(clock.secondsOf({seconds, false}), seconds);
    }
  }
}

}  // namespace
