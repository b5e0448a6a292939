#include "velmora/surface/chart_renderer.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/reason_of.h"
#include "tests/surface/chart_with_axes.h"
#include "velmora/platform/exception.h"
#include "velmora/surface/render_pass_data.h"

namespace {

TEST(RenderPass, AStructureThatCannotDrawIsClearedAndSaysWhy) {
  RecordingChart bare;
  bare.surface->invalidateElement();
  EXPECT_EQ(runPass(bare), VELSurfaceError_NoXAxis);
  EXPECT_EQ(bare.context().names(), std::vector<std::string>{"clear"});
  bare.surface->attachAxis(std::make_shared<VELNumericAxis>(), true);
  EXPECT_EQ(runPass(bare), VELSurfaceError_NoYAxis);
  bare.surface->setYAxes(nullptr);
  bare.surface->invalidateElement();
  EXPECT_EQ(runPass(bare), VELSurfaceError_NoAxisCollection);

  ChartWithAxes chart;
  EXPECT_EQ(runPass(chart), VELSurfaceError_NoSeries);
  EXPECT_GT(chart.context().count("line") + chart.context().count("rect"), 10u) << "the grid is drawn";
  EXPECT_EQ(chart.view->recording->background->names(), (std::vector<std::string>{"clear", "rect"}));
  chart.surface->attachRenderableSeries(std::make_shared<VELFastLineRenderableSeries>());
  EXPECT_EQ(runPass(chart), VELSurfaceError_NoDataSeries);
  chart.surface->setRenderSurface(nullptr);
  chart.surface->onRenderSurfaceDraw();
  EXPECT_EQ(chart.surface->lastErrorCode(), VELSurfaceError_NoRenderSurface);
}

TEST(RenderPass, GridComesFirstThenSeriesInTheChartFrameSelectedOnesLast) {
  ChartWithAxes chart;
  chart.view->renderSurfaceSizeView()->setFrame({20.0, 10.0, 150.0, 80.0});
  for (uint32_t i = 1; i <= 3; ++i) {
    const auto series = makeSeries(i);
    series->setIsSelected(i == 1);
    chart.surface->attachRenderableSeries(series);
  }
  EXPECT_EQ(runPass(chart), VELSurfaceError_None);
  const auto names = chart.context().names();
  EXPECT_EQ(names.front(), "clear");
  ASSERT_GE(names.size(), 7u);
  const std::vector<std::string> expected = {"area", "new", "polyline", "new", "polyline", "new", "polyline"};
  EXPECT_EQ(std::vector<std::string>(names.end() - 7, names.end()), expected);
  const auto* const drawn = &chart.context().operations[names.size() - 7];
  EXPECT_EQ(drawn[0].numbers, (std::vector<double>{20.0, 10.0, 150.0, 80.0}));
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(drawn[2 * i + 2].colorCode, (i + 1) % 3 + 1) << "2, 3, 1";
}

TEST(RenderPass, AFrameThatIsTooSmallLeavesTheLastPicture) {
  ChartWithAxes chart;
  chart.tick();
  const size_t before = chart.context().operations.size();
  for (const VELSize size :
       {VELSize{1.5, 300.0}, VELSize{300.0, 1.99}, VELSize{0.0, 0.0}, VELSize{std::nan(""), 5.0}}) {
    chart.view->renderSurfaceSizeView()->setFrame({0.0, 0.0, size.width, size.height});
    chart.surface->invalidateElement();
    EXPECT_EQ(runPass(chart), VELSurfaceError_TooSmall | VELSurfaceError_NoSeries);
    EXPECT_EQ(chart.context().operations.size(), before);
  }
  chart.view->renderSurfaceSizeView()->setFrame({0.0, 0.0, 2.0, 2.0});
  chart.surface->invalidateElement();
  EXPECT_EQ(runPass(chart), VELSurfaceError_NoSeries) << "two by two points are enough";
}

TEST(RenderPass, NeverRangedAxesAndMissingTickProvidersStopIt) {
  ChartWithAxes chart;
  chart.y->setVisibleRange(std::make_shared<VELDoubleRange>(3.0, 3.0));
  chart.y->setAutoRange(VELAutoRange_Never);
  EXPECT_EQ(runPass(chart), VELSurfaceError_InvalidRange | VELSurfaceError_NoSeries);
  EXPECT_TRUE(chart.context().operations.empty());
  chart.x->setTickProvider(nullptr);
  chart.surface->invalidateElement();
  EXPECT_EQ(runPass(chart),
            VELSurfaceError_InvalidRange | VELSurfaceError_NoTickProvider | VELSurfaceError_NoSeries);
}

TEST(RenderPass, ASeriesWhoseAxisIsMissingOrAmbiguousRaises) {
  ChartWithAxes chart;
  const auto series = makeSeries(1);
  series->setXAxisId("other");
  chart.surface->attachRenderableSeries(series);
  EXPECT_EQ(reasonOf<VELInvalidArgumentException>([&] { chart.tick(); }),
            "There is no axis with Id:other in AxisCollection");
  EXPECT_FALSE(chart.surface->isRendering());
  series->setXAxisId(VELAxisBase::defaultAxisId);
  chart.surface->attachAxis(std::make_shared<VELNumericAxis>(), true);
  EXPECT_THROW(chart.tick(), VELInvalidArgumentException);

  ChartWithAxes unmanaged;
  unmanaged.surface->setViewportManager(nullptr);
  EXPECT_EQ(reasonOf<VELInternalInconsistencyException>([&] { unmanaged.tick(); }),
            "VelmoraSurface.viewport manager is null");
}

TEST(RenderPass, EverySeriesGetsARecordEvenWithNothingVisible) {
  ChartWithAxes chart;
  const auto outside = makeSeries(7), hidden = makeSeries(8);
  hidden->setIsVisible(false);
  chart.x->setVisibleRange(std::make_shared<VELDoubleRange>(1000.0, 2000.0));
  for (const auto& series : {outside, hidden}) chart.surface->attachRenderableSeries(series);
  EXPECT_EQ(runPass(chart), VELSurfaceError_None);
  ASSERT_TRUE(outside->currentRenderPassData() && hidden->currentRenderPassData());
  EXPECT_EQ(outside->currentRenderPassData()->pointSeries(), nullptr);
  EXPECT_EQ(chart.context().count("polyline"), 0u);
}

TEST(RenderPass, AChangeOfDataAsksForOnePassAndAutoRangesOnce) {
  ChartWithAxes chart;
  const auto series = makeSeries(1);
  chart.surface->attachRenderableSeries(series);
  for (int i = 0; i < 8; ++i) chart.tick();
  EXPECT_FALSE(chart.view->recording->needRedraw());
  EXPECT_EQ(boundsOf(*chart.x), std::pair(0.0, 9.0));
  std::static_pointer_cast<VELXyDataSeries>(series->dataSeries())->appendX(50.0, 1.0);
  EXPECT_TRUE(chart.view->recording->needRedraw());
  chart.tick();
  EXPECT_EQ(boundsOf(*chart.x), std::pair(0.0, 9.0)) << "once means once";
  chart.x->setAutoRange(VELAutoRange_Always);
  chart.surface->invalidateElement();
  chart.tick();
  EXPECT_EQ(boundsOf(*chart.x), std::pair(0.0, 50.0));
}

}  // namespace
