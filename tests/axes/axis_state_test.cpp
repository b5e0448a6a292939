#include "tests/axes/fake_chart.h"

TEST(AxisCore, RangesThatAnAxisCannotShowAreRefusedByName) {
  VELNumericAxis axis;
  EXPECT_EQ(raisedBy([&] { axis.setVisibleRange(doubles(5, 3)); }),
            "Invalide argument: VisibleRange.Min (value=5.000000) must be less than VisibleRange.Max "
            "(value=3.000000)");
  EXPECT_TRUE(axis.hasDefaultVisibleRange()) << "a refused range changes nothing";
  for (const VELRangePtr& taken : {doubles(3, 3), VELRangePtr()}) {
    EXPECT_EQ(raisedBy([&] { axis.setVisibleRange(taken); }), kNothingRaised);
    EXPECT_FALSE(axis.hasValidVisibleRange());
  }
  for (const VELRangePtr& none : {doubles(kNaN, 3), doubles(5, 3), axis.getUndefinedRange(), VELRangePtr()})
    EXPECT_FALSE(axis.trySetOrAnimateVisibleRange(none));
  EXPECT_EQ(axis.visibleRange(), nullptr);
  EXPECT_TRUE(axis.trySetOrAnimateVisibleRange(std::make_shared<VELIntegerRange>(1, 4), 0.5));
  EXPECT_TRUE(axis.visibleRange()->equals(VELIntegerRange(1, 4)));
}

TEST(AxisCore, KeepsItsOwnCopyOfARangeAndKnowsThatItWasSet) {
  VELNumericAxis axis;
  EXPECT_TRUE(axis.hasDefaultVisibleRange() && axis.autoRange() == VELAutoRange_Once);
  const VELRangePtr range = doubles(0, 10);
  axis.setVisibleRange(range);
  EXPECT_FALSE(axis.hasDefaultVisibleRange()) << "set from outside, though equal to the default";
  range->setMax(99);
  EXPECT_EQ(axis.visibleRange()->maxAsDouble(), 10);
}

TEST(AxisCore, LessThanOneTickCountsAsOne) {
  VELNumericAxis axis;
  axis.setVisibleRange(doubles(0, 100));
  axis.setMaxAutoTicks(-3);
  axis.calculateDelta();
  EXPECT_EQ(VELGenericDouble(axis.majorDelta()), 100);
}

TEST(AxisBase, EachChangeOfWhatIsSeenInvalidatesTheSurfaceAndAPassDoesNot) {
  FakeChart chart;
  VELNumericAxis& axis = *chart.x;
  VELAxisStyle own;
  const std::function<void()> changes[] = {[&] { axis.setAxisTitle("t"); },
                                           [&] { axis.style().setDrawLabels(false); },
                                           [&] { axis.style() = own; }, [&] { axis.setStyle(own); },
                                           [&] { axis.style().labelStyle().setFontSize(9); }};
  for (const auto& change : changes) {
    chart.surface->invalidations = 0;
    change();
    EXPECT_GT(chart.surface->invalidations, 0) << &change - changes;
  }
  chart.surface->invalidations = 0;
  chart.drawUntilStable();
  EXPECT_EQ(chart.surface->invalidations, 0);
}

TEST(AxisBase, MajorsAreNumberedFromZeroWhateverIsInSight) {
  VELNumericAxis axis;
  axis.setAutoTicks(false);
  axis.setMajorDelta(0.1);
  const std::pair<double, int32_t> rows[] = {{214748364.6, 2147483646}, {0.1 + 0.2, 3}, {0, 0},
                                             {214748364.7 + 0.1, 1},    {-0.3, -3},     {kNaN, 0},
                                             {-214748364.8, -1},        {0.3, 3},       {kInf, 0}};
  for (const auto& [value, index] : rows) EXPECT_EQ(axis.p_VEL_getMajorTickIndex(value), index) << value;
}

TEST(AxisCollection, FindsAxesByTheirIdAndRefusesDoubles) {
  VELAxisCollection axes;
  const auto a = std::make_shared<VELNumericAxis>(), b = std::make_shared<VELNumericAxis>();
  b->setAxisId("b");
  axes.addItem(a);
  axes.addItem(nullptr);
  for (const int32_t at : {0, 7}) axes.insertItem(b, at);
  ASSERT_EQ(axes.count(), 2);
  EXPECT_EQ(axes.getAxisById("b"), b);
  for (const int32_t outside : {-1, 2}) EXPECT_EQ(axes.itemAt(outside), nullptr);
  a->setAxisId("b");
  EXPECT_EQ(raisedBy([&] { axes.getAxisById("b"); }),
            "VELInvalidArgumentException: There is more than one axis with Id:b in AxisCollection");
  axes.removeItem(b);
  axes.removeItemAt(5);
  EXPECT_TRUE(axes.itemAt(0) == a && axes.contains(a) && !axes.contains(b));
}
