#include "velmora/data/data_series.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "tests/data/columns.h"
#include "tests/support/allocation_counter.h"
#include "velmora/data/xy_data_series.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

std::shared_ptr<VELXyDataSeries> seriesOf(const Values& x, const Values& y) {
  auto series = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  series->setAcceptUnsortedData(true);
  series->appendRangeX(x, y);
  return series;
}

struct Expected {
  double min;
  double max;
};

void expectRange(const VELRangePtr& range, Expected expected) {
  EXPECT_EQ(VELGenericDouble(range->min()), expected.min) << range->description();
  EXPECT_EQ(VELGenericDouble(range->max()), expected.max) << range->description();
}

}  // namespace

TEST(DataSeries, TheIndexRangeReachesOnePointBeyondTheVisibleRangeAndHoldsAllEqualNeighbours) {
  constexpr int32_t kMin = std::numeric_limits<int32_t>::max();
  constexpr int32_t kMax = std::numeric_limits<int32_t>::min();
  const Values plain = {1, 3, 5, 7, 9};
  const Values equal = {1, 2, 2, 2, 3};
  const Values broken = {kNaN, 1, 2, kNaN, 3, 4};
  const struct {
    Values x;
    double min, max;
    int32_t first, last;
  } rows[] = {
      {plain, 3.5, 6, 1, 3},        {plain, 3, 7, 1, 3},
      {plain, 4, 4.5, 1, 2},        {plain, 0, 100, 0, 4},
      {plain, 9, 20, 4, 4},         {plain, -kInf, kInf, 0, 4},
      {plain, 9.5, 20, kMin, kMax}, {plain, -5, 0.5, kMin, kMax},
      {plain, 6, 4, kMin, kMax},    {plain, kNaN, 4, kMin, kMax},
      {equal, 2, 2, 1, 3},          {equal, 1.5, 2.5, 0, 4},
      {broken, 1.5, 2.5, 1, 3},     {broken, 3.5, 9, 4, 5},
      {{5, 1, 3}, 2, 2, 0, 2},      {{}, 0, 1, kMin, kMax},
      {{4}, 0, 10, 0, 0},           {{1e-20, 2e-20, 3e-20, 4e-20}, 2.5e-20, 2.6e-20, 1, 2},
  };
  for (const auto& row : rows) {
    const auto series = seriesOf(row.x, row.x);
    const auto range = series->getIndicesRangeWithVisibleRange(VELDoubleRange(row.min, row.max));
    EXPECT_EQ(VELGenericInt(range->min()), row.first) << row.min << ".." << row.max;
    EXPECT_EQ(VELGenericInt(range->max()), row.last) << row.min << ".." << row.max;
  }
}

TEST(DataSeries, EveryTypeOfXColumnIsSearchedByItsValues) {
  for (const VELDataType type : {VELDataType_Int16, VELDataType_Int32, VELDataType_Int64, VELDataType_Byte,
                                 VELDataType_Float, VELDataType_Double, VELDataType_DateTime}) {
    VELXyDataSeries series(type, type);
    for (int i = 0; i < 100; ++i) series.appendX(static_cast<double>(i), static_cast<double>(i));
    const auto range = series.getIndicesRangeWithVisibleRange(VELDateRange(20.5, 40.0));
    EXPECT_EQ(VELGenericInt(range->min()), 20) << type;
    EXPECT_EQ(VELGenericInt(range->max()), 40) << type;
    expectRange(series.getXRange(), {0, 99});
    expectRange(series.getYRange(), {0, 99});
    expectRange(series.getWindowYRangeWithXRange(VELDoubleRange(20.5, 40.0)), {21, 40});
    EXPECT_EQ(series.getXRange()->rangeType() == VELRangeType_Date, type == VELDataType_DateTime);
  }
}

