// Which markers are drawn, and what a marker is.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <utility>

#include "tests/series/drawn_series.h"
#include "tests/support/reason_of.h"
#include "velmora/platform/exception.h"
#include "velmora/series/ellipse_point_marker.h"
#include "velmora/series/point_marker_clusterizer.h"
#include "velmora/series/renderable_series_drawing_helper.h"

namespace {

constexpr auto nan = static_cast<float>(kNaN), inf = static_cast<float>(kInf);

// Counts the markers that a clusterizer lets through.
struct Dots : VELPointMarkerBase {
  int drawn = 0;
  std::function<void()> onDraw = [] {};
  void drawToContext(VELRenderContext2D&, float, float) override { onDraw(), ++drawn; }
  bool takes(VELPointMarkerClusterizer& cluster, float x, float y) {
    static RecordingContext context;
    const int before = drawn;
    cluster.drawPointMarker(*this, x, y, context);
    return drawn != before;
  }
};

TEST(PointMarkerClusterizer, ACellTakesTheFirstMarkerAndNothingOutsideIsDrawn) {
  VELPointMarkerClusterizer cluster;
  Dots dots;
  EXPECT_FALSE(dots.takes(cluster, 0.0f, 0.0f)) << "there is no area yet";
  cluster.setArea({100.0, 50.0});
  EXPECT_EQ(cluster.columns(), 50);
  EXPECT_EQ(cluster.rows(), 25);
  const struct {
    float x, y;
    bool taken;
  } rows[] = {{10.2f, 10.2f, true}, {11.9f, 11.9f, false}, {12.0f, 11.9f, true},  {-0.5f, 3.0f, false},
              {3.0f, -0.5f, false}, {100.1f, 3.0f, false}, {3.0f, 50.1f, false},  {nan, 3.0f, false},
              {3.0f, inf, false},   {100.0f, 4.0f, true},  {0.0f, 6.0f, false},  // the right edge: next row
              {0.0f, 0.0f, true},   {-0.0f, 0.0f, false},  {100.0f, 50.0f, true}, {20.0f, 50.0f, true}};
  for (const auto& row : rows)
    EXPECT_EQ(dots.takes(cluster, row.x, row.y), row.taken) << row.x << " " << row.y;

  // The same area keeps the cells, the same spacing frees all but the lower edge, another one all.
  cluster.setArea({100.0, 50.0});
  EXPECT_FALSE(dots.takes(cluster, 10.0f, 10.0f));
  cluster.setSpacing(2.0f);
  EXPECT_TRUE(dots.takes(cluster, 10.0f, 10.0f));
  EXPECT_FALSE(dots.takes(cluster, 20.0f, 50.0f));
  int changes = 0;
  cluster.setPropertiesChanged([&] { ++changes; });
  cluster.setSpacing(4.0f);
  EXPECT_EQ(changes, 1);
  EXPECT_TRUE(dots.takes(cluster, 20.0f, 50.0f));
  EXPECT_FALSE(dots.takes(cluster, 23.9f, 49.0f));
  cluster.purge();
  EXPECT_TRUE(dots.takes(cluster, 20.0f, 50.0f));
}

TEST(PointMarkerClusterizer, NoAreaOrSpacingReachesOutsideTheGrid) {
  for (const VELSize area :
       {VELSize{1.9, 50}, VELSize{50, 1.9}, VELSize{1e300, 1e300}, VELSize{kNaN, 5}, VELSize{-5, -5},
        VELSize{100'000, 2.1}, VELSize{333.3, 99.99}, VELSize{16384, 7}})
    for (const float spacing : {2.0f, 0.3f, 0.7f, 3.3333f, 0.0f, -2.0f, nan, inf, 1e-30f}) {
      VELPointMarkerClusterizer cluster;
      cluster.setSpacing(spacing);
      cluster.setArea(area);
      Dots dots;
      const auto width = static_cast<float>(area.width), height = static_cast<float>(area.height);
      for (const float x : {0.0f, std::nextafter(width, 0.0f), width, inf, 1e30f})
        for (const float y : {0.0f, std::nextafter(height, 0.0f), height, -inf, 1e30f})
          dots.takes(cluster, x, y);
      cluster.clear();
      EXPECT_TRUE(dots.drawn == 0 || area.width >= spacing) << "no cell fits";
    }
}

TEST(EllipsePointMarker, IsFilledAroundItsPlaceAndItsBorderCloses) {
  RecordingContext context;
  VELEllipsePointMarker marker;
  marker.setFillBrush(VELBrush2D::solid(3));
  marker.setBorderPen(VELPen2D::solid(4, 1.0f));
  marker.setWidth(6.0f);
  marker.drawToContext(context, 20.0f, 30.0f);
  ASSERT_GE(context.operations.size(), 10u);
  EXPECT_EQ(context.operations[0].name, "ellipse");
  EXPECT_EQ(context.operations[0].numbers, (std::vector<double>{20, 30}));
  EXPECT_EQ(context.operations[0].colorCode, 3u);
  EXPECT_EQ(context.operations[1].name, "begin");
  EXPECT_EQ(context.operations[1].numbers, (std::vector<double>{23, 35})) << "half of 6 by 10";
  EXPECT_EQ(context.operations.back().numbers, context.operations[1].numbers);

  for (const float size : {0.0f, -1.0f, nan}) {
    context.operations.clear();
    marker.setHeight(size);
    marker.drawToContext(context, 20.0f, 30.0f);
    EXPECT_TRUE(context.operations.empty());
  }
  EXPECT_EQ(reasonOf<VELInternalInconsistencyException>(
                [&] { VELPointMarkerBase().drawToContext(context, 0.0f, 0.0f); }),
            "drawToContext:AtX:Y: must be implemented in subclass");
}

TEST(PointMarkers, StandAtEveryPointWithAValueInEveryDraw) {
  for (const bool vertical : {false, true}) {
    DrawnSeries drawn({10, 20, 30, 30.5}, {40, kNaN, 50, 50.5}, vertical);
    drawn.series->style()->setDrawPointMarkers(true);
    for (int draw = 0; draw < 2; ++draw) {
      std::vector<double> places;
      for (const auto& one : drawn.draw())
        if (one.name == "ellipse") places.insert(places.end(), one.numbers.begin(), one.numbers.end());
      EXPECT_EQ(places,
                vertical ? (std::vector<double>{40, 10, 50, 30}) : (std::vector<double>{10, 40, 30, 50}));
    }
    EXPECT_EQ(drawn.series->style()->cluster()->area(), (VELSize{200.0, 100.0}));
    drawn.series->style()->setClusterSpacing(0.25f);
    drawn.draw();
    EXPECT_EQ(drawn.surface->render->count("ellipse"), 3u);
    drawn.series->style()->setCluster(nullptr);
    drawn.draw();
    EXPECT_EQ(drawn.surface->render->count("ellipse"), 0u);
  }
}

TEST(PointMarkers, AMarkerMayLeaveItsStyleWhileItDraws) {
  for (const bool paletted : {false, true}) {
    DrawnSeries drawn({10, 20, 30}, {40, 50, 60});
    int count = 0;
    const auto palette = std::make_shared<TestPalette>();
    const auto style = paletted ? std::make_shared<VELLineSeriesStyle>() : drawn.series->style();
    palette->answer = [&](auto...) { return style; };
    auto marker = std::make_shared<Dots>();
    marker->onDraw = [&] { style->setPointMarker(nullptr), style->setCluster(nullptr), ++count; };
    style->setDrawPointMarkers(true);
    style->setPointMarker(std::exchange(marker, nullptr));
    if (paletted) drawn.series->setPaletteProvider(palette);
    drawn.draw();
    EXPECT_EQ(count, paletted ? 1 : 3) << "a palette is asked at each point, a style once a draw";
    EXPECT_EQ(style->pointMarker(), nullptr);
  }
}

TEST(MountainArea, FollowsTheLineInPointsOrStepsAndKeepsItsGaps) {
  const struct {
    bool digital, vertical;
    std::vector<double> places;  // screen x, screen y; NaN as -1
  } rows[] = {{false, false, {1, 5, 2, -1, 3, 7}},
              {false, true, {5, 1, -1, 2, 7, 3}},
              {true, false, {1, 5, 2, 5, 2, -1, 3, -1, 3, 7}},
              {true, true, {5, 1, 5, 2, -1, 2, -1, 3, 7, 3}}};
  for (const auto& row : rows) {
    DrawnSeries drawn({0, 1, 2, 3}, {kNaN, 5, kNaN, 7}, row.vertical);
    const auto draw = [&](const VELBrushPtr& brush, double zero) {
      VELRenderableSeriesDrawingHelper::drawMountainAreaToContext(*drawn.surface->render, *drawn.data, brush,
                                                                  zero, row.digital, false);
      std::vector<double> places;
      for (const auto& one : drawn.surface->render->operations) {
        if (one.numbers.empty()) continue;
        for (const double number : {one.numbers[0], one.numbers[1]})
          places.push_back(std::isnan(number) ? -1 : number);
        EXPECT_EQ(one.name, places.size() == 2 ? "beginArea" : "extendArea");
        EXPECT_EQ(one.numbers[2], 60);
        EXPECT_EQ(one.numbers[3], row.vertical ? 1 : 0);
      }
      return places;
    };
    EXPECT_TRUE(draw(nullptr, 60.0).empty());
    EXPECT_TRUE(draw(VELBrush2D::solid(1), kNaN).empty());
    EXPECT_EQ(draw(VELBrush2D::solid(1), 60.0), row.places);
  }
}

}  // namespace
