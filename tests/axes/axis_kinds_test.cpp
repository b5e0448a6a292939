// What the kinds of axes have in common and what not, side by side.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "axis_kinds.h"
#include "velmora/data/category_array_controller.h"
#include "velmora/platform/exception.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

template <class Call>
std::string raisedBy(Call call) {
  try {
    call();
  } catch (const VELException& e) {
    return e.what();
  }
  return "nothing";
}

TEST(AxisKinds, EachHasItsDefaultAndRefusesWhatIsNotItsKind) {
  struct Row {
    AxisMaker make;
    const char* range;
    double max;
    bool isDrawable, takesDates;
  };
  for (const Row& row :
       {Row{kNumeric, "VELDoubleRange", 10, true, false},
        Row{kLogarithmic, "VELDoubleRange", 10, false, false},
        Row{kDateTime, "VELDateRange", 86400, true, true}, Row{kCategory, "VELDoubleRange", 10, true, false},
        Row{kCategoryDates, "VELDoubleRange", 10, true, true}}) {
    const auto axis = row.make();
    expectRange(axis->visibleRange(), 0, row.max);
    EXPECT_EQ(axis->hasValidVisibleRange(), row.isDrawable) << axis->className();
    const VELRangePtr dates = std::make_shared<VELDateRange>(1, 2);
    const VELRangePtr foreign = row.make == kDateTime ? doubles(1, 2) : dates;
    EXPECT_EQ(raisedBy([&] { axis->setVisibleRange(foreign); }),
              "Axis type " + axis->className() + " requires that VisibleRange is of type " + row.range);
    EXPECT_TRUE(axis->trySetOrAnimateVisibleRange(foreign)) << "a computed range becomes its own kind";
    EXPECT_STREQ(axis->visibleRange()->className(), row.range);
    EXPECT_EQ(raisedBy([&] { axis->assertDataType(VELDataType_DateTime); }) == "nothing", row.takesDates);
    EXPECT_EQ(raisedBy([&] { axis->assertDataType(VELDataType_Int32); }) == "nothing", !row.takesDates);
  }
  EXPECT_EQ(raisedBy([] { VELLogarithmicNumericAxis().setLogarithmicBase(0); }),
            "0 is not a valid base for VELLogarithmicNumericAxis");
}

TEST(AxisKinds, TheMaximumRangeFollowsTheDataOfEachKind) {
  struct Row {
    AxisMaker make;
    double dataMin, dataMax, grow, min, max;
  };
  for (const Row& row :
       {Row{kNumeric, 2, 4, 0.5, 1, 5}, Row{kNumeric, 5, 5, 0, 4.95, 5.05},
        Row{kNumeric, -5, -5, 0, -5.05, -4.95}, Row{kNumeric, 0, 0, 0, -1, 1},
        Row{kNumeric, 100, 100, 0.5, 98, 102}, Row{kNumeric, -1e308, 1e308, 1, 0, 10},
        Row{kLogarithmic, 1, 100, 0.5, 0.1, 1000}, Row{kLogarithmic, -100, -1, 0.5, -1000, -0.1},
        Row{kLogarithmic, 1e-20, 1e-18, 0, 1e-20, 1e-18}, Row{kLogarithmic, 5, 5, 0, 4.95, 5.05},
        Row{kLogarithmic, -9, 0, 0, 0, 10},  // nothing to show
        Row{kDateTime, 1e9, 1.1e9, 0.1, 0.99e9, 1.11e9}, Row{kDateTime, 100, 100, 0, 99, 101},
        Row{kCategory, 5, 5, 0, 4.5, 5.5}, Row{kCategoryDates, 0, 9, 0.1, -1.5, 10.5}}) {
    for (const bool isXAxis : {true, false}) {
      OneAxisChart chart(row.make, isXAxis);
      const auto range = doubles(row.dataMin, row.dataMax);
      chart.add(isXAxis ? range : doubles(0, 1), range);
      chart.axis->setGrowBy(doubles(row.grow, row.grow));
      SCOPED_TRACE(chart.axis->className());
      expectRange(chart.axis->getMaximumRange(), row.min, row.max);
      EXPECT_EQ(chart.axis->trySetOrAnimateVisibleRange(chart.axis->getMaximumRange()), row.dataMin != -9);
    }
  }
}

TEST(AxisKinds, ALogarithmicAxisTakesThePartOfTheDataThatItCanShow) {
  OneAxisChart chart(kLogarithmic);
  FakeSeries& mixed = chart.add(doubles(-5, 80));
  for (const double x : {-5.0, kNaN, 0.0, 40.0, 0.25, 80.0}) mixed.data->xValues()->append(x);
  chart.add(doubles(-9, -3));
  expectRange(chart.axis->getDataRange(), 0.25, 80);
  mixed.visible = false;
  expectRange(chart.axis->getDataRange(), -9, -3);
}