TEST(DataSeries, AnAnswerBelongsToWhoAskedAndIsNewAfterAChange) {
  const auto series = seriesOf({1, 2, 3}, {1, 2, 3});
  const VELDoubleRange all(0.0, 10.0);
  const auto first = series->getIndicesRangeWithVisibleRange(all);
  first->setMax(0);
  EXPECT_EQ(VELGenericInt(series->getIndicesRangeWithVisibleRange(all)->max()), 2);
  const VELRangePtr window = series->getWindowYRangeWithXRange(all);
  window->growMinBy(1.0, 1.0);
  expectRange(series->getWindowYRangeWithXRange(all), {1, 3});
  expectRange(window, {-1, 5});
  EXPECT_EQ(series->getXRange(), series->getXRange()) << "the cache itself";

  series->appendX(4.0, 40.0);
  EXPECT_EQ(VELGenericInt(series->getIndicesRangeWithVisibleRange(all)->max()), 3);
  expectRange(series->getWindowYRangeWithXRange(all), {1, 40});
  expectRange(series->getXRange(), {1, 4});
  EXPECT_EQ(VELGenericDouble(series->YMax()), 40);
}

TEST(DataSeries, TheWindowedYRangeCountsWhatLiesInsideOrElseTheTwoNeighbours) {
  const Values x = {1, 2, 3, 4, 5};
  const Values y = {10, -20, kNaN, 40, -50};
  const struct {
    double min, max;
    bool positive;
    Expected expected;
  } rows[] = {
      {1, 2, false, {-20, 10}},     {1, 2, true, {10, 10}},     {2, 4, false, {-20, 40}},
      {4.2, 4.8, false, {-50, 40}}, {4.2, 4.8, true, {40, 40}}, {0, 9, true, {10, 40}},
  };
  const auto series = seriesOf(x, y);
  for (const auto& row : rows) {
    expectRange(series->getWindowYRangeWithXRange(VELDoubleRange(row.min, row.max), row.positive),
                row.expected);
  }
  for (const VELDoubleRange& none :
       {VELDoubleRange(3.0, 3.0), VELDoubleRange(6.0, 9.0), VELDoubleRange(-1.0, 0.0),
        VELDoubleRange(kNaN, 9.0), VELDoubleRange(4.0, 2.0)}) {
    EXPECT_FALSE(series->getWindowYRangeWithXRange(none)->isDefined()) << none.description();
  }
  expectRange(series->getWindowYRangeWithIndexRange(VELIndexRange(-5, 1)), {-20, 10});
  expectRange(series->getWindowYRangeWithIndexRange(VELIndexRange(3, 99), true), {40, 40});
  EXPECT_FALSE(series->getWindowYRangeWithIndexRange(VELIndexRange())->isDefined());
  expectRange(seriesOf({3, 1}, {7, 9})->getWindowYRangeWithXRange(VELDoubleRange(100.0, 200.0)), {7, 9});
}

TEST(DataSeries, RangesAreUndefinedWithoutANumberAndPassOverNaN) {
  for (const VELDataType type :
       {VELDataType_Byte, VELDataType_Int32, VELDataType_Float, VELDataType_DateTime}) {
    const VELXyDataSeries empty(type, type);
    EXPECT_FALSE(empty.getXRange()->isDefined()) << type;
    EXPECT_FALSE(empty.getYRange()->isDefined()) << type;
    EXPECT_FALSE(empty.hasValues());
  }
  const auto series = seriesOf({kNaN, 1, 2, kNaN}, {kNaN, kNaN, kNaN, kNaN});
  EXPECT_TRUE(series->isSorted());
  expectRange(series->getXRange(), {1, 2});
  EXPECT_FALSE(series->getYRange()->isDefined());
  expectRange(seriesOf({5, 1, 3}, {0, 0, 0})->getXRange(), {1, 5});
  EXPECT_EQ(series->getYMinAt(1, 4.0), 4.0);
  EXPECT_EQ(seriesOf({1}, {2})->getYMaxAt(0, kNaN), 2.0);
  EXPECT_EQ(seriesOf({1}, {2})->getYMinAt(7, 9.0), 9.0);
}

