// What holds for every class of data series, whatever its points consist of.
#include "tests/data/series_classes.h"
#include "tests/support/allocation_counter.h"

namespace {

template <class Class>
class DataSeriesClasses : public testing::Test {
 protected:
  using Series = typename Class::Series;
  static int64_t shortest(const Series& series) {
    int64_t count = series.count();
    for (const auto& column : Class::columns(series)) count = std::min(count, column->count());
    return count;
  }
  VELPointResampler resampler;
};

using AllClasses = testing::Types<XyClass, XyyClass, OhlcClass, XyzClass>;
TYPED_TEST_SUITE(DataSeriesClasses, AllClasses);

}  // namespace

TYPED_TEST(DataSeriesClasses, EveryWayOfAppendingAndInsertingGivesTheSamePoints) {
  const Values x = {1, 2, 4};
  const int32_t whole[] = {1, 2, 4};
  const std::vector<VELDate> dates = {VELDate(1), VELDate(2), VELDate(4)};
  for (const VELDataType type : kTypes) {
    typename TypeParam::Series single(type, type), spans(type, type), pointers(type, type), putIn(type, type),
        putInPointers(type, type), dated(VELDataType_DateTime, type);
    for (const double one : x) TypeParam::append(single, one);
    TypeParam::rows(x, [&](const auto&... rows) {
      spans.appendRangeX(whole, rows...);
      pointers.appendRangeX(x.data(), rows.data()..., 3);
      putIn.insertRangeAt(0, std::span(whole), rows...);
      putInPointers.insertRangeAt(0, x.data(), rows.data()..., 3);
      dated.appendRangeX(dates, rows...);
    });
    for (const auto* series : {&single, &spans, &pointers, &putIn, &putInPointers, &dated})
      EXPECT_EQ(TypeParam::text(*series), "1 2 4 ") << type;
  }
}

TYPED_TEST(DataSeriesClasses, ChangesAreToldOnceAndOnesBeyondTheDataAreNone) {
  typename TypeParam::Series series(kDouble, kDouble);
  int told = 0;
  series.setOnDataSeriesChanged([&told] { ++told; });
  const auto insert = [&](int64_t index, double x) { TypeParam::insert(series, index, x); };
  const auto update = [&](int64_t index, double x) { TypeParam::update(series, index, x); };
  const std::string updated = TypeParam::values == 1 ? "6 " : "9" + std::string(TypeParam::values, '!') + " ";
  const Values first = {1, 5};
  const struct {
    std::function<void()> change;
    std::string points;
    int told;
  } rows[] = {{[&] { TypeParam::appendRows(series, first); }, "1 5 ", 1},
              {[&] { insert(1, 2); }, "1 2 5 ", 1},
              {[&] { insert(3, 9); }, "1 2 5 9 ", 1},
              {[&] { update(3, 6); }, "1 2 5 " + updated, 1},
              {[&] { update(4, 7), update(-1, 7); }, "1 2 5 " + updated, 0},
              {[&] { series.removeAt(3); }, "1 2 5 ", 1},
              {[&] { series.removeValue(2); }, "1 5 ", 1},
              {[&] { series.removeValue(7), insert(3, 9), insert(-1, 0); }, "1 5 ", 0},
              {[&] { series.removeRangeFrom(1, 2), series.removeRangeFrom(1, INT64_MAX); }, "1 5 ", 0},
              {[&] { series.removeRangeFrom(0, 1); }, "5 ", 1},
              {[&] { series.clear(); }, "", 1}};
  for (const auto& row : rows) {
    told = 0;
    row.change();
    EXPECT_EQ(TypeParam::text(series), row.points) << "row " << &row - rows;
    EXPECT_TRUE(told == row.told && series.isSorted()) << "row " << &row - rows;
  }
}

TYPED_TEST(DataSeriesClasses, UnsortedXRaisesOnceAndReadersLeaveTheExtraXOut) {
  typename TypeParam::Series series(kDouble, kDouble);
  for (const double x : {1.0, 2.0, 2.0, 3.0}) TypeParam::append(series, x);
  EXPECT_TRUE(raisesUnsorted([&] { TypeParam::append(series, 0); }));
  EXPECT_EQ(series.count(), 5);
  EXPECT_EQ(this->shortest(series), 4);
  EXPECT_EQ(VELGenericDouble(series.XMin()), 1);
  for (const double y : {9.0, -9.0}) series.yValues()->append(y);
  series.dataSeriesChanged();
  EXPECT_GT(VELGenericDouble(series.YMin()), 0) << "y without x";
  series.yValues()->removeRangeFrom(4, 2);
  series.removeRangeFrom(3, 2);
  EXPECT_NO_THROW(TypeParam::append(series, 0)) << "the order is not looked at any more";
  EXPECT_EQ(TypeParam::text(series), "1 2 2 0 ");
}

