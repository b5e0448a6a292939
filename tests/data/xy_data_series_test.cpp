#include "velmora/data/xy_data_series.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "tests/data/columns.h"

namespace {

/// The points as a reader sees them.
std::string pointsOf(const VELDataSeries& series) {
  std::string text;
  for (int64_t i = 0; i < series.count(); ++i) {
    text += std::to_string(VELGenericLong(series.xValues()->valueAt(i))) + ":" +
            std::to_string(VELGenericLong(series.yValues()->valueAt(i))) + " ";
  }
  return text;
}

bool raisesUnsorted(const std::function<void()>& body) {
  try {
    body();
  } catch (const VELException& raised) {
    return raised.name() == "Operation exception" &&
           raised.what() == std::string("Data series can accepts only sorted data");
  }
  return false;
}

}  // namespace

TEST(XyDataSeries, EveryWayOfAppendingGivesTheSamePoints) {
  const int32_t x[] = {1, 2, 4};
  const int16_t y[] = {-1, 0, 7};
  for (const VELDataType type :
       {VELDataType_Int16, VELDataType_Int64, VELDataType_Byte, VELDataType_Float, VELDataType_Double}) {
    VELXyDataSeries single(type, type), spans(type, type), pointers(type, type);
    for (size_t i = 0; i < 3; ++i) single.appendX(x[i], y[i]);
    spans.appendRangeX(x, std::span<const int16_t>(y));
    pointers.appendRangeX(x, y, 3);
    EXPECT_EQ(pointsOf(single), "1:-1 2:0 4:7 ") << type;
    EXPECT_EQ(pointsOf(spans), pointsOf(single)) << type;
    EXPECT_EQ(pointsOf(pointers), pointsOf(single)) << type;
  }
  VELXyDataSeries dates(VELDataType_DateTime, VELDataType_Double);
  dates.appendRangeX(std::vector{VELDate(10.0), VELDate(20.0)}, Values{1, 2});
  dates.appendX(VELDate(30.0), 3.0);
  EXPECT_EQ(pointsOf(dates), "10:1 20:2 30:3 ");
}

TEST(XyDataSeries, ChangesAreToldOnceAndOnesBeyondTheDataAreNone) {
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  int told = 0;
  series.setOnDataSeriesChanged([&told] { ++told; });
  const double more[] = {3, 4};
  const struct {
    std::function<void()> change;
    const char* points;
    bool tells;
  } rows[] = {
      {[&] {
         series.appendRangeX(Values{1, 5}, Values{10, 50});
       },
       "1:10 5:50 ", true},
      {[&] { series.insertAt(1, 2, 20); }, "1:10 2:20 5:50 ", true},
      {[&] { series.insertRangeAt(2, more, more, 2); }, "1:10 2:20 3:3 4:4 5:50 ", true},
      {[&] { series.updateAt(4, 6, 60); }, "1:10 2:20 3:3 4:4 6:60 ", true},
      {[&] { series.removeAt(2); }, "1:10 2:20 4:4 6:60 ", true},
      {[&] { series.removeValue(4); }, "1:10 2:20 6:60 ", true},
      {[&] { series.removeValue(5); }, "1:10 2:20 6:60 ", false},
      {[&] { series.updateAt(3, 9, 9); }, "1:10 2:20 6:60 ", false},
      {[&] { series.updateAt(-1, 9, 9); }, "1:10 2:20 6:60 ", false},
      {[&] { series.insertAt(4, 0, 0); }, "1:10 2:20 6:60 ", false},
      {[&] { series.insertAt(-1, 0, 0); }, "1:10 2:20 6:60 ", false},
      {[&] { series.removeRangeFrom(2, 2); }, "1:10 2:20 6:60 ", false},
      {[&] { series.removeRangeFrom(1, INT64_MAX); }, "1:10 2:20 6:60 ", false},
      {[&] { series.removeRangeFrom(0, 2); }, "6:60 ", true},
      {[&] { series.clear(); }, "", true},
  };
  for (size_t i = 0; i < std::size(rows); ++i) {
    told = 0;
    rows[i].change();
    EXPECT_EQ(pointsOf(series), rows[i].points) << "row " << i;
    EXPECT_EQ(told, rows[i].tells ? 1 : 0) << "row " << i;
    EXPECT_TRUE(series.isSorted()) << "row " << i;
  }
}

