#include "examples/plot/label_formats.h"

#include <gtest/gtest.h>

#include <vector>

#include "examples/plot/log_ticks.h"
#include "velmora/data/ranges.h"

namespace {

TEST(LabelFormats, DatesSayWhatChangesAndTheirContextTheRest) {
  constexpr double kHour = 3600, kDay = 24 * kHour, kMonth = 2629746, kYear = 31556952;
  constexpr double kNoon = 1218542400;  // 2008-08-12 12:00 UTC
  struct Row {
    double span, step;
    bool onWholeUnits;
    const char *label, *context;
  };
  const Row rows[] = {
      {20 * kYear, 2 * kYear, true, "yyyy", ""},      {20 * kYear, 2 * kYear, false, "MMM yyyy", ""},
      {4 * kYear, 6 * kMonth, true, "MMM yyyy", ""},  {4 * kYear, 5 * kMonth, false, "d MMM yyyy", ""},
      {20 * kDay, 2 * kDay, true, "d MMM", "yyyy"},   {200 * kDay, 20 * kDay, true, "d MMM yyyy", ""},
      {kDay, 6 * kHour, true, "d MMM HH:mm", "yyyy"}, {5 * kHour, 0.5 * kHour, true, "HH:mm", "d MMM yyyy"},
      {60, 10, true, "HH:mm:ss", "d MMM yyyy"},       {1, 0.2, true, "HH:mm:ss.SSS", "d MMM yyyy"},
  };
  for (const Row& row : rows) {
    const DatePatterns patterns =
        datePatterns(kNoon, kNoon + row.span, row.step, row.onWholeUnits, VELCalendar("UTC"));
    EXPECT_EQ(patterns.label, row.label) << row.span;
    EXPECT_EQ(patterns.context, row.context) << row.span;
  }
}

TEST(LabelFormats, LargeNumbersReadInMillionsUnlessTheyHardlyDiffer) {
  EXPECT_TRUE(readInMillions(858100, 82541500));
  EXPECT_TRUE(readInMillions(-2e6, 0));
  for (const auto& [lowest, highest] : {std::pair(0.0, 9e5), {1.2e9, 1.2001e9}, {0.0, 1e12}, {5e6, 5e6}})
    EXPECT_FALSE(readInMillions(lowest, highest)) << highest;
  const MillionsLabelProvider provider;
  EXPECT_EQ(provider.formatLabel(2.5e6), "2.5M");
  EXPECT_EQ(provider.formatLabel(-0.0), "0");
  EXPECT_EQ(numberFormat(0, 1e6), "");
  EXPECT_EQ(numberFormat(1e9, 1e9 + 10), "%.11g");
}

TEST(LogTicks, FewPowersOfTenReadAsPlainNumbers) {
  struct Row {
    double min, max;
    std::vector<double> majors;
    size_t minors;
  };
  for (const Row& row : std::vector<Row>{{90, 740, {100, 200, 500}, 5},
                                         {0.002, 0.3, {0.002, 0.005, 0.01, 0.02, 0.05, 0.1, 0.2}, 13},
                                         {1, 1e4, {1, 10, 100, 1000, 10000}, 32},
                                         {330, 390, {330, 340, 350, 360, 370, 380, 390}, 24}}) {
    PlainLogTicks provider;
    const VELDoubleRange range(row.min, row.max);
    const auto majors = provider.calculateMajorTicksWithRange(range, {1.0, 0.5});
    ASSERT_EQ(majors->count(), std::ssize(row.majors)) << row.min;
    for (size_t i = 0; i < row.majors.size(); ++i) EXPECT_EQ(majors->doubles()[i], row.majors[i]);
    EXPECT_EQ(provider.calculateMinorTicksWithRange(range, {1.0, 0.5})->count(),
              static_cast<int64_t>(row.minors));
  }
  EXPECT_EQ(PlainLogTicks().calculateMajorTicksWithRange(VELDoubleRange(1, 1e6), {9, 3})->count(), 3)
      << "the axis' own";
}

}  // namespace