TYPED_TEST(DataSeriesClasses, AnInsertOrUpdateThatRaisesLeavesWholePointsBehindAndIsTold) {
  using Series = typename TypeParam::Series;
  constexpr bool movesX = TypeParam::values == 1;
  const auto insertTwo = [](Series& s) {
    TypeParam::rows({9, 8}, [&](auto... y) { s.insertRangeAt(2, Values{9, 8}, y...); });
  };
  const struct {
    std::function<void(Series&)> change;
    const char* points;
    bool raises = true;
  } rows[] = {{[](Series& s) { TypeParam::insert(s, 1, 4); }, "5 4 7 "},
              {[](Series& s) { TypeParam::insert(s, 0, 8); }, "8 5 7 "},
              {insertTwo, "5 7 9 8 "},
              {[](Series& s) { TypeParam::update(s, 0, movesX ? 8 : 5); }, movesX ? "8 7 " : "5 7 ", movesX}};
  for (const auto& row : rows) {
    Series series(kDouble, kDouble);
    TypeParam::appendRows(series, {5, 7});
    int told = 0;
    series.setOnDataSeriesChanged([&] { told += TypeParam::text(series) == row.points ? 1 : 100; });
    EXPECT_EQ(raisesUnsorted([&] { row.change(series); }), row.raises) << row.points;
    EXPECT_EQ(TypeParam::text(series), row.points);
    EXPECT_EQ(told, 1) << row.points;
  }
}

TYPED_TEST(DataSeriesClasses, MisuseIsRaisedWithItsReasonAndFactoriesRefuse) {
  using Series = typename TypeParam::Series;
  const auto reason = [](const std::string& before, const std::string& after = "") {
    return "DataSeries " + before + TypeParam::keywords + after +
           " can operate only on arrays with equal size";
  };
  Series dates(VELDataType_DateTime, VELDataType_DateTime);
  dates.setAcceptUnsortedData(true);
  const VELArray two = {VELDate(1), VELDate(2)}, three = {VELDate(1), VELDate(2), VELDate(3)};
  TypeParam::same(Values{1, 2}, [&](const auto&... y) {
    const Values x = {1, 2, 3};
    EXPECT_EQ(reasonOf([&] { dates.appendRangeX(x, y...); }), reason("appendRange"));
    EXPECT_EQ(reasonOf([&] { dates.insertRangeAt(0, x, y...); }), reason("insertRangeAt:", "Count:"));
  });
  TypeParam::same(VELGenericType(&two), [&](auto... y) {
    EXPECT_EQ(reasonOf([&] { dates.appendX(&three, y...); }), reason("append"));
    dates.appendX(&two, y...);
    EXPECT_EQ(this->shortest(dates), 2);
  });
  for (const VELDataType bad : {VELDataType_None, VELDataType_DoublePtr, VELDataType_Array}) {
    EXPECT_THROW(Series(bad, kDouble), VELInvalidArgumentException);
    EXPECT_THROW(Series(kDouble, bad), VELInvalidArgumentException);
    EXPECT_EQ(Series::initFifoWithXType(bad, kDouble, 4), nullptr);
    EXPECT_EQ(Series::initWithCategoryXTypeCategoryYType(kDouble, bad), nullptr);
  }
  EXPECT_EQ(Series::initFifoWithXType(kDouble, kDouble, -1), nullptr);
}

TYPED_TEST(DataSeriesClasses, WhatOneColumnRefusesOrIgnoresTouchesNone) {
  const VELDate date(1.0);
  const VELArray two = {date, date}, noDates = {date, 1.0};
  const double number = 1.0;
  const int32_t whole = 1;
  const struct {
    VELGenericType x, y;
    bool raises;
  } rows[] = {{date, date, true},    {date, 1, false},      {1, 1.0, true},         {1.0, date, true},
              {date, {}, false},     {{}, 1.0, true},       {date, &number, false}, {&number, 1.0, true},
              {&two, 1.0, true},     {&two, &two, false},   {&noDates, &two, true}, {&whole, &number, true},
              {&number, date, true}, {&number, &two, true}, {&number, {}, true},    {date, 1.0F, false}};
  for (const auto& row : rows) {
    typename TypeParam::Series series(VELDataType_DateTime, kDouble);
    TypeParam::append(series, 1);
    const auto index = &row - rows;
    const bool isPoint = VELIsNumericType(row.x.type) && VELIsNumericType(row.y.type);
    TypeParam::same(row.y, [&](auto... y) {
      EXPECT_EQ(raisedBy([&] { series.appendX(row.x, y...); }) != kNothingRaised, row.raises) << index;
      EXPECT_EQ(series.count(), isPoint && !row.raises ? 2 : 1) << index;
      raisedBy([&] { series.insertAt(1, row.x, y...); });
      raisedBy([&] { series.appendRangeX(row.x, y..., 1); });
      raisedBy([&] { series.insertRangeAt(1, row.x, y..., 1); });
    });
    TypeParam::same(std::vector{date}, [&](const auto&... y) {
      EXPECT_THROW(series.appendRangeX(Values{1}, y...), VELInvalidArgumentException);
    });
    EXPECT_EQ(series.count(), this->shortest(series)) << index;
    EXPECT_EQ(TypeParam::text(series).substr(0, 2), "1 ") << index;
  }
}

