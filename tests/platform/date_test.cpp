// platform/date_test.cpp: dates as text and in parts.
#include "velmora/platform/date.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include "velmora/platform/calendar.h"
#include "velmora/platform/date_formatter.h"
#include "velmora/platform/exception.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kLeapDay2024 = 1709164800.0;  // 2024-02-29 00:00 UTC

void expectNamed(const std::string& name, const std::function<void()>& act) {
  try {
    act();
    FAIL() << name;
  } catch (const VELInvalidArgumentException& exception) {
    EXPECT_NE(std::string(exception.what()).find("\"" + name + "\""), std::string::npos) << exception.what();
  }
}

}  // namespace

TEST(DateFormatter, DatesReadAsInTheirPlaceAndPattern) {
  const struct {
    const char* pattern;
    const char* locale;
    const char* zone;
    double seconds;
    const char* text;
  } rows[] = {
      {"yyyy-MM-dd", "en_US", "UTC", 0.0, "1970-01-01"},
      {"yyyy-MM-dd HH:mm", "en_US", "Europe/Berlin", kLeapDay2024, "2024-02-29 01:00"},
      {"dd MMM", "de", "UTC", kLeapDay2024, "29 Feb."},
      {"dd MMM", "en_US", "America/New_York", kLeapDay2024, "28 Feb"},
      {"hh:mm:ss", "en_US", "UTC", 13.5 * 3600.0, "01:30:00"},
      {"yyyy-MM-dd", "en_US", "UTC", -0.5, "1969-12-31"},
      {"yyyy-MM-dd", "en_US", "UTC", -12219724800.0, "1582-10-10"},  // a day that the old calendars left out
      {"yyyy", "en_US", "UTC", kNaN, ""},
      {"yyyy", "en_US", "UTC", -kInf, ""},
  };
  for (const auto& row : rows)
    EXPECT_EQ(VELDateFormatter(row.pattern, row.locale, row.zone).stringFromDate(VELDate(row.seconds)),
              row.text);
  for (const double far : {1e300, -1e300, 1e14})
    EXPECT_FALSE(VELDateFormatter().stringFromDate(VELDate(far)).empty()) << far;
}

TEST(DateFormatter, AWrongPatternZoneOrLocaleIsNamedAndTheOldOneStays) {
  VELDateFormatter formatter("yyyy", "en_US", "Asia/Tokyo");
  expectNamed("yyyy nn", [&] { formatter.setPattern("yyyy nn"); });
  expectNamed("Mars/Phobos", [&] { formatter.setTimeZone("Mars/Phobos"); });
  expectNamed("xx", [] { VELDateFormatter("yyyy", "xx"); });
  EXPECT_EQ(formatter.stringFromDate(VELDate(0.0)), "1970");
  EXPECT_EQ(formatter.timeZone(), "Asia/Tokyo");
  formatter.setPattern("");
  EXPECT_EQ(formatter.stringFromDate(VELDate(0.0)), "");
  formatter.setPattern("HH");
  EXPECT_EQ(formatter.stringFromDate(VELDate(0.0)), "09");
}

TEST(Calendar, ADateHasItsPartsAndComesBackFromThem) {
  const struct {
    const char* zone;
    double seconds;
    VELDateComponents parts;
  } rows[] = {
      {"UTC", 0.0, {1970, 1, 1, 0, 0, 0.0, 4, 1}},
      {"UTC", kLeapDay2024 + 86399.75, {2024, 2, 29, 23, 59, 59.75, 4, 60}},
      {"UTC", -0.25, {1969, 12, 31, 23, 59, 59.75, 3, 365}},
      {"Europe/Berlin", kLeapDay2024, {2024, 2, 29, 1, 0, 0.0, 4, 60}},
      {"Asia/Kolkata", kLeapDay2024, {2024, 2, 29, 5, 30, 0.0, 4, 60}},
      {"UTC", -62167219200.0, {0, 1, 1, 0, 0, 0.0, 6, 1}},
      {"UTC", -62167219201.0, {-1, 12, 31, 23, 59, 59.0, 5, 365}},
  };
  for (const auto& row : rows) {
    const VELCalendar calendar(row.zone);
    EXPECT_EQ(calendar.componentsFromDate(VELDate(row.seconds)), row.parts) << row.seconds;
    EXPECT_EQ(calendar.dateFromComponents(row.parts), VELDate(row.seconds)) << row.seconds;
  }
}

TEST(Calendar, PartsBeyondTheirRangeRollOver) {
  const VELCalendar calendar;
  const auto date = [&](const VELDateComponents& parts) { return calendar.dateFromComponents(parts); };
  EXPECT_EQ(date({2023, 13, 1}), date({2024, 1, 1}));
  EXPECT_EQ(date({2024, 3, 0}), date({2024, 2, 29}));
  EXPECT_EQ(date({2024, -11, 1}), date({2023, 1, 1}));
  EXPECT_EQ(date({2024, 1, 1, 25, -1, 90.5}), date({2024, 1, 2, 1, 0, 30.5}));
  EXPECT_EQ(date({2024, 1, 1, 0, 0, kNaN}), date({2024, 1, 1}));
}

TEST(Calendar, ClocksThatChangeAreFollowed) {
  const VELCalendar berlin("Europe/Berlin");
  const double spring = 1711846800.0, autumn = 1729990800.0;  // 2024-03-31 and 2024-10-27, 01:00 UTC
  EXPECT_EQ(berlin.dateFromComponents({2024, 3, 31, 2, 30}), VELDate(spring + 1800.0)) << "half past three";
  EXPECT_EQ(berlin.dateFromComponents({2024, 10, 27, 2, 30}), VELDate(autumn - 1800.0)) << "the first of two";
  EXPECT_EQ(berlin.componentsFromDate(VELDate(autumn + 1800.0))->hour, 2);
}

TEST(Calendar, DatesBeyondAllYearsDoNoHarm) {
  const VELCalendar calendar;
  for (const double odd : {kNaN, kInf, -kInf})
    EXPECT_EQ(calendar.componentsFromDate(VELDate(odd)), std::nullopt);
  EXPECT_EQ(calendar.componentsFromDate(VELDate(1e300)), calendar.componentsFromDate(VELDate(1e250)));
  constexpr int32_t kMost = std::numeric_limits<int32_t>::max(), kLeast = std::numeric_limits<int32_t>::min();
  for (const int32_t part : {kMost, kLeast}) {
    const VELDate date = calendar.dateFromComponents({part, part, part, part, part, kInf});
    EXPECT_TRUE(calendar.componentsFromDate(date)) << part;
  }
  expectNamed("Nowhere", [] { VELCalendar("Nowhere"); });
  expectNamed("", [] { VELCalendar(""); });
}
