#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/support/recording_chart.h"
#include "velmora/axes/double_coordinate_calculator.h"
#include "velmora/axes/flipped_double_coordinate_calculator.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/data/point_series.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/platform/exception.h"
#include "velmora/series/fast_line_renderable_series.h"
#include "velmora/surface/render_pass_data.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// One data unit is one point; y grows downwards with the screen.
std::shared_ptr<VELCoordinateCalculator> identity(bool horizontal, bool flippedFlag = false) {
  return std::make_shared<VELFlippedDoubleCoordinateCalculator>(101.0, 0.0, 100.0, true, horizontal,
                                                                flippedFlag);
}

// A series with its points, drawn into a recording context of 200 by 100 points.
struct DrawnSeries {
  DrawnSeries(const std::vector<double>& xs, const std::vector<double>& ys, bool vertical = false)
      : surface(RecordingSurface::create({0.0, 0.0, 200.0, 100.0})) {
    auto values = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
    auto points = std::make_shared<VELPointSeries>();
    for (size_t i = 0; i < xs.size(); ++i) {
      values->appendX(xs[i], ys[i]);
      points->addX(xs[i], ys[i], static_cast<int32_t>(i));
    }
    series->setDataSeries(values);
    data = std::make_shared<VELRenderPassData>(nullptr, points, values, series, identity(vertical, false),
                                               identity(!vertical));
  }

  std::vector<double> polyline() {
    surface->render->operations.clear();
    series->onDrawWithContext(*surface->render, data);
    for (const auto& operation : surface->render->operations)
      if (operation.name == "polyline") return operation.numbers;
    return {};
  }

  std::shared_ptr<VELFastLineRenderableSeries> series = std::make_shared<VELFastLineRenderableSeries>();
  std::shared_ptr<RecordingSurface> surface;
  std::shared_ptr<const VELRenderPassData> data;
};

TEST(LineSeries, DrawsItsPointsStraightOrInSteps) {
  DrawnSeries line({0, 1, 2}, {0, 1, 0});
  EXPECT_EQ(line.polyline(), (std::vector<double>{0, 0, 1, 1, 2, 0}));
  line.series->style()->setIsDigitalLine(true);
  EXPECT_EQ(line.polyline(), (std::vector<double>{0, 0, 1, 0, 1, 1, 2, 1, 2, 0}));
}

TEST(LineSeries, AVerticalChartSwapsAfterTheCornersAreChosen) {
  DrawnSeries line({0, 1, 2}, {5, 6, 7}, true);
  EXPECT_TRUE(line.data->isVerticalChart());
  EXPECT_EQ(line.polyline(), (std::vector<double>{5, 0, 6, 1, 7, 2}));
  line.series->style()->setIsDigitalLine(true);
  EXPECT_EQ(line.polyline(), (std::vector<double>{5, 0, 5, 1, 6, 1, 6, 2, 7, 2}));
}

TEST(LineSeries, LeadingGapsAreLeftOutAndLaterOnesHandedOn) {
  DrawnSeries line({0, 1, 2, 3}, {kNaN, kNaN, 3, 4});
  EXPECT_EQ(line.polyline(), (std::vector<double>{2, 3, 3, 4}));
  DrawnSeries gap({0, 1, 2}, {1, kNaN, 3});
  const auto points = gap.polyline();
  ASSERT_EQ(points.size(), 6u);
  EXPECT_TRUE(std::isnan(points[3]));
  EXPECT_TRUE(DrawnSeries({0, 1}, {kNaN, kNaN}).polyline().empty());
  EXPECT_EQ(DrawnSeries({4}, {2}).polyline(), (std::vector<double>{4, 2}));
}

TEST(LineSeries, NothingIsDrawnWithoutSomethingToDraw) {
  DrawnSeries hidden({0, 1}, {0, 1});
  hidden.series->setIsVisible(false);
  EXPECT_TRUE(hidden.polyline().empty());
  EXPECT_EQ(hidden.series->currentRenderPassData(), hidden.data) << "the record is kept all the same";

  DrawnSeries noData({0, 1}, {0, 1});
  noData.series->setDataSeries(nullptr);
  EXPECT_TRUE(noData.polyline().empty());

  DrawnSeries noPen({0, 1}, {0, 1});
  noPen.series->style()->setLinePen(nullptr);
  EXPECT_TRUE(noPen.polyline().empty());

  for (const VELSize size : {VELSize{0.0, 100.0}, VELSize{100.0, 0.0}, VELSize{1.0, 1.0}}) {
    DrawnSeries tiny({0, 1}, {0, 1});
    tiny.surface->setFrame({0.0, 0.0, size.width, size.height});
    EXPECT_TRUE(tiny.polyline().empty());
  }
}

