#include "velmora/surface/viewport_manager.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/numbers.h"
#include "tests/surface/chart_with_axes.h"

namespace {

TEST(ViewportManager, ZoomsToTheExtentsOnlyWhileAttached) {
  using Bounds = std::pair<double, double>;
  const Bounds xBefore{2.0, 4.0}, yBefore{20.0, 30.0}, all{0.0, 9.0}, seen{2.0, 4.0};
  const struct {
    std::function<void(VELChartSurface&)> zoom;
    Bounds x, y;
  } rows[] = {
      {[](auto& s) { s.viewportManager()->zoomExtents(); }, all, all},
      {[](auto& s) { s.viewportManager()->zoomExtentsX(); }, all, yBefore},
      {[](auto& s) { s.viewportManager()->zoomExtentsY(); }, xBefore, seen},
      // Half of the time later; Y goes to the data where X is going.
      {[](auto& s) { s.viewportManager()->animateZoomExtents(0.5f); }, {1.0, 6.5}, {10.0, 19.5}},
      {[](auto& s) { s.viewportManager()->animateZoomExtentsX(0.5f); }, {1.0, 6.5}, yBefore},
      {[](auto& s) { s.viewportManager()->animateZoomExtentsY(0.5f); }, xBefore, {11.0, 17.0}},
      {[](auto& s) { s.viewportManager()->detachVelmoraSurface(), s.viewportManager()->zoomExtents(); },
       xBefore, yBefore},
      {[](auto& s) { s.setXAxes(nullptr), s.viewportManager()->zoomExtents(); }, xBefore, yBefore},
      {[](auto& s) { s.setYAxes(std::make_shared<VELAxisCollection>()), s.viewportManager()->zoomExtents(); },
       xBefore, yBefore}};
  for (const auto& row : rows) {
    ChartWithAxes chart;
    const auto series = makeSeries(1, 0);
    for (int i = 0; i < 10; ++i)
      std::static_pointer_cast<VELXyDataSeries>(series->dataSeries())->appendX(i, i);
    chart.surface->attachRenderableSeries(series);
    chart.x->setVisibleRange(std::make_shared<VELDoubleRange>(xBefore.first, xBefore.second));
    chart.y->setVisibleRange(std::make_shared<VELDoubleRange>(yBefore.first, yBefore.second));
    row.zoom(*chart.surface);
    for (const double seconds : {10.0, 10.25}) chart.view->recording->link->tick(seconds);
    EXPECT_EQ(boundsOf(*chart.x), row.x) << &row - rows;
    EXPECT_EQ(boundsOf(*chart.y), row.y) << &row - rows;
  }
}

// A manager with a rule of its own, and axes that count the passes which begin on them.
TEST(ViewportManager, ItsHooksGiveRangesToThePassAndToTheStepsThatAreOffered) {
  struct Manager : VELViewportManager {
    VELRangePtr range;
    VELRangePtr onCalculateNewXRange(VELAxisBase&) override { return range; }
    VELRangePtr onCalculateNewYRange(VELAxisBase&, const VELRenderPassInfo&) override { return range; }
  };
  struct Axis : VELNumericAxis {
    int begun = 0;
    void onBeginRenderPass() override { ++begun; }
  };
  const std::pair<VELRangePtr, double> rows[] = {{nullptr, 4.0},
                                                 {std::make_shared<VELDoubleRange>(2.0, 5.0), 5.0},
                                                 {std::make_shared<VELIndexRange>(2, 6), 6.0},
                                                 {std::make_shared<VELDoubleRange>(kNaN, 7.0), 4.0}};
  for (const auto& [range, top] : rows) {
    RecordingChart chart;
    const auto x = std::make_shared<Axis>(), y = std::make_shared<Axis>();
    for (const auto& axis : {x, y}) {
      chart.surface->attachAxis(axis, axis == x);
      axis->setVisibleRange(std::make_shared<VELDoubleRange>(2.0, 4.0));
    }
    const auto manager = std::make_shared<Manager>();
    chart.surface->setViewportManager(manager);
    manager->range = range;
    chart.tick();
    EXPECT_EQ(boundsOf(*x), std::pair(2.0, top));
    EXPECT_EQ(boundsOf(*y), std::pair(2.0, 4.0)) << "the pass asks for no Y range";
    EXPECT_EQ(x->begun + y->begun, 0);

    VELChartRenderer renderer(chart.surface);
    const VELRenderPassInfo info;
    renderer.o_prepareXAxes(*chart.surface, info);
    EXPECT_EQ(std::pair(x->begun, y->begun), std::pair(1, 0));
    renderer.o_prepareYAxes(*chart.surface, info);
    EXPECT_EQ(std::pair(x->begun, y->begun), std::pair(1, 1));
    EXPECT_EQ(boundsOf(*y), std::pair(2.0, top));
  }
}

TEST(ViewportManager, OneThatWasGivenToAnotherSurfaceStaysThere) {
  ChartWithAxes first, second;
  const auto manager = first.surface->viewportManager();
  second.surface->setViewportManager(manager);
  first.surface->setViewportManager(std::make_shared<VELViewportManager>());
  EXPECT_TRUE(manager->isAttachedTo(*second.surface));
  second.surface->setViewportManager(second.surface->viewportManager());
  EXPECT_TRUE(manager->isAttachedTo(*second.surface));
  second.surface->setViewportManager(nullptr);
  EXPECT_FALSE(manager->isAttached());
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