TEST(XyDataSeries, UnsortedXRaisesOnceAndReadersLeaveTheExtraXOut) {
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  for (const double x : {1.0, 2.0, 2.0, 3.0}) series.appendX(x, x);
  EXPECT_TRUE(series.isSorted());
  EXPECT_TRUE(raisesUnsorted([&] { series.appendX(0, 0); }));
  EXPECT_EQ(series.xValues()->count(), 5);
  EXPECT_EQ(series.yValues()->count(), 4);
  EXPECT_EQ(series.count(), 4);
  EXPECT_FALSE(series.isSorted());
  EXPECT_EQ(VELGenericDouble(series.XMin()), 1);
  series.yValues()->append(9.0);
  series.yValues()->append(-9.0);
  series.dataSeriesChanged();
  EXPECT_EQ(VELGenericDouble(series.YMin()), 1) << "y without x";
  series.yValues()->removeRangeFrom(4, 2);

  VELPointResampler resampler;
  const auto points = series.toPointSeriesWithResamplingMode(VELResamplingMode_Auto, VELIndexRange(0, 4), 100,
                                                             false, VELDoubleRange(0.0, 4.0), resampler);
  EXPECT_EQ(points->count(), 4);
  series.removeAt(4);
  EXPECT_NO_THROW(series.appendX(2, 9)) << "the order is not looked at any more";
  EXPECT_EQ(pointsOf(series), "1:1 2:2 2:2 3:3 2:9 ");
  series.clear();
  EXPECT_TRUE(series.isSorted());
  series.appendRangeX(Values{5, 6}, Values{5, 6});
  EXPECT_TRUE(raisesUnsorted([&] { series.insertAt(0, 5.5, 1); }));
}

TEST(XyDataSeries, MisuseIsRaisedWithItsReason) {
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  EXPECT_EQ(reasonOf([&] {
              series.appendRangeX(Values{1, 2, 3}, Values{1, 2});
            }),
            "DataSeries appendRangeX:Y: can operate only on arrays with equal size");
  EXPECT_EQ(series.xValues()->count(), 0);
  EXPECT_THROW(VELXyDataSeries(VELDataType_None, VELDataType_Double), VELInvalidArgumentException);
  EXPECT_EQ(VELXyDataSeries::initFifoWithXType(VELDataType_Double, VELDataType_Double, -1), nullptr);
  EXPECT_EQ(VELXyDataSeries::initFifoWithXType(VELDataType_Array, VELDataType_Double, 4), nullptr);
  series.appendRangeX(Values{1, 2}, Values{1, 2});
  EXPECT_EQ(series.findIndexForValue(1.6, VELArraySearchMode_Nearest), 1);
  series.setAcceptUnsortedData(true);
  series.appendX(0, 0);
  EXPECT_THROW(series.findIndexForValue(1.6, VELArraySearchMode_Nearest), VELInvalidArgumentException);
}

TEST(XyDataSeries, WhatEitherColumnRefusesOrIgnoresTouchesNeither) {
  const VELDate date(1.0);
  const VELArray two = {date, date}, three = {date, date, date}, noDates = {date, 1.0};
  const double number = 1.0;
  const int32_t whole = 1;
  const struct {
    VELGenericType x, y;
    bool raises;
  } rows[] = {
      {date, date, true},    {date, 1, false},      {1, 1.0, true},         {1.0, date, true},
      {date, {}, false},     {{}, 1.0, true},       {date, &number, false}, {&number, 1.0, true},
      {&two, 1.0, true},     {&two, &two, false},   {&noDates, &two, true}, {&whole, &number, true},
      {&number, date, true}, {&number, &two, true}, {&number, {}, true},    {date, 1.0f, false},
  };
  for (const auto& row : rows) {
    VELXyDataSeries series(VELDataType_DateTime, VELDataType_Double);
    series.appendX(date, 1.0);
    const auto index = &row - rows;
    const auto raises = [&](auto&& change) { return !reasonOf(change).empty(); };
    const bool isPoint = VELIsNumericType(row.x.type) && VELIsNumericType(row.y.type);
    const bool raised = raises([&] { series.appendX(row.x, row.y); });
    EXPECT_EQ(raised, row.raises) << index;
    EXPECT_EQ(series.count(), isPoint && !row.raises ? 2 : 1) << index;
    EXPECT_EQ(series.xValues()->count(), series.yValues()->count()) << index;
    raises([&] { series.insertAt(0, row.x, row.y); });
    EXPECT_EQ(series.xValues()->count(), series.yValues()->count()) << index;
    raises([&] { series.appendRangeX(row.x, row.y, 1); });
    raises([&] { series.insertRangeAt(0, row.x, row.y, 1); });
    EXPECT_EQ(series.xValues()->count(), series.yValues()->count()) << index;
    if (!isPoint) series.updateAt(0, row.x, row.y);
    EXPECT_EQ(pointsOf(series).substr(0, 4), "1:1 ") << index;
  }
  VELXyDataSeries dates(VELDataType_DateTime, VELDataType_DateTime);
  dates.appendX(&two, &two);
  EXPECT_EQ(reasonOf([&] { dates.appendRangeX(&two, &three, 2); }),
            "DataSeries appendRangeX:Y:Count: can operate only on arrays with equal size");
  dates.appendRangeX(&three, &three, 3);
  EXPECT_EQ(dates.count(), 5);
  VELXyDataSeries numbers(VELDataType_Double, VELDataType_Double);
  EXPECT_THROW(numbers.appendRangeX(Values{1}, std::vector{date}), VELInvalidArgumentException);
  EXPECT_EQ(numbers.xValues()->count(), 0);
}