TYPED_TEST(DataSeriesClasses, RowsMayBeOfItsOwnColumns) {
  typename TypeParam::Series series(kDouble, kDouble);
  for (int i = 0; i < 64; ++i) TypeParam::same(7.0, [&](auto... y) { series.appendX(7.0, y...); });
  const auto x = [&series] { return series.xValues()->doubles(); };
  TypeParam::same(x(), [&](auto... rows) { series.appendRangeX(x(), rows...); });
  TypeParam::same(x().data(), [&](auto... rows) { series.appendRangeX(rows..., x().data(), 128); });
  TypeParam::same(x(), [&](auto... rows) { series.insertRangeAt(0, x(), rows...); });
  ASSERT_EQ(this->shortest(series), 512);
  for (const auto& column : TypeParam::columns(series))
    for (const double value : column->doubles()) ASSERT_EQ(value, 7.0);
  const auto categories = TypeParam::Series::initWithCategoryXType(kDouble, kDouble);
  for (int i = 0; i < 64; ++i) TypeParam::same(i, [&](auto... y) { categories->appendX(i, y...); });
  const VELGenericType indices = static_cast<const int32_t*>(categories->xValues()->view().data);
  TypeParam::same(indices, [&](auto... rows) { categories->appendRangeX(indices, rows..., 64); });
  EXPECT_EQ(VELGenericInt(categories->yValues()->valueAt(127)), 63);
}

TYPED_TEST(DataSeriesClasses, ARingKeepsItsNewestPointsAndEmptiesWhenItsCapacityChanges) {
  const auto series = TypeParam::Series::initFifoWithXType(kDouble, kDouble, 3);
  int told = 0;
  for (int i = 1; i <= 5; ++i) TypeParam::append(*series, i);
  series->setOnDataSeriesChanged([&told] { ++told; });
  told = 0;
  TypeParam::rows({6}, [&](auto... y) { series->appendRangeX(Values{6}, y...); });
  series->setFifoCapacity(-1);
  EXPECT_EQ(TypeParam::text(*series), "3 4 5 ") << "rings take single points only";
  EXPECT_EQ(told, 0);
  EXPECT_EQ(VELGenericInt(series->getIndicesRangeWithVisibleRange(VELDoubleRange(3.5, 4.0))->max()), 1);
  for (const double x : {6.0, 7.0}) TypeParam::append(*series, x);
  const auto points = series->toPointSeriesWithResamplingMode(
      VELResamplingMode_None, VELIndexRange(0, 2), 100, false, VELDoubleRange(0.0, 9.0), this->resampler);
  EXPECT_EQ(Values(points->xSpan().begin(), points->xSpan().end()), (Values{5, 6, 7}));

  series->setFifoCapacity(2);
  EXPECT_EQ(told, 3);
  EXPECT_EQ(this->shortest(*series) + series->count(), 0);
  for (int i = 1; i <= 5; ++i) TypeParam::append(*series, i);
  EXPECT_EQ(TypeParam::text(*series), "4 5 ");
}

TYPED_TEST(DataSeriesClasses, ACloneHasItsOwnPointsAndSettings) {
  const auto ring = TypeParam::Series::initFifoWithXType(VELDataType_Int32, VELDataType_Float, 2);
  ring->setAcceptUnsortedData(true);
  for (const int x : {1, 5, 3}) TypeParam::append(*ring, x);
  ring->dataDistributionCalculator()->setDataIsSortedAscending(false);
  const auto copy = std::dynamic_pointer_cast<typename TypeParam::Series>(ring->clone());
  TypeParam::append(*ring, 7);
  EXPECT_EQ(TypeParam::text(*copy), "5 3 ");
  EXPECT_TRUE(copy->isFifo() && copy->fifoCapacity() == 2 && !copy->isSorted());
  EXPECT_EQ(TypeParam::text(*ring), "3 7 ");
}

