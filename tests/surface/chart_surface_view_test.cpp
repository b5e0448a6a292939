#include "velmora/surface/chart_surface_view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <utility>

#include "tests/support/calling_label_provider.h"
#include "tests/support/recording_chart.h"
#include "tests/support/recording_host.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/rendering/visual_style.h"

namespace {

// A whole chart with axes on three sides, on a GL context that records.
struct Chart {
  explicit Chart(const VELRect& frame) {
    view = VELChartSurfaceView::initWithFrame(frame, host);
    bottom->setAxisTitle("time");
    left->setAxisAlignment(VELAxisAlignment_Left);
    view->surface()->attachAxis(bottom, true);
    view->surface()->attachAxis(left, false);
    view->surface()->attachAxis(right, false);
    right->setAxisId("right");
    host.rootView()->addSubview(view);
    host.settle();
  }

  RecordingHost host;
  std::shared_ptr<VELNumericAxis> bottom = std::make_shared<VELNumericAxis>();
  std::shared_ptr<VELNumericAxis> left = std::make_shared<VELNumericAxis>();
  std::shared_ptr<VELNumericAxis> right = std::make_shared<VELNumericAxis>();
  std::shared_ptr<VELChartSurfaceView> view;
};

TEST(ChartSurfaceView, PlacesFrameAndAreasEdgeToEdgeInsideItself) {
  for (const VELSize size :
       {VELSize{1280, 720}, VELSize{640.5, 360.25}, VELSize{320, 240}, VELSize{60, 30}, VELSize{0, 0}}) {
    for (const char* title : {"", "A title"}) {
      Chart chart({7.0, 9.0, size.width, size.height});
      chart.view->surface()->setChartTitle(title);
      chart.host.settle();
      const VELRect frame = chart.view->surface()->chartFrame();
      for (const double number : {frame.x, frame.y, frame.width, frame.height})
        EXPECT_EQ(number, std::floor(number)) << "off the grid of points";
      EXPECT_GE(frame.width, 0.0);
      EXPECT_GE(frame.height, 0.0);
      EXPECT_EQ(chart.view->renderSurface()->frame(), chart.view->bounds());

      const VELRect left = chart.view->leftAxesArea()->frame(), right = chart.view->rightAxesArea()->frame();
      const VELRect bottom = chart.view->bottomAxesArea()->frame();
      EXPECT_EQ(left.right(), frame.x);
      EXPECT_EQ(right.x, frame.right());
      EXPECT_EQ(bottom.y, frame.bottom());
      for (const VELRect& side : {left, right}) EXPECT_EQ(side.height, frame.height);
      EXPECT_EQ(bottom.width, frame.width);
      if (size.width < 300.0) continue;

      const double padding = VELVisualStyle::standard().padding;
      EXPECT_GE(left.x, padding - 1.0);
      EXPECT_LE(right.right(), size.width - padding + 1.0);
      EXPECT_LE(bottom.bottom(), size.height - padding + 1.0);
      EXPECT_FALSE(chart.view->axisAreasNeedResizing()) << "settled charts want nothing more";
    }
  }
}

TEST(ChartSurfaceView, ForcedSidesKeepTheirSizeAndCauseNoMoreLayouts) {
  Chart chart({0.0, 0.0, 640.0, 360.0});
  chart.view->surface()->style()->setLeftAxisAreaSize(123.0f);
  chart.host.settle();
  EXPECT_EQ(chart.view->leftAxesArea()->frame().width, 123.0);
  EXPECT_FALSE(chart.view->axisAreasNeedResizing());

  chart.view->surface()->style()->setLeftAxisAreaSize(std::nanf(""));
  chart.host.settle();
  EXPECT_LT(chart.view->leftAxisAreaSize(), 100.0f) << "its labels decide again";
  for (const float wish : {17.0f, std::nanf(""), -1.0f, INFINITY}) {
    chart.view->setRightAxisAreaSize(wish);
    EXPECT_EQ(chart.view->rightAxisAreaSize(), 17.0f);
  }
}

TEST(ChartSurfaceView, ALayoutThatRaisesIsNotTheLastAndOneMayEndTheView) {
  RecordingChart chart;
  chart.view->setOnLayoutSubviews(
      [](float, float, float, float) { throw std::runtime_error("application"); });
  EXPECT_THROW(chart.view->layoutSubviews(), std::runtime_error);
  chart.view->setOnLayoutSubviews(nullptr);
  const int before = chart.view->placed;
  chart.view->layoutSubviews();
  EXPECT_EQ(chart.view->placed, before + 1);
  chart.view->setOnLayoutSubviews([&](float, float, float, float) { chart.view.reset(); });
  chart.view->layoutSubviews();
  EXPECT_EQ(chart.view, nullptr);
}

TEST(ChartSurfaceView, APassSurvivesWhatItsCallbacksDo) {
  Chart chart({0.0, 0.0, 640.0, 360.0});
  VELChartSurface& surface = *chart.view->surface();
  const std::function<void()> meddling[] = {
      [&] { surface.onRenderSurfaceDraw(); },
      [&] { surface.onRenderSurfaceDrawModifiers(); },
      [&] { chart.host.displayLink()->tick(0.0); },
      [&] { surface.setYAxes(nullptr); },
      [&] { surface.setXAxes(std::make_shared<VELAxisCollection>()); },
      [&] { surface.free(); },
  };
  for (const auto& action : meddling) {
    bool done = false;
    chart.bottom->setLabelProvider(std::make_shared<CallingLabelProvider>([&] {
      if (!std::exchange(done, true)) action();
    }));
    surface.invalidateElement();
    chart.host.tick();
    EXPECT_FALSE(surface.isRendering());
  }
}

}  // namespace
