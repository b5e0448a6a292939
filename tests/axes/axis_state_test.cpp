#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "fake_chart.h"
#include "velmora/axes/delta_calculator.h"
#include "velmora/platform/exception.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

/// Name and reason of what a call raises.
template <class Call>
std::string raisedBy(Call call) {
  try {
    call();
  } catch (const VELException& e) {
    return e.name() + ": " + e.what();
  }
  return "nothing";
}

TEST(AxisCore, ANewNumericAxisShowsZeroToTen) {
  const VELNumericAxis axis;
  EXPECT_TRUE(axis.visibleRange()->equals(VELDoubleRange(0, 10)));
  EXPECT_TRUE(axis.hasDefaultVisibleRange());
  EXPECT_TRUE(axis.hasValidVisibleRange());
  EXPECT_TRUE(axis.isXAxis() && axis.autoTicks() && axis.isStaticAxis());
  EXPECT_EQ(axis.majorDelta().type, VELDataType_Float);
  EXPECT_TRUE(std::isnan(VELGenericDouble(axis.majorDelta())));
  EXPECT_TRUE(std::isnan(VELGenericDouble(axis.minorDelta())));
  EXPECT_EQ(axis.minorsPerMajor(), 5);
  EXPECT_EQ(axis.getMaxAutoTicks(), 10);
  EXPECT_EQ(axis.autoRange(), VELAutoRange_Once);
  EXPECT_EQ(axis.axisId(), VELAxisBase::defaultAxisId);
  EXPECT_EQ(axis.effectiveAlignment(), VELAxisAlignment_Bottom);
  EXPECT_TRUE(axis.getUndefinedRange()->isDefined() == false);
}

TEST(AxisCore, RangesThatAnAxisCannotShowAreRefusedByName) {
  VELNumericAxis axis;
  EXPECT_EQ(raisedBy([&] { axis.setVisibleRange(doubles(5, 3)); }),
            "Invalide argument: VisibleRange.Min (value=5.000000) must be less than VisibleRange.Max "
            "(value=3.000000)");
  EXPECT_EQ(
      raisedBy([&] { axis.setVisibleRange(std::make_shared<VELDateRange>(1, 2)); }),
      "Invalide operation: Axis type VELNumericAxis requires that VisibleRange is of type VELDoubleRange");
  EXPECT_TRUE(axis.hasDefaultVisibleRange()) << "a refused range changes nothing";
  EXPECT_EQ(raisedBy([&] { axis.setVisibleRange(doubles(3, 3)); }), "nothing");
  EXPECT_FALSE(axis.hasValidVisibleRange());
  EXPECT_EQ(raisedBy([&] { axis.setVisibleRange(nullptr); }), "nothing");
  EXPECT_FALSE(axis.hasValidVisibleRange());

  EXPECT_FALSE(axis.trySetOrAnimateVisibleRange(doubles(kNaN, 3)));
  EXPECT_FALSE(axis.trySetOrAnimateVisibleRange(doubles(5, 3)));
  EXPECT_FALSE(axis.trySetOrAnimateVisibleRange(nullptr));
  EXPECT_EQ(axis.visibleRange(), nullptr);
  EXPECT_TRUE(axis.trySetOrAnimateVisibleRange(std::make_shared<VELIntegerRange>(1, 4), 0.5));
  EXPECT_TRUE(axis.visibleRange()->equals(VELIntegerRange(1, 4)));
}

TEST(AxisCore, KeepsItsOwnCopyOfARangeAndKnowsThatItWasSet) {
  VELNumericAxis axis;
  const VELRangePtr range = doubles(0, 10);
  axis.setVisibleRange(range);
  EXPECT_FALSE(axis.hasDefaultVisibleRange()) << "set from outside, though equal to the default";
  range->setMax(99);
  EXPECT_EQ(axis.visibleRange()->maxAsDouble(), 10);
}

TEST(AxisCore, LeavesItsKindToSubclasses) {
  VELAxisCore core;
  const std::string expected = "Operation excpetion: Method not implemented";
  EXPECT_EQ(raisedBy([&] { core.getCurrentCoordinateCalculator(); }), expected);
  EXPECT_EQ(raisedBy([&] { core.getDeltaCalculator(); }), expected);
  EXPECT_EQ(raisedBy([&] { core.getDefaultNonZeroRange(); }), expected);
  EXPECT_EQ(raisedBy([&] { core.isRangeOfValidType(VELDoubleRange()); }), expected);
}

