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
      {"yyyy-MM-dd HH:mm", "en_US", "Europe/Berlin", kLeapDay2024, "2024-02-29 01:00"},
      {"dd MMM", "de", "UTC", kLeapDay2024, "29 Feb."},
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
