#include "tests/axes/axis_kinds.h"
#include "velmora/axes/tick_provider.h"

TEST(CategoryTicks, StandOnWholeIndicesThatExist) {
  const struct {
    double min, max, minor, major;
    std::vector<double> majors, minors;
  } rows[] = {{-3, 50, 2, 5, {0, 5, 10}, {2, 4, 6, 8}},       {-0.5, 3.5, 1, 1, {0, 1, 2, 3}, {}},
              {4.5, 11, 0.2, 3.4, {6, 9}, {5, 7, 8, 10, 11}}, {12, 40, 1, 2, {}, {}},
              {-1e308, 1e308, 4, 1e300, {0}, {4, 8}},         {0, 11, kNaN, 0, {}, {}}};
  for (const AxisMaker make : {kCategory, kCategoryDates}) {
    OneAxisChart chart(make);
    chart.addCategories(VELDataType_DateTime, std::vector<VELDate>(12));
    const auto& axis = chart.axis;
    axis->setAutoTicks(false);
    for (const auto& row : rows) {
      chart.show(row.min, row.max);
      axis->setMajorDelta(row.major);
      axis->setMinorDelta(row.minor);
      EXPECT_EQ(listOf(axis->tickProvider()->getMajorTicksFromAxis(*axis)), row.majors) << row.min;
      EXPECT_EQ(listOf(axis->tickProvider()->getMinorTicksFromAxis(*axis)), row.minors) << row.min;
    }
  }
}
