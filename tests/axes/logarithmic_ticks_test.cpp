#include "tests/axes/axis_kinds.h"
#include "velmora/axes/logarithmic_numeric_tick_provider.h"

namespace {

TEST(LogarithmicTicks, StandAtPowersAndAtEqualPartsBetweenThem) {
  const auto power = [](double exponent) { return std::pow(10.0, exponent); };
  const struct {
    double base, min, max, minor, major;
    std::vector<double> majors;
    size_t minors;
  } rows[] = {
      {10, 1, 1000, 1, 1, {1, 10, 100, 1000}, 40},
      {10, -1000, -1, 1, 1, {-1000, -100, -10, -1}, 40},
      {0.5, 0.25, 8, 0.2, 1, {0.25, 0.5, 1, 2, 4, 8}, 28},
      {10, 12, 20, 1, 0.1, {10, power(1.1), power(1.2), power(1.3)}, 0},
      {10, 1e-320, 1e308, 1e99, 100, {1e-300, 1e-200, 1e-100, 1, 1e100, 1e200, 1e300}, 54},
  };
  VELLogarithmicNumericTickProvider provider;
  for (const auto& row : rows) {
    provider.setLogarithmicBase(row.base);
    const VELDoubleRange range(row.min, row.max);
    const auto majors = listOf(provider.calculateMajorTicksWithRange(range, {row.minor, row.major}));
    const auto minors = listOf(provider.calculateMinorTicksWithRange(range, {row.minor, row.major}));
    ASSERT_EQ(majors.size(), row.majors.size()) << row.base << ": " << row.min << " to " << row.max;
    for (size_t i = 0; i < majors.size(); ++i) EXPECT_NEAR(majors[i] / row.majors[i], 1.0, 1e-14);
    EXPECT_EQ(minors.size(), row.minors) << row.base << ": " << row.min << " to " << row.max;
  }
  // No base, an end without a power, the wrong way round, no step.
  const double none[][5] = {{10, 0, 100, 1, 1},   {10, -5, 100, 1, 1},  {1, 1, 100, 1, 1},
                            {kNaN, 1, 100, 1, 1}, {10, 1, kInf, 1, 1},  {10, -kInf, -1, 1, 1},
                            {10, kNaN, 10, 1, 1}, {10, 100, 1, 1, 1},   {10, 1, 100, 1, kNaN},
                            {10, 1, 100, 1, -1},  {10, 1, 100, kNaN, 1}};
  for (const auto& [base, min, max, minor, major] : none) {
    provider.setLogarithmicBase(base);
    EXPECT_TRUE(
        listOf(provider.calculateMajorTicksWithRange(VELDoubleRange(min, max), {minor, major})).empty());
    EXPECT_TRUE(
        listOf(provider.calculateMinorTicksWithRange(VELDoubleRange(min, max), {minor, major})).empty());
  }
}

TEST(LogarithmicTicks, AreThoseOfTheAxisThatAsksThoughAllShareOneCalculator) {
  OneAxisChart two(kLogarithmic), ten(kLogarithmic);
  dynamic_cast<VELLogarithmicNumericAxis&>(*two.axis).setLogarithmicBase(2);
  two.axis->setTickProvider(ten.axis->tickProvider());
  two.show(1, 1024);
  ten.show(1, 1e10);
  for (const auto& [chart, base] : {std::pair{&two, 2.0}, {&ten, 10.0}, {&two, 2.0}}) {
    chart->axis->getCurrentCoordinateCalculator();
    const auto ticks = chart->axis->CalculateTicks();
    ASSERT_EQ(ticks->getMajorTicks().size(), 11u) << base;
    for (size_t i = 0; i < 11; ++i)
      EXPECT_DOUBLE_EQ(ticks->getMajorTicks()[i], std::pow(base, static_cast<double>(i)));
  }
}

TEST(LogarithmicTicks, NoListIsEndlessWhateverTheBaseAndTheStep) {
  VELLogarithmicNumericTickProvider provider;
  for (const double base : {10.0, 1.0 + 1e-12, 1e300, 1e-300}) {
    provider.setLogarithmicBase(base);
    for (const double step : {1e-9, 1e-300, 1.0, 1e300}) {
      const VELDoubleRange range(1e-308, 1e308);
      EXPECT_LE(listOf(provider.calculateMajorTicksWithRange(range, {1e-12, step})).size(), 10'000u);
      EXPECT_LE(listOf(provider.calculateMinorTicksWithRange(range, {1e-12, step})).size(), 10'000u);
    }
  }
}

}  // namespace