TYPED_TEST(DataSeriesClasses, CategoriesAreReadAsTheirIndicesAndAlwaysSorted) {
  using Series = typename TypeParam::Series;
  const auto series = Series::initWithCategoryXType(VELDataType_DateTime, VELDataType_Int16);
  for (const double x : {30.0, 10.0, 20.0, 10.0})
    TypeParam::same(x, [&](auto... y) { series->appendX(VELDate(x), y...); });
  EXPECT_EQ(ends(series->getXRange()), std::pair(0.0, 3.0));
  EXPECT_EQ(VELGenericInt(series->getIndicesRangeWithVisibleRange(VELDoubleRange(0.5, 2.0))->max()), 2);
  series->removeValue(1);
  const auto points = series->toPointSeriesWithResamplingMode(
      VELResamplingMode_Auto, VELIndexRange(0, 2), 9, false, VELDoubleRange(0.0, 2.0), this->resampler);
  EXPECT_EQ(values(*points->xValues()), (Values{0, 1, 2}));
  EXPECT_TRUE(this->resampler.isEvenlySpacedData()) << "indices stay even when points are removed";
}

TYPED_TEST(DataSeriesClasses, ASteadyFrameGivesPointsOfItsOwnKindAndAllocatesNothing) {
  typename TypeParam::Series series(kDouble, kDouble);
  for (int i = 0; i < 20000; ++i) TypeParam::append(series, i);
  VELIndexRange indices;
  const VELDoubleRange visible(100.5, 18000.0);
  for (int32_t mode = VELResamplingMode_None; mode <= VELResamplingMode_Auto; ++mode) {
    const auto frame = [&] {
      series.getIndicesRangeWithVisibleRange(visible, indices);
      const VELRangePtr window = series.getWindowYRangeWithXRange(visible);
      return series.toPointSeriesWithResamplingMode(static_cast<VELResamplingMode>(mode), indices, 300, false,
                                                    visible, this->resampler);
    };
    // The holder lets go of last frame's points only when it has the new ones.
    auto points = frame();
    points = frame();
    const double* const buffer = points->yValues()->doubleData();
    const AllocationCounter allocations;
    for (int i = 0; i < 4; ++i) points = frame();
    EXPECT_EQ(allocations.count(), 0) << mode;
    EXPECT_EQ(points->yValues()->doubleData(), buffer) << mode;
    EXPECT_NE(std::dynamic_pointer_cast<typename TypeParam::Points>(points), nullptr) << mode;
  }
}

// What a column makes of these is its own affair; every reader answers within the data, and none is harmed.
TYPED_TEST(DataSeriesClasses, BadValuesAreReadWithoutHarm) {
  const VELGenericType bad[] = {kNaN,      kInf,      -kInf, 1e308, -1e308, 1e-308,
                                INT64_MIN, INT64_MAX, 0,     -0.0,  kNaN,   5};
  for (const VELDataType type : kTypes) {
    const auto plain = std::make_shared<typename TypeParam::Series>(type, type);
    const auto ring = TypeParam::Series::initFifoWithXType(type, type, 5);
    for (const auto& series : {plain, ring}) {
      series->setAcceptUnsortedData(true);
      for (const VELGenericType x : bad) {
        for (const VELGenericType low : bad) {
          const VELDoubleRange visible(low, 1e300);
          const auto indices = series->getIndicesRangeWithVisibleRange(visible);
          EXPECT_FALSE(indices->isDefined() && VELGenericInt(indices->max()) >= series->count());
          series->getWindowYRangeWithXRange(visible, true);
          const VELRangePtr window = series->getWindowYRangeWithIndexRange(VELIndexRange(0, 99));
          EXPECT_FALSE(series->getYMinAt(0, kInf) < window->minAsDouble());
          EXPECT_LT(series->findIndexForValue(low, VELArraySearchMode_Exact), series->count());
          const auto points = series->toPointSeriesWithResamplingMode(
              VELResamplingMode_Auto, VELIndexRange(0, 99), 1, false, visible, this->resampler);
          for (const int32_t index : points->indexSpan())
            ASSERT_TRUE(index >= 0 && index < series->count()) << index;
        }
        // A date column takes no whole numbers.
        const auto value = [type](VELGenericType v) {
          return type == VELDataType_DateTime ? VELGenericDouble(v) : v;
        };
        for (const VELGenericType y : bad)
          TypeParam::same(value(y), [&](auto... values) { series->appendX(value(x), values...); });
      }
    }
  }
}
