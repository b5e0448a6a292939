#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <utility>

#include "tests/series/drawn_series.h"
#include "tests/support/reason_of.h"
#include "velmora/axes/axis_style.h"
#include "velmora/rendering/opengl_render_context.h"
#include "velmora/series/point_marker_clusterizer.h"

namespace {

TEST(LineSeries, DrawsItsPointsStraightOrInStepsAlsoOnVerticalCharts) {
  const struct {
    std::vector<double> xs, ys;
    bool vertical;
    std::vector<double> straight, digital;
  } rows[] = {
      {{0, 1, 2}, {0, 1, 0}, false, {0, 0, 1, 1, 2, 0}, {0, 0, 1, 0, 1, 1, 2, 1, 2, 0}},
      {{0, 1, 2},
       {5, 6, 7},
       true,
       {5, 0, 6, 1, 7, 2},
       {5, 0, 5, 1, 6, 1, 6, 2, 7, 2}},                                             // corners, then swapped
      {{0, 1, 2, 3}, {kNaN, kNaN, 3, 4}, false, {2, 3, 3, 4}, {2, 3, 3, 3, 3, 4}},  // leading gaps left out
      {{0, 1}, {kNaN, kNaN}, false, {}, {}},
      {{4}, {2}, false, {4, 2}, {4, 2}}};
  for (const auto& row : rows) {
    DrawnSeries line(row.xs, row.ys, row.vertical);
    EXPECT_EQ(line.polyline(), row.straight);
    line.series->style()->setIsDigitalLine(true);
    EXPECT_EQ(line.polyline(), row.digital);
    EXPECT_EQ(line.data->isVerticalChart(), row.vertical);
  }
  const auto gap = DrawnSeries({0, 1, 2}, {1, kNaN, 3}).polyline();
  ASSERT_EQ(gap.size(), 6u);
  EXPECT_TRUE(std::isnan(gap[3])) << "a later gap is handed on";
}

TEST(LineSeries, NothingIsDrawnWithoutSomethingToDraw) {
  std::vector<std::function<void(DrawnSeries&)>> rows = {
      [](DrawnSeries& drawn) { drawn.series->setIsVisible(false); },
      [](DrawnSeries& drawn) { drawn.series->setDataSeries(nullptr); },
      [](DrawnSeries& drawn) { drawn.series->style()->setLinePen(nullptr); }};
  for (const VELSize size : {VELSize{0.0, 100.0}, {100.0, 0.0}, {1.0, 1.0}})
    rows.push_back([size](auto& drawn) { drawn.surface->setFrame({0.0, 0.0, size.width, size.height}); });
  for (const auto& takeAway : rows) {
    DrawnSeries drawn({0, 1}, {0, 1});
    ASSERT_FALSE(drawn.polyline().empty());
    takeAway(drawn);
    EXPECT_TRUE(drawn.polyline().empty());
    EXPECT_EQ(drawn.series->currentRenderPassData(), drawn.data) << "the record is kept all the same";
  }
}

TEST(LineSeries, AStyleIsCopiedAndItsChangesShow) {
  RecordingChart chart;
  auto series = std::make_shared<VELFastLineRenderableSeries>();
  chart.surface->attachRenderableSeries(series);
  VELLineSeriesStyle style;
  style.setLinePen(VELPen2D::solid(7, 2.0f));
  style.setDrawPointMarkers(true);
  style.setClusterSpacing(5.0f);
  const auto copy = style.clone();
  EXPECT_NE(copy->cluster(), style.cluster()) << "one clusterizer serves one series";
  EXPECT_EQ(copy->clusterSpacing(), 5.0f);
  EXPECT_TRUE(copy->drawPointMarkers());
  EXPECT_EQ(copy->pointMarker(), style.pointMarker());
  const auto old = series->style();
  const std::pair<std::function<void()>, bool> rows[] = {
      {[&] { series->style()->setIsDigitalLine(true); }, true},
      {[&] { series->setIsVisible(false); }, false},  // visibility waits for the next redraw
      {[&] { series->setDataSeries(nullptr); }, true},
      {[&] { series->setXAxisId("x"); }, true},
      {[&] { series->setXAxisId("x"); }, false},
      {[&] { series->setYAxisId("y"); }, true},
      {[&] { series->setStyle(style); }, true},
      {[&] { series->style()->setDrawPointMarkers(true); }, true},
      {[&] { series->style()->setPointMarker(nullptr); }, true},
      {[&] { series->style()->setClusterSpacing(3.0f); }, true},
      {[&] { series->style()->setCluster(nullptr); }, true},
      {[&] { series->setPaletteProvider(nullptr); }, true},
      {[&] { style.setIsDigitalLine(true); }, false},
      {[&] { old->setIsDigitalLine(false); }, false}};  // a replaced style is no longer heard
  for (size_t i = 0; i < std::size(rows); ++i) {
    chart.tick();
    EXPECT_FALSE(chart.view->recording->needRedraw());
    rows[i].first();
    EXPECT_EQ(chart.view->recording->needRedraw(), rows[i].second) << i;
  }
  EXPECT_NE(series->style()->linePen(), style.linePen());
  EXPECT_EQ(series->style()->linePen()->colorCode(), 7u);
  const auto block = series->style()->styleChanged();
  chart.surface->detachRenderableSeries(series);
  series.reset();
  block();  // a copy of the block finds nobody
}

// Those of styles, and of what else tells an application of a change.
TEST(Styles, ABlockMayReplaceItselfWhileItRuns) {
  // Reads what it captured after it was replaced; a second change finds nobody.
  const auto expectOneCall = [](auto set, const std::function<void(float)>& change) {
    int calls = 0;
    set([&calls, set, step = std::vector<int>{1}](const auto&...) {
      set({});
      calls += step[0];
    });
    change(5.0f);
    change(6.0f);
    EXPECT_EQ(calls, 1);
  };
  using Block = std::function<void()>;
  VELLineSeriesStyle line;
  VELPointMarkerClusterizer cluster;
  VELAxisStyle axis;
  VELTextFormattingStyle text;
  VELRenderSurfaceStyle surface;
  VELOpenGLRenderContext context(64, nullptr);
  RecordingChart chart;
  expectOneCall([&](Block block) { line.setStyleChanged(block); },
                [&](float size) { line.setClusterSpacing(size); });
  expectOneCall([&](Block block) { cluster.setPropertiesChanged(block); },
                [&](float size) { cluster.setSpacing(size); });
  expectOneCall([&](Block block) { axis.setStyleChanged(block); },
                [&](double size) { axis.titleStyle().setFontSize(size); });
  expectOneCall([&](Block block) { text.setStyleChanged(block); },
                [&](double size) { text.setFontSize(size); });
  expectOneCall([&](Block block) { surface.setStyleChanged(block); },
                [&](float) { surface.setBorderPen(nullptr); });
  expectOneCall([&](Block block) { context.setInvalidated(block); }, [&](float) { context.invalidate(); });
  expectOneCall([&](VELChartSurfaceViewBase::LayoutBlock block) { chart.view->setOnLayoutSubviews(block); },
                [&](float) { chart.view->layoutSubviews(); });
}

TEST(SeriesBase, WidthOfAPointIsTheNarrowestGap) {
  const DrawnSeries drawn({0, 1, 3}, {0, 0, 0});
  const VELFlippedDoubleCoordinateCalculator tenAUnit(1001.0, 0.0, 100.0, true, true, false);
  const auto width = [&](double fraction) {
    return drawn.series->getDatapointWidthFrom(*drawn.data->pointSeries(), 3.0, tenAUnit, fraction);
  };
  EXPECT_EQ(width(0.5), 5.0f);
  EXPECT_EQ(width(0.0), 0.0f);
  for (const double wrong : {1.5, -0.1, kNaN})
    EXPECT_EQ(reasonOf<VELInvalidArgumentException>([&] { width(wrong); }),
              "WidthFraction should be between 0.0 and 1.0 inclusive");
}

TEST(SeriesBase, ZeroLineAndRotationFollowThePass) {
  DrawnSeries drawn({0, 1}, {0, 1});
  EXPECT_TRUE(std::isnan(drawn.series->getYZeroCoord()));
  drawn.polyline();
  EXPECT_TRUE(std::isnan(drawn.series->getYZeroCoord()));
  for (const auto& [zero, expected] : {std::pair{40.0, 40.0}, {5000.0, 101.0}}) {
    drawn.series->setZeroLineY(zero);
    EXPECT_EQ(drawn.series->getYZeroCoord(), expected) << "at most one point past the far edge";
  }
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
