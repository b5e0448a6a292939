#include "velmora/surface/viewport_manager.h"

#include <gtest/gtest.h>

#include "tests/surface/chart_with_axes.h"
#include "velmora/axes/date_time_axis.h"

namespace {

TEST(ViewportManager, ZoomsToTheExtentsOnlyWhileAttached) {
  ChartWithAxes chart;
  chart.surface->attachRenderableSeries(makeSeries(1));
  for (const auto& axis : {chart.x, chart.y})
    axis->setVisibleRange(std::make_shared<VELDoubleRange>(2.0, 3.0));
  VELViewportManager detached;
  detached.zoomExtentsX();
  EXPECT_EQ(boundsOf(*chart.x), std::pair(2.0, 3.0));
  chart.surface->viewportManager()->zoomExtents();
  EXPECT_EQ(boundsOf(*chart.x), std::pair(0.0, 9.0));
  EXPECT_EQ(boundsOf(*chart.y), std::pair(0.0, 1.0));
}

TEST(ViewportManager, ADateAxisTakesTheRangeOfItsDatesAndZoomsInTime) {
  RecordingChart chart;
  const auto x = std::make_shared<VELDateTimeAxis>();
  chart.surface->attachAxis(x, true);
  chart.surface->attachAxis(std::make_shared<VELNumericAxis>(), false);
  auto data = std::make_shared<VELXyDataSeries>(VELDataType_DateTime, VELDataType_Double);
  for (int i = 0; i < 3; ++i) data->appendX(VELDate(1e9 + i * 1e6), i);
  auto series = std::make_shared<VELFastLineRenderableSeries>();
  series->setDataSeries(data);
  chart.surface->attachRenderableSeries(series);
  EXPECT_EQ(runPass(chart), 0u);
  EXPECT_TRUE(x->visibleRange()->equals(VELDateRange(1e9, 1.002e9)));

  x->setVisibleRange(std::make_shared<VELDateRange>(1.001e9, 1.002e9));
  chart.surface->viewportManager()->animateZoomExtentsX(0.5f);
  for (const double seconds : {10.0, 10.25, 10.5}) {
    chart.view->recording->link->tick(seconds);
    EXPECT_TRUE(chart.view->recording->needRedraw());
    chart.tick();
    EXPECT_DOUBLE_EQ(x->visibleRange()->minAsDouble(), 1.001e9 - 2e6 * (seconds - 10.0));
  }
}

TEST(ViewportManager, BlocksOfAWalkMayReplaceTheManagerAndTheAxes) {
  using Meddle = void (*)(VELChartSurface&);
  for (const Meddle meddle : std::initializer_list<Meddle>{
           [](VELChartSurface& s) { s.setViewportManager(std::make_shared<VELViewportManager>()); },
           [](VELChartSurface& s) { s.setXAxes(std::make_shared<VELAxisCollection>()); }})
    for (const auto walk : {&VELViewportManager::zoomExtents, &VELViewportManager::zoomExtentsX,
                            &VELViewportManager::autorangeAxes}) {
      ChartWithAxes chart;
      const auto second = std::make_shared<VELNumericAxis>();
      second->setAxisId("second");
      chart.surface->attachAxis(second, true);
      for (const auto& series : {makeSeries(1), makeSeries(2)}) chart.surface->attachRenderableSeries(series);
      chart.surface->renderableSeries()[1]->setXAxisId("second");
      chart.x->addOnVisibleRangeChanged([&](const auto&, const auto&, bool) { meddle(*chart.surface); });
      (chart.surface->viewportManager().get()->*walk)();
      EXPECT_EQ(boundsOf(*second), std::pair(0.0, 9.0)) << "the walk goes on to its end";
    }
}

TEST(ViewportManager, AYAxisThatRangesOnceFitsTheDataWhereTheXAxisIsGoing) {
  ChartWithAxes chart;
  const auto series = makeSeries(1, 1), lateSeries = makeSeries(2);
  for (int i = 1; i <= 100; ++i)
    std::static_pointer_cast<VELXyDataSeries>(series->dataSeries())->appendX(i, i);
  lateSeries->setDataSeries(series->dataSeries());
  lateSeries->setYAxisId("late");
  chart.surface->attachRenderableSeries(series);
  chart.x->setAnimateVisibleRangeChanges(true);
  chart.x->setAnimatedChangeDuration(0.5);
  chart.tick();
  EXPECT_EQ(boundsOf(*chart.x), std::pair(0.0, 10.0));
  EXPECT_EQ(boundsOf(*chart.y), std::pair(0.0, 100.0));

  for (const double seconds : {1.0, 1.25}) chart.view->recording->link->tick(seconds);
  const auto late = std::make_shared<VELNumericAxis>();
  late->setAxisId("late");
  chart.surface->attachAxis(late, false);
  chart.surface->attachRenderableSeries(lateSeries);
  chart.y->setAutoRange(VELAutoRange_Always);
  chart.tick();
  EXPECT_EQ(boundsOf(*late), std::pair(0.0, 100.0));
  EXPECT_EQ(boundsOf(*chart.y), std::pair(0.0, 55.0)) << "one that always ranges fits what is seen";
}

}  // namespace
