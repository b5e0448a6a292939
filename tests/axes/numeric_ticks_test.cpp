#include "tests/axes/tick_lists.h"
#include "velmora/axes/delta_calculator.h"
#include "velmora/axes/nice_scale.h"
#include "velmora/axes/numeric_tick_provider.h"

TEST(NiceScale, RoundsToOneTwoFive) {
  const struct {
    double value;
    bool round;
    double nice;
  } rows[] = {{7.3, false, 10},       {1.49, true, 1},  {1.5, true, 2},       {6.99, true, 5},
              {5.09, false, 5},       {5.1, false, 10}, {0.001, true, 0.001}, {1e308, false, 1e308},
              {3e-200, true, 5e-200}, {0, true, 1}};
  for (const auto& row : rows)
    EXPECT_DOUBLE_EQ(VELNiceDoubleScale::niceNumWithRange(row.value, row.round), row.nice) << row.value;
}

TEST(NiceScale, RefusesToDivideAMajorIntoNothing) {
  EXPECT_NO_THROW(VELNiceDoubleScale(0, 1, 1, 10));
  EXPECT_EQ(raisedBy([] { VELNiceDoubleScale(0, 1, 0, 10); }),
            "VELInternalInconsistencyException: Minors per major must be greater or equal to 2");
  VELNiceDoubleScale coarse(0, 100, 5, INT32_MIN);
  coarse.calculateDelta();
  EXPECT_EQ(VELGenericDouble(coarse.tickSpacing().majorDelta), 100);
  EXPECT_FALSE(VELNumericDeltaCalculator::instance().getDeltaFromRangeMin(kNaN, 1, 5, 10));
  EXPECT_FALSE(VELNumericDeltaCalculator::instance().getDeltaFromRangeMin(0, kNaN, 5, 10));
}

TEST(NumericTicks, StandAtTheMultiplesInsideTheRange) {
  const struct {
    double min, max, minor, major;
    std::vector<double> majors;
    size_t minors;
  } rows[] = {{0.05, 1.0, 0.04, 0.2, {0.2, 0.4, 0.6, 0.8, 1.0}, 19},
              {-0.3, 0.3, 0.02, 0.1, {-0.3, -0.2, -0.1, 0, 0.1, 0.2, 0.3}, 24},
              {0, 0.3 - 1e-12, 0.02, 0.1, {0, 0.1, 0.2, 0.3 - 1e-12}, 12},  // a hair below a tick
              {6, 6, 0.4, 2, {6}, 0},
              // 15 digits are all there are: so far out every minor counts as lying on a major.
              {1e15, 1e15 + 4, 0.4, 2, {1e15, 1e15 + 2, 1e15 + 4}, 0},
              {2, 1, 0.2, 1, {}, 0},
              {kNaN, 1, 0.2, 1, {}, 0},
              {-kInf, kInf, 0.2, 1, {}, 0},
              {0, 1, kNaN, 1, {}, 0},
              {0, 1, 0.9e-13, 0.5, {}, 0},
              {0, 1, 0.1, -0.5, {}, 8}};
  for (const auto& row : rows) {
    VELNumericTickProvider provider;
    const VELDoubleAxisDelta delta(row.minor, row.major);
    const VELDoubleRange range(row.min, row.max);
    const auto majors = listOf(provider.calculateMajorTicksWithRange(range, delta));
    ASSERT_EQ(majors.size(), row.majors.size()) << row.min << " to " << row.max;
    for (size_t i = 0; i < majors.size(); ++i) {
      EXPECT_DOUBLE_EQ(majors[i], row.majors[i]);
      EXPECT_FALSE(majors[i] == 0 && std::signbit(majors[i])) << "a label would read -0";
    }
    const auto minors = listOf(provider.calculateMinorTicksWithRange(range, delta));
    EXPECT_EQ(minors.size(), row.minors) << row.min << " to " << row.max;
  }
}

// Every range that a scale divides is ticked completely: none is lost to rounding, minors never on majors.
TEST(NumericTicks, NoneIsLostWhateverTheMagnitude) {
  VELNumericTickProvider provider;
  for (int exponent = -11; exponent <= 15; ++exponent) {
    for (int from = -7; from <= 7; ++from) {
      for (const int steps : {1, 2, 3, 5, 7, 9, 10}) {
        for (const double mantissa : {1.0, 2.0, 5.0}) {
          const double step = mantissa * std::pow(10.0, exponent);
          const VELDoubleAxisDelta delta(step / 5, step);
          const double min = from * step, max = (from + steps) * step;
          const auto majors = listOf(provider.calculateMajorTicksWithRange(VELDoubleRange(min, max), delta));
          const auto minors = listOf(provider.calculateMinorTicksWithRange(VELDoubleRange(min, max), delta));
          EXPECT_EQ(majors.size(), static_cast<size_t>(steps) + 1) << min << " to " << max;
          EXPECT_EQ(minors.size(), static_cast<size_t>(steps) * 4) << min << " to " << max;
        }
      }
    }
  }
}

TEST(NumericTicks, AListHasAnEndAndIsNotWrittenOverWhileSomebodyKeepsIt) {
  VELNumericTickProvider provider;
  const auto all = provider.calculateMajorTicksWithRange(VELDoubleRange(0, 1e9), {1e-3, 1});
  EXPECT_EQ(all->count(), VELNumericTickProvider::maxTicksPerPass);
  EXPECT_EQ(listOf(provider.calculateMinorTicksWithRange(VELDoubleRange(0, 1e9), {1, 0.5})).size(), 0u);
  EXPECT_EQ(listOf(provider.calculateMinorTicksWithRange(VELDoubleRange(1e300, 1e300), {1, 0.5})).size(), 0u);
  const auto other = provider.calculateMajorTicksWithRange(VELDoubleRange(0, 1), {0.1, 0.5});
  EXPECT_NE(other, all) << "the first list is still kept";
  EXPECT_EQ(all->count(), VELNumericTickProvider::maxTicksPerPass);
}
