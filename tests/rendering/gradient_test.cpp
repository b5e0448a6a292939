// Ramps of gradients, and where a gradient brush or pen puts them.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/numbers.h"
#include "velmora/axes/coordinate_calculator_factory.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/rendering/linear_gradient_brush.h"
#include "velmora/rendering/linear_gradient_pen.h"
#include "velmora/series/renderable_series_base.h"
#include "velmora/surface/render_pass_data.h"

namespace {

constexpr auto horizontal = VELGradientDirection_Horizontal, vertical = VELGradientDirection_Vertical;
using Codes = std::vector<uint32_t>;

TEST(GradientRamp, MixesEachChannelBetweenTheCentresOfItsStepsAndHoldsTheEnds) {
  EXPECT_EQ(VELGradientRamp({{0, 0x00000000}, {1, 0x80FF04C8}}, 4),
            (Codes{0x10200119, 0x3060024B, 0x509F037D, 0x70DF04AF}));
  EXPECT_EQ(VELGradientRamp({{0, 2}, {1, 0}}, 2), (Codes{2, 1})) << "halves are rounded up both ways";
  const struct {
    const char* what;
    std::vector<VELGradientStop> stops;
    Codes expected;  ///< at 1/8, 3/8, 5/8 and 7/8
  } rows[] = {{"nothing", {}, {}},
              {"no number", {{kNaN, 1}, {kInf, 2}, {-kInf, 3}}, {}},
              {"one", {{0.9, 5}, {kNaN, 7}}, {5, 5, 5, 5}},
              {"unsorted", {{1, 40}, {0, 0}}, {5, 15, 25, 35}},
              {"a step", {{0.5, 1}, {0.5, 9}, {0.5, 4}}, {1, 1, 4, 4}},
              {"a step on a centre", {{0.375, 1}, {0.375, 4}}, {1, 4, 4, 4}},
              {"huge", {{-1e308, 10}, {1e308, 20}}, {15, 15, 15, 15}}};
  for (const auto& row : rows) EXPECT_EQ(VELGradientRamp(row.stops, 4), row.expected) << row.what;
}

std::string column(const VELBrush2D& brush, double position) {
  uint32_t code = 1;
  uint16_t x = 0, y = 0;
  brush.getColorCode(code, x, y, position, position);
  EXPECT_TRUE(code == 0 && y == 3 * 256 + 1);
  return std::to_string(x) + ' ';
}

// What ends up in a vertex is the column of the atlas, from 1 to 65534.
TEST(GradientBrush, SpansAnAreaOrShowsItsFirstColourWhereItCannot) {
  const struct {
    double x, width;
    std::vector<double> positions;
    std::string columns;
  } rows[] = {{10, 100, {5, 10, 60, 110, 200, kNaN, -kInf, kInf}, "1 1 32768 65534 65534 1 1 65534 "},
              {110, -100, {5, 60, 200}, "1 32768 65534 "},
              {7, 0, {6, 7, 8, kInf}, "1 1 1 1 "},
              {kNaN, 5, {0, 1}, "1 1 "},
              {0, kInf, {-1, 0, 1e9, kInf}, "1 1 1 1 "},
              {0, 1e-320, {0, 5e-321, 1}, "1 65534 65534 "}};
  for (const auto& row : rows) {
    for (const auto direction : {horizontal, vertical}) {
      VELBrushLinearGradient brush(1, 2, direction);
      brush.setGradientIndex(3);
      direction == horizontal ? brush.setDrawingAreaX(row.x, 500, row.width, 1)
                              : brush.setDrawingAreaX(500, row.x, 1, row.width);
      std::string actual;
      for (const double position : row.positions) actual += column(brush, position);
      EXPECT_EQ(actual, row.columns) << row.x << ' ' << row.width;
    }
  }
}

// 100 points up to the value 10, from 0 or, logarithmic, from 1.
std::shared_ptr<VELCoordinateCalculator> calculatorOf(bool isX, bool isHorizontal,
                                                      bool isLogarithmic = false) {
  VELAxisParams params;
  params.size = 100;
  params.logarithmicBase = 10;
  params.visibleMin = isLogarithmic ? 1 : 0;
  params.visibleMax = 10;
  params.isLogarithmicAxis = isLogarithmic;
  params.isXAxis = isX;
  params.isHorizontal = isHorizontal;
  return VELCoordinateCalculatorFactory::getInstance(params);
}

TEST(GradientBrush, SpansTheDataAlongTheAxisThatItRunsAlong) {
  using Span = std::pair<double, double>;
  const auto spanOf = [](const VELRenderPassData& data, VELGradientDirection direction) {
    VELPenLinearGradient pen(1, 2, direction, 1);
    pen.setDrawingAreaX(1, 1, 1, 1);
    pen.setRenderPassData(&data);
    return Span(pen.min(), pen.max());
  };
  const auto values = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double),
             none = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  values->appendX(2, 8);
  values->appendX(4, 5);
  const auto series = std::make_shared<VELRenderableSeriesBase>();
  const auto x = calculatorOf(true, true), y = calculatorOf(false, false),
             turnedX = calculatorOf(true, false), turnedY = calculatorOf(false, true);
  const auto passOf = [&](const auto& data, const auto& yCalculator, const auto& xCalculator) {
    return VELRenderPassData(nullptr, nullptr, data, series, yCalculator, xCalculator);
  };
  const auto upright = passOf(values, y, x), turned = passOf(values, turnedY, turnedX);
  const Span alongX = spanOf(upright, horizontal), alongY = spanOf(upright, vertical);
  EXPECT_EQ(alongX, Span(x->getCoordinateFrom(2), x->getCoordinateFrom(4)));
  EXPECT_EQ(alongY, Span(y->getCoordinateFrom(8), y->getCoordinateFrom(5)));
  EXPECT_EQ(spanOf(turned, horizontal), Span(turnedY->getCoordinateFrom(8), turnedY->getCoordinateFrom(5)));
  series->setZeroLineY(-1);
  EXPECT_EQ(spanOf(upright, vertical), Span(alongY.first, y->getCoordinateFrom(-1)));
  series->setZeroLineY(0);
  const auto logarithmic = calculatorOf(false, false, true);
  EXPECT_EQ(spanOf(passOf(values, logarithmic, x), vertical).second, logarithmic->getCoordinateFrom(5))
      << "0 has no place there";

  const auto days = VELXyDataSeries::initWithCategoryXType(VELDataType_Double, VELDataType_Double);
  for (const double day : {100.0, 200.0, 900.0}) days->appendX(day, 1.0);
  EXPECT_EQ(spanOf(passOf(days, y, x), horizontal), Span(x->getCoordinateFrom(0), x->getCoordinateFrom(2)))
      << "categories are counted";

  const Span before(1, 2);
  EXPECT_EQ(spanOf(passOf(none, y, x), vertical), before) << "no data";
  EXPECT_EQ(spanOf(passOf(std::weak_ptr<VELDataSeries>(), y, x), vertical), before);
  EXPECT_EQ(spanOf(passOf(values, nullptr, x), vertical), before);
}

}  // namespace
