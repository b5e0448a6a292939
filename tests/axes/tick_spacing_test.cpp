#include "tests/axes/tick_lists.h"
#include "velmora/axes/delta_calculator.h"
#include "velmora/axes/time_span_delta_calculator.h"
#include "velmora/axes/time_spans.h"

namespace {

constexpr double kDay = VELTimeSpans::SecInDay, kYear = VELTimeSpans::SecInYear;

struct Row {
  double min, max;
  int32_t minorsPerMajor, maxTicks;
  double minor, major;
};

void expectSpacing(VELDeltaCalculator& calculator, const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    const auto spacing = calculator.getDeltaFromRangeMin(row.min, row.max, row.minorsPerMajor, row.maxTicks);
    ASSERT_TRUE(spacing) << row.min << " to " << row.max;
    EXPECT_DOUBLE_EQ(VELGenericDouble(spacing->minorDelta), row.minor) << row.min << " to " << row.max;
    EXPECT_DOUBLE_EQ(VELGenericDouble(spacing->majorDelta), row.major) << row.min << " to " << row.max;
  }
}

TEST(TickSpacing, OfDatesComesFromTheTableAndBeyondItFromAScale) {
  auto& calculator = VELDateTimeDeltaCalculator::instance();
  expectSpacing(calculator, {{0, 100 * kDay, 5, 10, 2 * kDay, 14 * kDay},
                             {1e9, 1e9 + 20 * kYear, 5, 10, kYear, 5 * kYear},
                             {0, 10, 5, 10, 0.4, 2},
                             {0, 5, 5, 10, 0.1, 0.5},
                             {0, 300 * kYear, 5, 10, 10 * kYear, 50 * kYear},
                             {0, 300 * kYear, 3, 10, 16 * kYear, 50 * kYear},
                             {5, 5, 5, 10, 0, 0},
                             {kNaN, 5, 5, 10, 0, 0},
                             {0, kInf, 5, 10, kInf, kInf}});
  // A step belongs to the first span that it divides into fewer parts than ticks are allowed.
  for (size_t i = 2; i < calculator._dateDeltas.size(); ++i) {
    const double step = calculator._dateDeltas[i];
    expectSpacing(calculator,
                  {{0, std::nextafter(10 * step, 0.0), 5, 10, calculator._dateDeltas[i - 2], step}});
  }
  EXPECT_THROW(calculator.getDeltaFromRangeMin(0, 5, 0, 10), VELInternalInconsistencyException);
}

TEST(TickSpacing, OfLogarithmicAxesCountsExponents) {
  VELLogarithmicDeltaCalculator calculator;
  const double tenth = std::pow(10.0, 0.1) - 1.0, half = std::sqrt(10.0) - 1.0;
  expectSpacing(calculator, {{1, 1e10, 9, 10, 1, 1},
                             {1, 1000, 5, 10, half / 5, 0.5},
                             {12, 87, 5, 10, tenth / 5, 0.1},
                             {0.02, 0.05, 5, 10, tenth / 5, 0.1},
                             {-1000, -1, 5, 10, half / 5, 0.5},
                             {1e-308, 1e308, 5, 10, (1e50 - 1) / 5, 50}});
  calculator.setLogarithmicBase(0.5);
  expectSpacing(calculator, {{1, 1024, 1, 10, 1, 1}});
  EXPECT_FALSE(calculator.getDeltaFromRangeMin(1, kNaN, 5, 10));
  for (const auto& [min, niceMin] : {std::pair{3.0, 1.0}, {-100.0, 0.01}}) {
    VELNiceLogScale scale(min, 4000, 5, 10);
    static_cast<VELNiceDoubleScale&>(scale).calculateDelta();
    EXPECT_TRUE(scale.niceRange().equals(VELDoubleRange(niceMin, 1e4)));
  }
}

TEST(TickSpacing, OfCategoriesIsWholeAndEven) {
  expectSpacing(VELCategoryDeltaCalculator::instance(), {{0, 3, 5, 10, 1, 1},
                                                         {0, 15, 5, 10, 1, 2},
                                                         {0, 90, 3, 10, 5, 10},
                                                         {0, 1e7, 1'000'000'000, 10, 1000, 1e6}});
}

TEST(TickSpacing, TimeSpanScaleRoundsMantissasUpBeforeItChooses) {
  EXPECT_EQ(VELNiceTimeSpanScale::p_VEL_niceNumRange(2.1, true), 5);
  EXPECT_EQ(VELNiceTimeSpanScale::p_VEL_niceNumRange(11, false), 20);
  const VELNiceTimeSpanScale scale(-1.5, 1e300, 4, 1);
  EXPECT_EQ(scale.niceRange(), (VELNiceTimeSpanScale::NiceRange{-1, std::numeric_limits<int64_t>::max()}));
  for (const double none : {0.0, -3.0, kNaN})
    EXPECT_TRUE(VELNiceTimeSpanScale(0, none, 4, 10).tickSpacing().equals(VELDoubleRange(0.25, 1)));
  const auto spacing = VELDateTimeDeltaCalculator::instance().getDeltaFromRangeMin(0, 200 * kDay, 5, 10);
  EXPECT_TRUE(spacing->clone()->equals(VELTimeSpanDelta(7 * kDay, VELTimeSpans::SecInMonth)));
  EXPECT_FALSE(spacing->equals(VELTimeSpanDelta(7 * kDay, kYear)));
}

}  // namespace