TEST(XyDataSeries, RowsMayBeOfItsOwnColumns) {
  VELXyDataSeries series(VELDataType_Double, VELDataType_Double);
  for (int i = 0; i < 64; ++i) series.appendX(7, i);
  const auto x = [&series] { return series.xValues()->doubles(); };
  series.appendRangeX(x(), x());
  series.appendRangeX(x().data(), x().data(), 128);
  series.insertRangeAt(0, series.yValues()->genericData(), x().data(), 1);
  EXPECT_EQ(pointsOf(series).substr(0, 12), "0:7 7:0 7:1 ");
  ASSERT_EQ(series.count(), 257);
  for (const double y : series.yValues()->doubles().last(192)) EXPECT_EQ(y, 7.0);
}

TEST(XyDataSeries, ARingKeepsItsNewestPointsAndEmptiesWhenItsCapacityChanges) {
  const auto series = VELXyDataSeries::initFifoWithXType(VELDataType_Double, VELDataType_Double, 3);
  int told = 0;
  for (int i = 1; i <= 5; ++i) series->appendX(i, i);
  series->setOnDataSeriesChanged([&told] { ++told; });
  EXPECT_EQ(pointsOf(*series), "3:3 4:4 5:5 ");
  EXPECT_TRUE(raisesUnsorted([&] { series->updateAt(1, 6, 6); })) << "by logical neighbours";
  series->setFifoCapacity(3);
  series->setFifoCapacity(-1);
  EXPECT_EQ(series->count(), 3);
  EXPECT_EQ(told, 0);
  series->setFifoCapacity(2);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(series->count(), 0);
  for (int i = 1; i <= 5; ++i) series->appendX(i, i);
  EXPECT_EQ(pointsOf(*series), "4:4 5:5 ");
  series->appendRangeX(Values{6}, Values{6});
  EXPECT_EQ(pointsOf(*series), "4:4 5:5 ") << "rings take single points only";
  VELXyDataSeries plain(VELDataType_Double, VELDataType_Double);
  // A column that is shorter by hand: 3, 4, 5 are left of x, in a buffer that holds 5, 6, 3, 4.
  const auto uneven = VELXyDataSeries::initFifoWithXType(VELDataType_Float, VELDataType_Float, 4);
  for (int i = 1; i <= 6; ++i) uneven->appendX(i, i);
  uneven->yValues()->removeAt(3);
  uneven->dataDistributionCalculator()->setDataIsSortedAscending(false);
  EXPECT_EQ(VELGenericDouble(uneven->XMax()), 5);
  uneven->xValues()->setValue(std::nanf(""), 1);
  uneven->dataSeriesChanged();
  EXPECT_EQ(VELGenericDouble(uneven->XMax()), 3) << "a float column ends at its first NaN";
  plain.setFifoCapacity(3);
  EXPECT_FALSE(plain.isFifo());
  EXPECT_EQ(plain.fifoCapacity(), 0);
}

TEST(XyDataSeries, ACloneHasItsOwnPoints) {
  const auto ring = VELXyDataSeries::initFifoWithXType(VELDataType_Int32, VELDataType_Float, 2);
  ring->setAcceptUnsortedData(true);
  ring->setSeriesName("ring");
  for (const int x : {1, 5, 3}) ring->appendX(x, x);
  ring->dataDistributionCalculator()->setDataIsSortedAscending(false);
  const auto copy = ring->clone();
  ring->appendX(7, 7);
  EXPECT_EQ(pointsOf(*copy), "5:5 3:3 ");
  EXPECT_EQ(copy->seriesName(), "ring");
  EXPECT_TRUE(copy->isFifo());
  EXPECT_FALSE(copy->isSorted());
  EXPECT_EQ(copy->xType(), VELDataType_Int32);
  std::dynamic_pointer_cast<VELXyDataSeries>(copy)->appendX(8, 8);
  EXPECT_EQ(pointsOf(*copy), "3:3 8:8 ");
  EXPECT_EQ(pointsOf(*ring), "3:3 7:7 ");
}
