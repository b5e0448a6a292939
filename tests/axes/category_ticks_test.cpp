#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

#include "tests/axes/fake_chart.h"
#include "tests/axes/tick_lists.h"
#include "velmora/axes/category_date_time_axis.h"
#include "velmora/axes/category_numeric_axis.h"
#include "velmora/axes/tick_provider.h"

namespace {

TEST(CategoryTicks, StandOnWholeIndicesThatExist) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  const auto surface = std::make_shared<FakeSurface>();
  const auto series = std::make_shared<FakeSeries>();
  const auto data = VELXyDataSeries::initWithCategoryXType(VELDataType_DateTime, VELDataType_Double);
  for (int i = 0; i < 12; ++i) data->appendX(VELDate(86400.0 * i), i);
  series->data = data;
  surface->series.push_back(series);

  struct Row {
    double min, max, minor, major;
    std::vector<double> majors, minors;
  };
  for (const std::shared_ptr<VELCategoryAxisBase>& axis : std::vector<std::shared_ptr<VELCategoryAxisBase>>{
           std::make_shared<VELCategoryNumericAxis>(), std::make_shared<VELCategoryDateTimeAxis>()}) {
    axis->setParentSurface(surface);
    axis->setAutoTicks(false);
    for (const Row& row : std::vector<Row>{{-3, 50, 2, 5, {0, 5, 10}, {2, 4, 6, 8}},
                                           {-0.5, 3.5, 1, 1, {0, 1, 2, 3}, {}},
                                           {4.5, 11, 0.2, 3.4, {6, 9}, {5, 7, 8, 10, 11}},
                                           {12, 40, 1, 2, {}, {}},
                                           {-1e308, 1e308, 4, 1e300, {0}, {4, 8}},
                                           {0, 11, kNaN, 0, {}, {}}}) {
      axis->setVisibleRange(doubles(row.min, row.max));
      axis->setMajorDelta(row.major);
      axis->setMinorDelta(row.minor);
      EXPECT_EQ(listOf(axis->tickProvider()->getMajorTicksFromAxis(*axis)), row.majors) << row.min;
      EXPECT_EQ(listOf(axis->tickProvider()->getMinorTicksFromAxis(*axis)), row.minors) << row.min;
    }
    axis->setAutoTicks(true);
    axis->setVisibleRange(doubles(-0.5, 11.5));
    axis->calculateDelta();
    EXPECT_EQ(VELGenericDouble(axis->majorDelta()), 2.0);
    EXPECT_EQ(VELGenericDouble(axis->minorDelta()), 1.0);
  }
}

}  // namespace
