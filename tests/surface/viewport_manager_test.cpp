#include "velmora/surface/viewport_manager.h"

#include <gtest/gtest.h>

#include <functional>

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

}  // namespace
