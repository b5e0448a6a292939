#include "velmora/axes/coordinate_calculator.h"

#include "tests/axes/tick_lists.h"
#include "velmora/axes/calculator_stage.h"
#include "velmora/axes/coordinate_calculator_factory.h"

namespace {

VELAxisParams paramsOf(double size, double min, double max, bool isX, bool flip = false, double logBase = 0) {
  VELAxisParams params;
  params.size = size;
  params.visibleMin = min, params.visibleMax = max;
  params.isXAxis = params.isHorizontal = isX;
  params.flipCoordinates = flip;
  params.isLogarithmicAxis = logBase > 0.0;
  params.logarithmicBase = logBase;
  return params;
}

// A negative logarithmic range follows the magnitudes: its minimum has the larger one.
TEST(CoordinateCalculator, EachKindOfAxisPutsValuesWhereItSays) {
  enum Place { Y, X, FlippedY, FlippedX };
  const struct {
    Place place;
    double min, max, logBase, offset, value, pixel;
  } rows[] = {
      {Y, 0, 100, 0, 0, 100, 0},        {Y, 0, 100, 0, 0, 0, 100},           {Y, 0, 100, 0, 0, 50, 50},
      {X, 0, 100, 0, 0, 0, 0},          {X, 0, 100, 0, 0, 100, 100},         {X, 0, 100, 0, 10, 0, 10},
      {FlippedX, 0, 100, 0, 0, 100, 0}, {FlippedY, 0, 100, 0, 0, 0, 0},      {Y, -1, 1, 0, 5, -1, 105},
      {X, 1, 1000, 10, 0, 10, 100},     {X, 1, 1000, 10, 0, 100, 200},       {Y, 1, 1000, 10, 0, 1000, 0},
      {FlippedY, 1, 1000, 10, 7, 1, 7}, {FlippedX, 1, 1000, 10, 0, 1000, 0}, {X, -1000, -1, 10, 0, -1000, 0},
      {X, -1000, -1, 10, 0, -10, 200}};
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    VELAxisParams params = paramsOf(row.logBase > 0 ? 301 : 101, row.min, row.max, row.place % 2 != 0,
                                    row.place >= FlippedY, row.logBase);
    params.offset = row.offset;
    const auto calculator = VELCoordinateCalculatorFactory::getInstance(params);
    // Logarithms round; the linear forms are exact here.
    const double tolerance = params.isLogarithmicAxis ? 1e-9 : 0.0;
    EXPECT_NEAR(calculator->getCoordinateFrom(row.value), row.pixel, tolerance);
    EXPECT_NEAR(calculator->getDataValueFrom(row.pixel), row.value, tolerance * 100);
    EXPECT_NEAR(calculator->getCoordinateFromDate(VELDate(row.value)), row.pixel, tolerance);
  }
}

TEST(CoordinateCalculator, HelperAndStageComputeTheSameBitsAsTheCalculator) {
  // The last has no width: infinities and NaN must agree as well.
  for (const VELAxisParams& params : {paramsOf(733, -3.7, 19.1, false), paramsOf(733, -3.7, 19.1, true),
                                      paramsOf(733, 0.3, 191, true, false, 2),
                                      paramsOf(733, 0.3, 191, true, true, 10), paramsOf(733, 5, 5, true)}) {
    const auto calculator = VELCoordinateCalculatorFactory::getInstance(params);
    const VELCalculatorHelper before = calculator->getCalculatorHelper();
    const double kept = before.function(before.info, 1.0);
    calculator->setCoordinatesOffset(12.5);
    EXPECT_TRUE(before.function(before.info, 1.0) == kept || std::isnan(kept));
    const VELCalculatorHelper helper = calculator->getCalculatorHelper();
    int stages = 0;
    VELWithCalculatorStage(helper, [&](auto stage) {
      ++stages;
      for (const double value : {-5.0, -0.0, 0.1, 5.0, 17.3, 1e300, -1e300, kInf, kNaN}) {
        const double expected = calculator->getCoordinateFrom(value);
        for (const double same : {stage(value), helper.function(helper.info, value)})
          EXPECT_TRUE(same == expected || (std::isnan(same) && std::isnan(expected))) << value;
      }
    });
    EXPECT_EQ(stages, 1);
  }
  VELWithCalculatorStage({}, [](auto) { FAIL() << "no function, no stage"; });
}

TEST(CoordinateCalculator, RangesMoveByPixelsAndGrowByFractions) {
  const VELDoubleRange input(20, 40);
  // An X axis pulled to the right shows smaller values; a Y axis pulled downwards does so as well.
  for (const bool isX : {true, false}) {
    const auto calculator = VELCoordinateCalculatorFactory::getInstance(paramsOf(101, 0, 100, isX));
    EXPECT_TRUE(calculator->translateByPixels(10, input)->equals(VELDoubleRange(10, 30)));
    EXPECT_TRUE(calculator->translateByPixels(0, input)->equals(input));
    EXPECT_TRUE(calculator->translateByMinFraction(0.5, 0.25, input)->equals(VELDoubleRange(10, 45)));
  }

  const auto log = VELCoordinateCalculatorFactory::getInstance(paramsOf(301, 1, 1000, true, false, 10));
  expectRange(log->translateByPixels(0, input), 1, 1000);
  expectRange(log->translateByPixels(-100, input), 10, 10000);
  expectRange(log->translateByMinFraction(1, 0, VELDoubleRange(10, 100)), 1, 100);
}

}  // namespace