TEST(AxisCore, SpacingIsItsOwnChoiceOnlyWhileAutoTicksIsOn) {
  VELNumericAxis axis;
  axis.setVisibleRange(doubles(0, 100));
  axis.setMaxAutoTicks(-3);
  axis.calculateDelta();
  EXPECT_EQ(VELGenericDouble(axis.majorDelta()), 100) << "less than one tick counts as one";
  axis.setMaxAutoTicks(10);
  axis.calculateDelta();
  EXPECT_EQ(VELGenericDouble(axis.majorDelta()), 10);
  EXPECT_EQ(VELGenericDouble(axis.minorDelta()), 2);
  axis.setAutoTicks(false);
  axis.setMajorDelta(25);
  axis.calculateDelta();
  EXPECT_EQ(VELGenericDouble(axis.majorDelta()), 25);
}

TEST(AxisBase, TakesNumbersAndNamesWhatItRefuses) {
  const VELNumericAxis axis;
  for (const VELDataType type : {VELDataType_Int16, VELDataType_Int32, VELDataType_Int64, VELDataType_Byte,
                                 VELDataType_Float, VELDataType_Double})
    EXPECT_NO_THROW(axis.assertDataType(type));
  EXPECT_EQ(raisedBy([&] { axis.assertDataType(VELDataType_DateTime); }),
            "VELInvalidArgumentException: Axis type VELNumericAxis does not accept data of type "
            "VELDataType_DateTime");
  EXPECT_NE(raisedBy([&] { axis.assertDataType(VELDataType_None); }), "nothing");
  EXPECT_NE(raisedBy([&] { axis.assertDataType(static_cast<VELDataType>(-8)); }), "nothing");
}

TEST(AxisBase, AChangeOfWhatIsSeenInvalidatesTheSurfaceAndAPassDoesNot) {
  FakeChart chart;
  const int before = chart.surface->invalidations;
  chart.x->setAxisTitle("t");
  chart.x->setTextFormatting("%.1f");
  chart.x->setGrowBy(doubles(0.1, 0.1));
  chart.x->style().setDrawLabels(false);
  chart.x->style().labelStyle().setFontSize(9);
  VELAxisStyle other = chart.x->style();
  other.setMajorTickSize(9);
  EXPECT_EQ(chart.surface->invalidations, before + 5) << "a copied style belongs to nobody";
  int changes = 0;
  other.setStyleChanged([&changes] { ++changes; });
  other.titleStyle().setFontSize(9);
  EXPECT_EQ(changes, 1) << "and watches its own texts";
  chart.x->setStyle(other);
  chart.x->style().labelStyle().setFontSize(9);
  const int after = chart.surface->invalidations;
  EXPECT_GE(after, before + 7);
  chart.drawUntilStable();
  EXPECT_EQ(chart.surface->invalidations, after);
}

TEST(AxisBase, MajorsAreNumberedFromZeroWhateverIsInSight) {
  VELNumericAxis axis;
  axis.setAutoTicks(false);
  axis.setMajorDelta(0.1);
  struct Row {
    double value;
    int32_t index;
  };
  for (const Row& row : std::vector<Row>{{0.3, 3},
                                         {-0.3, -3},
                                         {0.1 + 0.2, 3},
                                         {0, 0},
                                         {214748364.6, 2147483646},
                                         {214748364.7 + 0.1, 1},
                                         {-214748364.8, -1},
                                         {kNaN, 0},
                                         {kInf, 0}})
    EXPECT_EQ(axis.p_VEL_getMajorTickIndex(row.value), row.index) << row.value;
}

TEST(AxisCollection, FindsAxesByTheirIdAndRefusesDoubles) {
  VELAxisCollection axes;
  EXPECT_EQ(axes.defaultAxis(), nullptr);
  const auto a = std::make_shared<VELNumericAxis>(), b = std::make_shared<VELNumericAxis>();
  b->setAxisId("b");
  axes.addItem(a);
  axes.addItem(nullptr);
  axes.insertItem(b, 0);
  axes.insertItem(b, 7);
  ASSERT_EQ(axes.count(), 2);
  EXPECT_EQ(axes.itemAt(0), b);
  EXPECT_EQ(axes.itemAt(-1), nullptr);
  EXPECT_EQ(axes.itemAt(2), nullptr);
  EXPECT_EQ(axes.defaultAxis(), a);
  EXPECT_EQ(axes.getAxisById("b"), b);
  EXPECT_EQ(axes.getAxisById("c"), nullptr);
  EXPECT_EQ(raisedBy([&] { axes.getAxisById("c", true); }),
            "VELInvalidArgumentException: There is no axis with Id:c in AxisCollection");
  EXPECT_FALSE(axes.hasPrimaryAxis());
  a->setIsPrimaryAxis(true);
  EXPECT_EQ(axes.primaryAxis(), a);
  a->setAxisId("b");
  EXPECT_EQ(raisedBy([&] { axes.getAxisById("b"); }),
            "VELInvalidArgumentException: There is more than one axis with Id:b in AxisCollection");
  axes.removeItem(b);
  axes.removeItemAt(5);
  EXPECT_EQ(axes.itemAt(0), a);
  EXPECT_FALSE(axes.contains(b));
}

}  // namespace
