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
                             {0.02, 0.05, 5, 10, tenth / 5, 0.1},
                             {-1000, -1, 5, 10, half / 5, 0.5},
                             {1e-308, 1e308, 5, 10, (1e50 - 1) / 5, 50}});
  EXPECT_FALSE(calculator.getDeltaFromRangeMin(1, kNaN, 5, 10));
}

TEST(TickSpacing, OfCategoriesIsWholeAndEven) {
  expectSpacing(VELCategoryDeltaCalculator::instance(), {{0, 3, 5, 10, 1, 1},
                                                         {0, 15, 5, 10, 1, 2},
                                                         {0, 90, 3, 10, 5, 10},
                                                         {0, 1e7, 1'000'000'000, 10, 1000, 1e6}});
}

}  // namespace