TEST(AxisKinds, ACategoryAxisShowsWholeSlotsAndLabelsItsValues) {
  OneAxisChart chart(kCategory);
  const auto data = VELXyDataSeries::initWithCategoryXType(VELDataType_Double, VELDataType_Double);
  for (const double x : {10.5, 7.25, 1000.0, -3.0}) data->appendX(x, 1.0);
  chart.add(doubles(0, 3));  // a plain column first
  chart.add(doubles(0, 4)).data = data;
  EXPECT_EQ(static_cast<VELCategoryAxisBase&>(*chart.axis).categoryController(), data->xValues());
  chart.axis->setVisibleRange(chart.axis->getMaximumRange());
  expectRange(chart.axis->visibleRange(), -0.5, 3.5);
  EXPECT_EQ(VELGenericDouble(chart.axis->labelValue(4)), 4.0) << "no category";
  chart.draw();
  std::string labels;
  for (const auto& label : chart.axis->axisPanel()->tickLabels()) labels += label->text() + ' ';
  EXPECT_EQ(labels, "10.5 7.25 1000 -3 ");
}

TEST(AxisKinds, YearsAreNumberedInOrderOnTheClocksOfTheAxis) {
  VELDateTimeAxis axis;
  axis.setTimeZone("Pacific/Honolulu");
  axis.setMajorDelta(20 * 31556952.0);
  for (const int32_t year : {-20, 0, 20, 1940, 1960, 1980, 2000})
    EXPECT_EQ(axis.p_VEL_getMajorTickIndex(
                  axis.calendar().dateFromComponents({.year = year}).timeIntervalSince1970()),
              year / 20);
}

TEST(AxisKinds, PowersAreNumberedInOrderOnBothSidesOfZero) {
  VELLogarithmicNumericAxis axis;
  for (const double base : {10.0, 0.1}) {
    axis.setLogarithmicBase(base);
    axis.setMajorDelta(2);
    for (const int32_t power : {-300, -4, 0, 4, 300}) {
      EXPECT_EQ(axis.p_VEL_getMajorTickIndex(std::pow(10.0, power)), power / 2) << base;
      EXPECT_EQ(axis.p_VEL_getMajorTickIndex(-std::pow(10.0, power)), -power / 2) << base;
    }
  }
  EXPECT_EQ(axis.p_VEL_getMajorTickIndex(0), 0);
}

TEST(AxisKinds, NoRangeMakesAnAxisFail) {
  const double bounds[] = {kNaN,   -kInf,  kInf,    -1e308, 1e308,      -1e-308,     1e-308,
                           0,      5e-324, -5e-324, 1,      -9.3e18,    9.3e18,      -1.9e11,
                           3.2e11, 1.6e9,  -1,      1e15,   1e15 + 0.5, 1.6e9 + 1e-7};
  for (const AxisMaker make : {kNumeric, kLogarithmic, kDateTime, kCategory, kCategoryDates}) {
    OneAxisChart chart(make);
    const auto data = VELXyDataSeries::initWithCategoryXType(VELDataType_DateTime, VELDataType_Double);
    for (int i = 0; i < 5; ++i) data->appendX(VELDate(1e9 * i), 1.0);
    chart.add(doubles(0, 5)).data = data;
    for (const double min : bounds)
      for (const double max : bounds) {
        if (min > max) continue;
        SCOPED_TRACE(testing::Message() << chart.axis->className() << ' ' << min << ' ' << max);
        chart.show(min, max);
        chart.draw();
        const auto ticks = chart.axis->CalculateTicks();
        EXPECT_LE(std::max(ticks->getMajorTicks().size(), ticks->getMinorTicks().size()), 10'000u);
        EXPECT_TRUE(!chart.axis->isVisibleRangeValid() || std::isfinite(max - min));
        const auto labels = chart.axis->axisPanel()->tickLabels();
        EXPECT_TRUE(chart.axis->isVisibleRangeValid() || labels.empty() || labels[0]->isHidden());
        chart.axis->scrollByPixels(10, VELClipMode_HoldEnd);
        chart.axis->zoomByFractionMin(0.1, -0.1);
        chart.axis->trySetOrAnimateVisibleRange(doubles(min, max), 1.0);
        for (const double seconds : {0.0, 0.4, 1.2}) chart.surface->link->tick(seconds);
      }
  }
}

}  // namespace