TEST(DataSeries, ARotatedRingAnswersInLogicalOrder) {
  const auto series = VELXyDataSeries::initFifoWithXType(VELDataType_Double, VELDataType_Double, 3);
  for (int i = 1; i <= 5; ++i) series->appendX(static_cast<double>(i), 10.0 * i);
  expectRange(series->getXRange(), {3, 5});
  const auto range = series->getIndicesRangeWithVisibleRange(VELDoubleRange(3.5, 4.0));
  EXPECT_EQ(VELGenericInt(range->min()), 0);
  EXPECT_EQ(VELGenericInt(range->max()), 1);
  series->appendX(6.0, 60.0);
  expectRange(series->getWindowYRangeWithXRange(VELDoubleRange(3.5, 5.0)), {40, 50});
  expectRange(series->getWindowYRangeWithIndexRange(VELIndexRange(0, 1)), {40, 50});
}

TEST(DataSeries, ASteadyFrameAllocatesNothing) {
  Values x, y;
  for (int i = 0; i < 20000; ++i) {
    x.push_back(i);
    y.push_back(std::sin(i * 0.1));
  }
  const auto series = seriesOf(x, y);
  VELPointResampler resampler;
  VELIndexRange indices;
  const VELDoubleRange visible(100.5, 18000.0);
  for (int32_t mode = VELResamplingMode_None; mode <= VELResamplingMode_Auto; ++mode) {
    const auto frame = [&] {
      series->getIndicesRangeWithVisibleRange(visible, indices);
      const VELRangePtr window = series->getWindowYRangeWithXRange(visible);
      return series->toPointSeriesWithResamplingMode(static_cast<VELResamplingMode>(mode), indices, 300,
                                                     false, visible, resampler);
    };
    // The holder lets go of last frame's points only when it has the new ones.
    auto points = frame();
    points = frame();
    const double* const buffer = points->yValues()->doubleData();
    const AllocationCounter allocations;
    for (int i = 0; i < 4; ++i) points = frame();
    EXPECT_EQ(allocations.count(), 0) << mode;
    EXPECT_EQ(points->yValues()->doubleData(), buffer) << mode;
  }
}

TEST(DataSeries, TwoDisplaysOfOneSeriesKeepTheirOwnPoints) {
  Values x, y;
  for (int i = 0; i < 1000; ++i) {
    x.push_back(i);
    y.push_back(i % 17);
  }
  const auto series = seriesOf(x, y);
  VELPointResampler resampler;
  const VELIndexRange all(0, 999);
  const VELDoubleRange visible(0.0, 999.0);
  const auto points = [&](VELResamplingMode mode) {
    return series->toPointSeriesWithResamplingMode(mode, all, 100, false, visible, resampler);
  };
  const auto minima = points(VELResamplingMode_Min);
  const auto maxima = points(VELResamplingMode_Max);
  ASSERT_NE(minima, maxima);
  EXPECT_EQ(series->lastPointSeries(), maxima);
  for (size_t i = 0; i < minima->ySpan().size(); ++i) EXPECT_LE(minima->ySpan()[i], maxima->ySpan()[i] - 1);
  EXPECT_TRUE(resampler.isSortedData() && resampler.isEvenlySpacedData());
  series->removeAt(4);
  points(VELResamplingMode_Auto);
  EXPECT_TRUE(resampler.isSortedData() && !resampler.isEvenlySpacedData());
  series->updateAt(0, 500.0, 0.0);
  series->dataDistributionCalculator()->setDataIsEvenlySpaced(true);
  EXPECT_EQ(points(VELResamplingMode_Auto)->count(), 999) << "unsorted data is drawn point by point";
  EXPECT_FALSE(resampler.isEvenlySpacedData());
}