TEST(LineSeries, AStyleIsCopiedAndItsChangesShow) {
  RecordingChart chart;
  const auto series = std::make_shared<VELFastLineRenderableSeries>();
  EXPECT_EQ(series->style()->linePen()->colorCode(), 0xFF50A0F0u);
  EXPECT_EQ(series->style()->linePen()->strokeThickness(), 1.0f);
  EXPECT_EQ(series->resamplingMode(), VELResamplingMode_MinMax);
  chart.surface->attachRenderableSeries(series);
  const auto redraws = [&](auto change) {
    chart.tick();
    EXPECT_FALSE(chart.view->recording->needRedraw());
    change();
    return chart.view->recording->needRedraw();
  };
  EXPECT_TRUE(redraws([&] { series->style()->setIsDigitalLine(true); }));
  EXPECT_FALSE(redraws([&] { series->setIsVisible(false); })) << "visibility waits for the next redraw";
  EXPECT_TRUE(redraws([&] { series->setDataSeries(nullptr); }));

  VELLineSeriesStyle style;
  style.setLinePen(VELPen2D::solid(7, 2.0f));
  const auto old = series->style();
  series->setStyle(style);
  EXPECT_NE(series->style()->linePen(), style.linePen());
  EXPECT_EQ(series->style()->linePen()->colorCode(), 7u);
  EXPECT_FALSE(redraws([&] { style.setIsDigitalLine(true); }));
  EXPECT_FALSE(redraws([&] { old->setIsDigitalLine(false); })) << "a replaced style is no longer heard";

  auto gone = std::make_shared<VELFastLineRenderableSeries>();
  const auto block = gone->style()->styleChanged();
  gone.reset();
  block();  // a copy of the block finds nobody
}

TEST(SeriesBase, WidthOfAPointIsTheNarrowestGap) {
  const DrawnSeries drawn({0, 1, 3}, {0, 0, 0});
  const VELFlippedDoubleCoordinateCalculator tenAUnit(1001.0, 0.0, 100.0, true, true, false);
  const auto width = [&](double fraction) {
    return drawn.series->getDatapointWidthFrom(*drawn.data->pointSeries(), 3.0, tenAUnit, fraction);
  };
  EXPECT_EQ(width(0.5), 5.0f);
  EXPECT_EQ(width(0.0), 0.0f);
  for (const double wrong : {1.5, -0.1, kNaN}) {
    try {
      width(wrong);
      FAIL() << wrong;
    } catch (const VELInvalidArgumentException& error) {
      EXPECT_STREQ(error.what(), "WidthFraction should be between 0.0 and 1.0 inclusive");
    }
  }
}

TEST(SeriesBase, ZeroLineAndRotationFollowThePass) {
  DrawnSeries drawn({0, 1}, {0, 1});
  EXPECT_TRUE(std::isnan(drawn.series->getYZeroCoord()));
  drawn.polyline();
  EXPECT_TRUE(std::isnan(drawn.series->getYZeroCoord()));
  drawn.series->setZeroLineY(40.0);
  EXPECT_EQ(drawn.series->getYZeroCoord(), 40.0);
  drawn.series->setZeroLineY(5000.0);
  EXPECT_EQ(drawn.series->getYZeroCoord(), 101.0) << "one point past the far edge";

  EXPECT_EQ(drawn.series->getChartRotationAngle(*drawn.data), 0.0);
  const DrawnSeries vertical({0, 1}, {0, 1}, true);
  EXPECT_EQ(vertical.series->getChartRotationAngle(*vertical.data), std::numbers::pi / 2.0);
  const VELRenderPassData flipped(nullptr, nullptr, {}, {}, identity(true, true), identity(true));
  EXPECT_EQ(vertical.series->getChartRotationAngle(flipped), std::numbers::pi);

  VELRenderableSeriesBase base;
  EXPECT_THROW(base.internalDrawWithContext(*drawn.surface->render, *drawn.data),
               VELInternalInconsistencyException);
}

}  // namespace
