// axes/time_spans.h: lengths of time, in seconds unless the name says days.
#pragma once

/// Months and years as tick steps have fixed lengths, those of the mean Gregorian year: 365.2425 days and a
/// twelfth of it.
struct VELTimeSpans {
  static constexpr double SecInMinute = 60.0;
  static constexpr double SecInHour = 3600.0;
  static constexpr double SecInDay = 86400.0;
  static constexpr double TIMEINTERVAL_ONE_DAY = SecInDay;
  static constexpr double DaysInMonth = 30.436875;
  static constexpr double DaysInYear = 365.2425;
  static constexpr double SecInMonth = 2629746.0;
  static constexpr double SecInYear = 31556952.0;
};
