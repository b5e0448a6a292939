// What the kinds of axes have in common and what not, side by side.
#include "tests/axes/axis_kinds.h"
#include "velmora/data/category_array_controller.h"

TEST(AxisKinds, EachHasItsDefaultAndRefusesWhatIsNotItsKind) {
  const struct {
    AxisMaker make;
    const char* range;
    double max;
    bool isDrawable, takesDates;
  } rows[] = {{kNumeric, "VELDoubleRange", 10, true, false},
              {kLogarithmic, "VELDoubleRange", 10, false, false},
              {kDateTime, "VELDateRange", 86400, true, true},
              {kCategory, "VELDoubleRange", 10, true, false},
              {kCategoryDates, "VELDoubleRange", 10, true, true}};
  for (const auto& row : rows) {
    const auto axis = row.make();
    expectRange(axis->visibleRange(), 0, row.max);
    EXPECT_EQ(axis->hasValidVisibleRange(), row.isDrawable) << axis->className();
    const VELRangePtr dates = std::make_shared<VELDateRange>(1, 2);
    const VELRangePtr foreign = row.make == kDateTime ? doubles(1, 2) : dates;
    EXPECT_EQ(raisedBy([&] { axis->setVisibleRange(foreign); }),
              "Invalide operation: Axis type " + axis->className() +
                  " requires that VisibleRange is of type " + row.range);
    EXPECT_TRUE(axis->trySetOrAnimateVisibleRange(foreign)) << "a computed range becomes its own kind";
    EXPECT_STREQ(axis->visibleRange()->className(), row.range);
    const char* const names[] = {"None", "Int16", "Int32", "Int64", "Byte", "Float", "Double", "DateTime"};
    for (int type = VELDataType_None; type <= VELDataType_DateTime; ++type) {
      const bool takes = type > 0 && row.takesDates == (type == VELDataType_DateTime);
      EXPECT_EQ(raisedBy([&] { axis->assertDataType(static_cast<VELDataType>(type)); }),
                takes ? kNothingRaised
                      : "VELInvalidArgumentException: Axis type " + axis->className() +
                            " does not accept data of type VELDataType_" + names[type]);
    }
  }
  EXPECT_EQ(reasonOf([] { VELLogarithmicNumericAxis().setLogarithmicBase(0); }),
            "0 is not a valid base for VELLogarithmicNumericAxis");
}

// The range of the logarithmic axis from -9 to 0 has nothing to show.
TEST(AxisKinds, TheMaximumRangeFollowsTheDataOfEachKind) {
  const struct {
    AxisMaker make;
    double dataMin, dataMax, grow, min, max;
  } rows[] = {{kNumeric, 2, 4, 0.5, 1, 5},         {kNumeric, 3, 5, -0.5, 3.96, 4.04},
              {kNumeric, 5, 5, 0, 4.95, 5.05},     {kNumeric, 0, 0, 0, -1, 1},
              {kNumeric, -1e308, 1e308, 1, 0, 10}, {kLogarithmic, 1, 100, 0.5, 0.1, 1000},
              {kLogarithmic, 5, 5, 0, 4.95, 5.05}, {kLogarithmic, -100, -1, 0.5, -1000, -0.1},
              {kDateTime, 100, 100, 0, 99, 101},   {kLogarithmic, 1e-20, 1e-18, 0, 1e-20, 1e-18},
              {kLogarithmic, -9, 0, 0, 0, 10},     {kDateTime, 1e9, 1.1e9, 0.1, 0.99e9, 1.11e9},
              {kCategory, 5, 5, 0, 4.5, 5.5},      {kCategoryDates, 0, 9, 0.1, -1.5, 10.5}};
  for (const auto& row : rows) {
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
  chart.add(doubles(0, 3));  // a plain column first
  const auto categories = chart.addCategories(VELDataType_Double, std::vector{10.5, 7.25, 1000.0, -3.0});
  EXPECT_EQ(static_cast<VELCategoryAxisBase&>(*chart.axis).categoryController(), categories);
  chart.axis->setVisibleRange(chart.axis->getMaximumRange());
  expectRange(chart.axis->visibleRange(), -0.5, 3.5);
  EXPECT_EQ(VELGenericDouble(chart.axis->labelValue(4)), 4.0) << "no category";
  chart.draw();
  std::string labels;
  for (const auto& label : chart.axis->axisPanel()->tickLabels()) labels += label->text() + ' ';
  EXPECT_EQ(labels, "10.5 7.25 1000 -3 ");
}

TEST(AxisKinds, NoRangeMakesAnAxisFailOrLeavesLabelsOfTheOneBefore) {
  const double bounds[] = {kNaN,   -kInf,  kInf,    -1e308, 1e308,      -1e-308,     1e-308,
                           0,      5e-324, -5e-324, 1,      -9.3e18,    9.3e18,      -1.9e11,
                           3.2e11, 1.6e9,  -1,      1e15,   1e15 + 0.5, 1.6e9 + 1e-7};
  for (const AxisMaker make : {kNumeric, kLogarithmic, kDateTime, kCategory, kCategoryDates}) {
    OneAxisChart chart(make);
    chart.addCategories(VELDataType_DateTime, std::vector{VELDate(0), VELDate(1e9), VELDate(2e9)});
    for (const double min : bounds)
      for (const double max : bounds) {
        if (min > max) continue;
        SCOPED_TRACE(testing::Message() << chart.axis->className() << ' ' << min << ' ' << max);
        chart.show(min, max);
        chart.draw();
        const auto ticks = chart.axis->CalculateTicks();
        EXPECT_LE(std::max(ticks->getMajorTicks().size(), ticks->getMinorTicks().size()), 10'000u);
        EXPECT_TRUE(!chart.axis->isVisibleRangeValid() || std::isfinite(max - min));
        for (const auto& label : chart.axis->axisPanel()->tickLabels())
          EXPECT_TRUE(chart.axis->isVisibleRangeValid() || label->isHidden());
        for (const DrawnShape& shape : chart.context.shapes)
          EXPECT_TRUE(std::isfinite(shape.x1 + shape.x2 + shape.y1 + shape.y2));
        chart.axis->scrollByPixels(10, VELClipMode_HoldEnd);
        chart.axis->zoomByFractionMin(0.1, -0.1);
        chart.axis->trySetOrAnimateVisibleRange(doubles(min, max), 1.0);
        for (const double seconds : {0.0, 0.4, 1.2}) chart.surface->link->tick(seconds);
      }
  }
}
