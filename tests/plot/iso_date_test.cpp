#include "examples/plot/iso_date.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

TEST(IsoDate, ReadsDatesOffsetsAndLocalTimes) {
  constexpr double kDay = 86400.0, kAugust19 = 12649.0 * kDay;  // 2004
  struct Row {
    const char* text;
    double seconds;
    bool isLocal;
  };
  const Row rows[] = {
      {"2004-08-19", kAugust19, true},
      {"2004-08-19 14:30:05", kAugust19 + 52205, true},
      {"2004-08-19 14:30:05,25", kAugust19 + 52205.25, true},
      {"2004-08-19T14:30:05.250Z", kAugust19 + 52205.25, false},
      {"2004-08-19T14:30+02:00", kAugust19 + 45000, false},
      {"2004-08-19T14:30+0530", kAugust19 + 32400, false},
      {"2004-08-19 14:30:00-05", kAugust19 + 70200, false},
      {"2004-08-19T24:00Z", kAugust19 + kDay, false},
      {"1969-12-31T23:59:59Z", -1, false},
      {"0000-03-01", -719468 * kDay, true},
  };
  for (const Row& row : rows) {
    const auto date = parseIsoDate(row.text);
    ASSERT_TRUE(date) << row.text;
    EXPECT_EQ(date->seconds, row.seconds) << row.text;
    EXPECT_EQ(date->isLocal, row.isLocal) << row.text;
  }
}

TEST(IsoDate, RefusesWhatNoCalendarOrClockShows) {
  std::istringstream lines(
      "\n \n2004\n2004-08\n20040819\n2004-02-30\n2005-02-29\n1900-02-29\n2004-00-01\n2004-13-01\n2004-08-00\n"
      "2004-8-19\n04-08-19\n19.08.2004\n2004/08/19\n+2004-08-19\n2004-0a-19\n2004-08-1\xC3\n2004-08-19Z\n"
      "2004-08-19T\n2004-08-19T14\n2004-08-19T25:00\n2004-08-19T24:00:01\n2004-08-19T12:60\n"
      "2004-08-19T23:59:60Z\n2004-08-19T14:30:\n2004-08-19T14:30:05.\n2004-08-19T14:30:5\n2004-08-19  14:30\n"
      "2004-08-19T14:30z\n2004-08-19T14:30+\n2004-08-19T14:30+2\n2004-08-19T14:30+02:\n"
      "2004-08-19T14:30+02:60\n2004-08-19T14:30+24:00\n2004-08-19T14:30Z+01\n2004-08-19T14:30 x\n");
  for (std::string text; std::getline(lines, text);) EXPECT_FALSE(parseIsoDate(text)) << text;
}

}  // namespace
