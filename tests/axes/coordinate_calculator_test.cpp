#include "velmora/axes/coordinate_calculator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include "velmora/axes/calculator_stage.h"
#include "velmora/axes/coordinate_calculator_factory.h"
#include "velmora/platform/exception.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

VELAxisParams paramsOf(double size, double min, double max, bool isX, bool flip = false, double logBase = 0) {
  VELAxisParams params;
  params.size = size;
  params.visibleMin = min;
  params.visibleMax = max;
  params.isXAxis = isX;
  params.isHorizontal = isX;
  params.flipCoordinates = flip;
  params.isLogarithmicAxis = logBase > 0.0;
  params.logarithmicBase = logBase;
  return params;
}

TEST(CoordinateCalculator, EachKindOfAxisPutsValuesWhereItSays) {
  struct Row {
    VELAxisParams params;
    double offset, value, pixel;
  };
  const std::vector<Row> rows = {
      {paramsOf(101, 0, 100, false), 0, 100, 0},
      {paramsOf(101, 0, 100, false), 0, 0, 100},
      {paramsOf(101, 0, 100, false), 0, 50, 50},
      {paramsOf(101, 0, 100, true), 0, 0, 0},
      {paramsOf(101, 0, 100, true), 0, 100, 100},
      {paramsOf(101, 0, 100, true), 10, 0, 10},
      {paramsOf(101, 0, 100, true, true), 0, 100, 0},
      {paramsOf(101, 0, 100, false, true), 0, 0, 0},
      {paramsOf(101, -1, 1, false), 5, -1, 105},
      {paramsOf(301, 1, 1000, true, false, 10), 0, 10, 100},
      {paramsOf(301, 1, 1000, true, false, 10), 0, 100, 200},
      {paramsOf(301, 1, 1000, false, false, 10), 0, 1000, 0},
      {paramsOf(301, 1, 1000, false, true, 10), 7, 1, 7},
      {paramsOf(301, 1, 1000, true, true, 10), 0, 1000, 0},
      // A negative range follows the magnitudes: its minimum has the larger one.
      {paramsOf(301, -1000, -1, true, false, 10), 0, -1000, 0},
      {paramsOf(301, -1000, -1, true, false, 10), 0, -10, 200},
  };
  for (size_t i = 0; i < rows.size(); ++i) {
    const Row& row = rows[i];
    VELAxisParams params = row.params;
    params.offset = row.offset;
    const auto calculator = VELCoordinateCalculatorFactory::getInstance(params);
    // Logarithms round; the linear forms are exact here.
    const double tolerance = params.isLogarithmicAxis ? 1e-9 : 0.0;
    EXPECT_NEAR(calculator->getCoordinateFrom(row.value), row.pixel, tolerance) << i;
    EXPECT_NEAR(calculator->getDataValueFrom(row.pixel), row.value, tolerance * 100) << i;
    EXPECT_EQ(calculator->getCoordinateFromDate(VELDate(row.value)),
              calculator->getCoordinateFrom(row.value));
    EXPECT_EQ(calculator->isXAxisCalculator(), params.isXAxis);
    EXPECT_EQ(calculator->isHorizontalAxisCalculator(), params.isHorizontal);
    EXPECT_EQ(calculator->hasFlippedCoordinates(), params.flipCoordinates);
    EXPECT_FALSE(calculator->isLogarithmicAxisCalculator());
    EXPECT_EQ(dynamic_cast<VELLogarithmicCoordinateCalculator*>(calculator.get()) != nullptr,
              params.isLogarithmicAxis);
  }
}

TEST(CoordinateCalculator, ADirectionMakesHorizontalXAxesAndUprightOthers) {
  VELDoubleCoordinateCalculator plain(101, 0, 100, VELDirection2D_Y, false);
  VELFlippedDoubleCoordinateCalculator flipped(101, 0, 100, VELDirection2D_X, true);
  VELLogarithmicDoubleCoordinateCalculator x(301, 1, 1000, 10, VELDirection2D_X, false),
      y(301, 1, 1000, 10, VELDirection2D_Y, true);
  struct Row {
    const VELCoordinateCalculator& calculator;
    double value, pixel;
    bool isX, isFlipped;
  };
  for (const Row& row : std::vector<Row>{{plain, 90, 10, false, false},
                                         {flipped, 90, 90, true, true},
                                         {x, 10, 100, true, false},
                                         {y, 10, 100, false, true}}) {
    EXPECT_NEAR(row.calculator.getCoordinateFrom(row.value), row.pixel, 1e-9);
    EXPECT_EQ(row.calculator.isXAxisCalculator(), row.isX);
    EXPECT_EQ(row.calculator.isHorizontalAxisCalculator(), row.isX);
    EXPECT_EQ(row.calculator.hasFlippedCoordinates(), row.isFlipped);
  }
  plain.setCoordinateConstant(2);
  flipped.setCoordinateConstant(2);
  EXPECT_EQ(plain.getCoordinateFrom(90), 20);
  EXPECT_EQ(flipped.getCoordinateFrom(90), 80);
  const VELCalculatorHelper helper = flipped.getCalculatorHelper();
  EXPECT_EQ(helper.function(helper.info, 90), 80);
}

