// platform/date_test.cpp: dates as text and in parts.
#include "velmora/platform/date.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <string>

#include "velmora/platform/calendar.h"
#include "velmora/platform/date_formatter.h"
#include "velmora/platform/locale.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kLeapDay2024 = 1709164800.0;  // 2024-02-29 00:00 UTC

}  // namespace

TEST(DateFormatter, DatesReadAsInTheirPlaceAndPattern) {
  const struct {
    const char* pattern;
    const char* locale;
    const char* zone;
    double seconds;
    const char* text;
  } rows[] = {
      {"yyyy-MM-dd HH:mm", "en_US", "Europe/Berlin", kLeapDay2024, "2024-02-29 01:00"},
      {"dd MMM", "de", "UTC", kLeapDay2024, "29 Feb."},
      {"yyyy", "th_TH", "UTC", kLeapDay2024, "2024"},                // where people count from another year
      {"e", "en_US", "UTC", kLeapDay2024, "5"},                      // a Thursday; weeks begin on Sunday
      {"yyyy-MM-dd", "en_US", "UTC", -12219724800.0, "1582-10-10"},  // a day that the old calendars left out
      {"yyyy", "en_US", "UTC", kNaN, ""},
  };
  for (const auto& row : rows)
    EXPECT_EQ(VELDateFormatter(row.pattern, row.locale, row.zone).stringFromDate(VELDate(row.seconds)),
              row.text);
  for (const double far : {1e300, -1e300, 1e14})
    EXPECT_FALSE(VELDateFormatter().stringFromDate(VELDate(far)).empty()) << far;
}

TEST(ProcessHabitsDeathTest, TimeZoneAndLocaleComeFromTheEnvironmentUnlessTheyAreUnknown) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // a fresh process, which has asked for no zone yet
  const std::array<std::string, 5> rows[] = {
      // TZ, LC_ALL, LC_TIME, LANG, what comes of them
      {"Asia/Tokyo", "", "de_DE.UTF-8", "fr_FR", "Asia/Tokyo de_DE"},
      {"Mars/Phobos", "pt-BR", "de_DE", "fr_FR", "UTC pt_BR"},
      {"", "", "", "C.UTF-8", "UTC en_US"},
      {":Europe/Berlin", "POSIX", "de_DE", "", "Europe/Berlin en_US"},
      {"UTC", "", "", "klingon", "UTC en_US"},
  };
  for (const auto& row : rows)
    EXPECT_EXIT(
        {
          size_t at = 0;
          for (const char* name : {"TZ", "LC_ALL", "LC_TIME", "LANG"}) setenv(name, row[at++].c_str(), 1);
          std::cerr << VELCalendar::current()->timeZone() << ' ' << VELCurrentLocale();
          std::exit(VELCalendar::current() == VELCalendar::current() ? 0 : 1);
        },
        testing::ExitedWithCode(0), row[4]);
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
}
