#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <utility>

#include "tests/series/drawn_series.h"
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
  }
  const auto gap = DrawnSeries({0, 1, 2}, {1, kNaN, 3}).polyline();
  ASSERT_EQ(gap.size(), 6u);
  EXPECT_TRUE(std::isnan(gap[3])) << "a later gap is handed on";
  DrawnSeries withoutPen({0, 1}, {0, 1});
  withoutPen.series->style()->setLinePen(nullptr);
  EXPECT_TRUE(withoutPen.polyline().empty());
}

TEST(LineSeries, AStyleIsCopiedAndItsChangesShow) {
  RecordingChart chart;
  auto series = std::make_shared<VELFastLineRenderableSeries>();
  chart.surface->attachRenderableSeries(series);
  VELLineSeriesStyle style;
  style.setLinePen(VELPen2D::solid(7, 2.0f));
  EXPECT_NE(style.clone()->cluster(), style.cluster()) << "one clusterizer serves one series";
  const auto old = series->style();
  const std::pair<std::function<void()>, bool> rows[] = {
      {[&] { series->style()->setIsDigitalLine(true); }, true},
      {[&] { series->setDataSeries(nullptr); }, true},
      {[&] { series->setStyle(style); }, true},
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
  expectOneCall([&](Block block) { context.setInvalidated(block); }, [&](float) { context.invalidate(); });
  expectOneCall([&](VELChartSurfaceViewBase::LayoutBlock block) { chart.view->setOnLayoutSubviews(block); },
                [&](float) { chart.view->layoutSubviews(); });
}

}  // namespace