TEST(CoordinateCalculator, HelperAndStageComputeTheSameBitsAsTheCalculator) {
  const std::vector<VELAxisParams> kinds = {
      paramsOf(733, -3.7, 19.1, false),
      paramsOf(733, -3.7, 19.1, true),
      paramsOf(733, 0.3, 191, true, false, 2),
      paramsOf(733, 0.3, 191, true, true, 10),
      paramsOf(733, 5, 5, true),  // no width: infinities and NaN must agree as well
  };
  const std::vector<double> values = {-5, -0.0, 0.1, 5, 17.3, 1e300, -1e300, INFINITY, kNaN};
  for (const VELAxisParams& params : kinds) {
    const auto calculator = VELCoordinateCalculatorFactory::getInstance(params);
    const VELCalculatorHelper before = calculator->getCalculatorHelper();
    const double kept = before.function(before.info, 1.0);
    calculator->setCoordinatesOffset(12.5);
    EXPECT_TRUE(before.function(before.info, 1.0) == kept || std::isnan(kept));
    const VELCalculatorHelper helper = calculator->getCalculatorHelper();
    int stages = 0;
    VELWithCalculatorStage(helper, [&](auto stage) {
      ++stages;
      for (const double value : values) {
        const double expected = calculator->getCoordinateFrom(value);
        if (std::isnan(expected)) {
          EXPECT_TRUE(std::isnan(stage(value)) && std::isnan(helper.function(helper.info, value)));
          continue;
        }
        EXPECT_EQ(stage(value), expected);
        EXPECT_EQ(helper.function(helper.info, value), expected);
      }
    });
    EXPECT_EQ(stages, 1);
  }
  double foreign = 0.0;
  const double factor = 3.0;
  VELWithCalculatorStage(
      {&factor, [](const void* f, double v) { return v * *static_cast<const double*>(f); }},
      [&](auto stage) { foreign = stage(2.0); });
  EXPECT_EQ(foreign, 6.0);
  VELWithCalculatorStage({}, [](auto) { FAIL() << "no function, no stage"; });
}

TEST(CoordinateCalculator, RangesMoveByPixelsAndGrowByFractions) {
  const VELDoubleRange input(20, 40);
  // An X axis pulled to the right shows smaller values; a Y axis pulled downwards does so as well.
  const auto x = VELCoordinateCalculatorFactory::getInstance(paramsOf(101, 0, 100, true));
  EXPECT_TRUE(x->translateByPixels(10, input)->equals(VELDoubleRange(10, 30)));
  const auto y = VELCoordinateCalculatorFactory::getInstance(paramsOf(101, 0, 100, false));
  EXPECT_TRUE(y->translateByPixels(10, input)->equals(VELDoubleRange(10, 30)));
  EXPECT_TRUE(x->translateByPixels(0, input)->equals(input));
  EXPECT_TRUE(x->translateByMinFraction(0.5, 0.25, input)->equals(VELDoubleRange(10, 45)));
  EXPECT_TRUE(input.equals(VELDoubleRange(20, 40)));

  const auto log = VELCoordinateCalculatorFactory::getInstance(paramsOf(301, 1, 1000, true, false, 10));
  const auto unmoved = log->translateByPixels(0, input);
  EXPECT_NEAR(unmoved->minAsDouble(), 1, 1e-12);
  EXPECT_NEAR(unmoved->maxAsDouble(), 1000, 1e-9);
  EXPECT_NEAR(log->translateByPixels(-100, input)->maxAsDouble(), 10000, 1e-7);
  const auto grown = log->translateByMinFraction(1, 0, VELDoubleRange(10, 100));
  EXPECT_NEAR(grown->minAsDouble(), 1, 1e-12);
  EXPECT_NEAR(grown->maxAsDouble(), 100, 1e-12);
}

TEST(CoordinateCalculator, MisuseIsNamed) {
  const VELCoordinateCalculatorBase base;
  const auto reasonOf = [](auto call) -> std::string {
    try {
      call();
    } catch (const VELInternalInconsistencyException& e) {
      return e.what();
    }
    return "nothing";
  };
  EXPECT_EQ(reasonOf([&] { base.getCoordinateFrom(1); }),
            "You must override getCoordinateFrom: in a subclass");
  EXPECT_EQ(reasonOf([&] { base.getCoordinateFromDate(VELDate()); }),
            "You must override getCoordinateFromDate: in a subclass");
  EXPECT_EQ(reasonOf([&] { base.getDataValueFrom(1); }), "You must override getDataValueFrom: in a subclass");
  EXPECT_EQ(base.getCalculatorHelper().function, nullptr);
  VELAxisParams polar = paramsOf(10, 0, 1, true);
  polar.isPolarAxis = true;
  EXPECT_EQ(reasonOf([&] { VELCoordinateCalculatorFactory::getInstance(polar); }),
            "Unable to create tick calculator instance");
}

TEST(AxisParams, AreNeverEqualWithoutAPointRange) {
  VELAxisParams a = paramsOf(100, 0, 1, true), b = a;
  EXPECT_FALSE(a.equals(a));
  a.pointRange = std::make_shared<VELIndexRange>(1, 5);
  EXPECT_FALSE(a.equals(b));
  b.pointRange = std::make_shared<VELIndexRange>(1, 5);
  EXPECT_TRUE(a.equals(b));
  b.offset = 3;
  b.isPolarAxis = true;
  EXPECT_TRUE(a.equals(b));
  b.barTimeFrame = 1;
  EXPECT_FALSE(a.equals(b));
  b.barTimeFrame = a.barTimeFrame = kNaN;
  EXPECT_FALSE(a.equals(b));
}

}  // namespace
