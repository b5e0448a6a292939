#include <cstdio>

#include "tests/axes/tick_lists.h"
#include "velmora/axes/date_time_axis.h"
#include "velmora/axes/tick_provider.h"
#include "velmora/axes/time_spans.h"
#include "velmora/platform/date_formatter.h"

namespace {

constexpr double kHour = VELTimeSpans::SecInHour, kDay = VELTimeSpans::SecInDay,
                 kMonth = VELTimeSpans::SecInMonth, kYear = VELTimeSpans::SecInYear;
constexpr double kAuto = 0.0;

/// "2024-02-29" or "2024-02-29T13:45", on the clocks of the calendar.
double momentOf(const VELCalendar& calendar, const std::string& text) {
  VELDateComponents parts;
  std::sscanf(text.c_str(), "%d-%d-%dT%d:%d", &parts.year, &parts.month, &parts.day, &parts.hour,
              &parts.minute);
  return calendar.dateFromComponents(parts).timeIntervalSince1970();
}

/// The other way round, to the hour: "20240229T13".
std::string textOf(const VELCalendar& calendar, double moment) {
  return VELDateFormatter("uMMdd'T'HH", "en_US", calendar.timeZone()).stringFromDate(VELDate(moment));
}

/// An axis in a time zone, and the lists that its provider gives for a range.
struct DateTicks {
  std::shared_ptr<VELDateTimeAxis> axis = std::make_shared<VELDateTimeAxis>();
  std::shared_ptr<VELTickProvider> asked = axis->tickProvider();
  std::vector<double> majors, minors;

  explicit DateTicks(const std::string& zone = "UTC") { axis->setTimeZone(zone); }
  void list(double from, double to, double minor, double major) {
    axis->setVisibleRange(std::make_shared<VELDateRange>(from, to));
    axis->setMajorDelta(major);
    axis->setMinorDelta(minor);
    axis->setAutoTicks(major == kAuto);
    axis->calculateDelta();
    majors = listOf(asked->getMajorTicksFromAxis(*axis));
    minors = listOf(asked->getMinorTicksFromAxis(*axis));
  }
  std::string textsOf(const std::vector<double>& moments) const {
    std::string texts;
    for (const double moment : moments) texts += textOf(axis->calendar(), moment) + " ";
    return texts;
  }
};

TEST(DateTicks, StandOnTheLocalCalendarWhateverItsClocksDo) {
  const char *berlin = "Europe/Berlin", *newYork = "America/New_York", *utc = "UTC";
  const struct {
    const char *zone, *from, *to;
    double minor, major;
    const char* majors;
    size_t minors;
    const char* minorTexts = nullptr;
  } rows[] = {// Both changes of both zones lie between the months.
              {berlin, "2024-01-31T13:00", "2024-05-01", 14 * kDay, kMonth,
               "20240201T00 20240301T00 20240401T00 20240501T00 ", 7},
              {newYork, "2023-09-15", "2024-04-30", kMonth, 3 * kMonth,
               "20231001T00 20240101T00 20240401T00 ", 4, "20231101T00 20231201T00 20240201T00 20240301T00 "},
              // Here the first of October began at one o'clock.
              {"America/Asuncion", "2023-08-20", "2023-11-02", 14 * kDay, kMonth,
               "20230901T00 20231001T01 20231101T00 ", 5},
              {utc, "2024-02-28", "2024-03-01T12:00", kDay / 2, kDay, "20240228T00 20240229T00 20240301T00 ",
               2, "20240228T12 20240229T12 "},
              {berlin, "2024-03-31T00:30", "2024-03-31T04:00", 1800, kHour,
               "20240331T01 20240331T03 20240331T04 ", 2},
              {newYork, "2000-06-01", "2021-03-01", kAuto, kAuto,
               "20050101T00 20100101T00 20150101T00 20200101T00 ", 17}};
  for (const auto& row : rows) {
    DateTicks ticks(row.zone);
    const VELCalendar& calendar = ticks.axis->calendar();
    ticks.list(momentOf(calendar, row.from), momentOf(calendar, row.to), row.minor, row.major);
    EXPECT_EQ(ticks.textsOf(ticks.majors), row.majors) << row.zone << " " << row.from;
    EXPECT_EQ(ticks.minors.size(), row.minors) << row.zone << " " << row.from;
    EXPECT_EQ(ticks.textsOf(ticks.minors), row.minorTexts ? row.minorTexts : ticks.textsOf(ticks.minors));
  }
}

TEST(DateTicks, HaveAnEndWhateverRangeAndStep) {
  DateTicks ticks("America/New_York");
  for (const auto& [from, to] : std::vector<std::pair<double, double>>{
           {0, 1e-9}, {1.7e9, 1.7e9 + 1e-6}, {-1e308, 1e308}, {-9.2e18, 9.2e18}, {-1.9e11, 3.2e11}, {5, 5}}) {
    for (const double step :
         {kAuto, 1e-12, 1.0, kMonth, 7 * kMonth, 1e6 * kYear, 1e300, -1.0, -kMonth, kNaN, kInf}) {
      ticks.list(from, to, step / 4, step);
      for (const auto* list : {&ticks.majors, &ticks.minors}) {
        EXPECT_LE(list->size(), 10'000u);
        for (size_t i = 1; i < list->size(); ++i)
          ASSERT_LT((*list)[i - 1], (*list)[i]) << from << " " << step;
        EXPECT_TRUE(list->empty() || (list->front() >= from && list->back() <= to)) << from << " " << step;
      }
    }
  }
  ticks.list(0, 1, 0.02, 0.1);
  EXPECT_EQ(ticks.majors.size(), 11u);
  EXPECT_EQ(ticks.majors[3], 0.3);
}

}  // namespace
