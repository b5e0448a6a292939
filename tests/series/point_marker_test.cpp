// Which markers are drawn, and what a marker is.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <utility>

#include "tests/series/drawn_series.h"
#include "velmora/series/ellipse_point_marker.h"
#include "velmora/series/point_marker_clusterizer.h"

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
  const struct {
    float x, y;
    bool taken;
  } rows[] = {{10.2f, 10.2f, true}, {11.9f, 11.9f, false}, {12.0f, 11.9f, true},  {-0.5f, 3.0f, false},
              {3.0f, -0.5f, false}, {100.1f, 3.0f, false}, {3.0f, 50.1f, false},  {nan, 3.0f, false},
              {3.0f, inf, false},   {100.0f, 4.0f, true},  {0.0f, 6.0f, false},  // the right edge: next row
              {0.0f, 0.0f, true},   {-0.0f, 0.0f, false},  {100.0f, 50.0f, true}, {20.0f, 50.0f, true}};
  for (const auto& row : rows)
    EXPECT_EQ(dots.takes(cluster, row.x, row.y), row.taken) << row.x << " " << row.y;
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

TEST(EllipsePointMarker, IsFilledAroundItsPlaceAndHasNoPictureWithoutASize) {
  RecordingContext context;
  VELEllipsePointMarker marker;
  marker.setFillBrush(VELBrush2D::solid(3));
  marker.drawToContext(context, 20.0f, 30.0f);
  ASSERT_FALSE(context.operations.empty());
  EXPECT_EQ(context.operations[0].name, "ellipse");
  EXPECT_EQ(context.operations[0].numbers, (std::vector<double>{20, 30}));
  EXPECT_EQ(context.operations[0].colorCode, 3u);

  for (const float size : {0.0f, -1.0f, nan}) {
    context.operations.clear();
    marker.setHeight(size);
    marker.drawToContext(context, 20.0f, 30.0f);
    EXPECT_TRUE(context.operations.empty());
  }
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
  }
}

}  // namespace
