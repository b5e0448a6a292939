// Lines, steps and markers as pixels of the real driver.
#include <gtest/gtest.h>

#include "tests/series/drawn_series.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/platform/offscreen/offscreen_host.h"
#include "velmora/series/ellipse_point_marker.h"
#include "velmora/surface/hit_test_provider.h"

namespace {

constexpr uint32_t kRed = 0xFF0000FF, kGreen = 0xFF00FF00, kBlue = 0xFFFF0000;

TEST(LineSeriesPicture, StepsPaletteAndMarkersStandWhereTheHitTestSaysAtEveryDensity) {
  for (const double density : {1.0, 2.0})
    for (const bool vertical : {false, true}) {
      const auto host = VELOffscreenHost::create({300.0, 200.0}, density);
      ASSERT_NE(host, nullptr);
      const auto view = VELChartSurfaceView::initWithFrame(host->rootView()->bounds(), *host);
      host->rootView()->addSubview(view);
      for (const bool isX : {true, false}) {
        const auto axis = std::make_shared<VELNumericAxis>();
        axis->setVisibleRange(std::make_shared<VELDoubleRange>(-0.5, 2.5));
        axis->setAxisAlignment(isX == vertical ? VELAxisAlignment_Left : VELAxisAlignment_Bottom);
        view->surface()->attachAxis(axis, isX);
      }
      auto data = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
      for (int i = 0; i < 3; ++i) data->appendX(i, i == 1 ? 2.0 : 0.0);
      const auto series = std::make_shared<VELFastLineRenderableSeries>();
      series->setDataSeries(data);
      series->style()->setIsDigitalLine(true);
      series->style()->setLinePen(VELPen2D::solid(kBlue, 3.0f));
      series->style()->setDrawPointMarkers(true);
      const auto marker = std::make_shared<VELEllipsePointMarker>();
      marker->setFillBrush(VELBrush2D::solid(kGreen));
      series->style()->setPointMarker(marker);
      // The segment to the second point is red, all others are the series' own.
      const auto red = std::make_shared<VELLineSeriesStyle>();
      red->setLinePen(VELPen2D::solid(kRed, 3.0f));
      const auto palette = std::make_shared<TestPalette>();
      palette->answer = [&](double, double, uint32_t index) { return index == 1 ? red : nullptr; };
      series->setPaletteProvider(palette);
      view->surface()->attachRenderableSeries(series);
      ASSERT_TRUE(host->settle(0.0));

      const VELBitmap picture = host->picture();
      const VELRect frame = view->surface()->chartFrame();
      const auto& pass = series->currentRenderPassData();
      const auto colorAt = [&](double xValue, double yValue) {
        const double along = pass->xCoordinateCalculator()->getCoordinateFrom(xValue);
        const double across = pass->yCoordinateCalculator()->getCoordinateFrom(yValue);
        const VELPoint place = vertical ? VELPoint{across, along} : VELPoint{along, across};
        EXPECT_TRUE(series->hitTestProvider()->hitTestSeries(*series, place, 0.01).isHit);
        return picture.colorCodeAt(static_cast<int32_t>((frame.x + place.x) * density),
                                   static_cast<int32_t>((frame.y + place.y) * density));
      };
      EXPECT_EQ(colorAt(0.5, 0.0), kRed) << "the step along X";
      EXPECT_EQ(colorAt(1.0, 1.0), kRed) << "the rise";
      EXPECT_EQ(colorAt(1.5, 2.0), kBlue);
      EXPECT_EQ(colorAt(2.0, 1.0), kBlue);
      EXPECT_EQ(colorAt(0.0, 0.0), kGreen) << "a marker, over the line";
      EXPECT_EQ(colorAt(2.0, 0.0), kGreen);
      EXPECT_NE(colorAt(1.0, 2.0), kGreen) << "the style of this point draws none";
    }
}

}  // namespace
