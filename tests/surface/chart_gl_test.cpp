// Whole charts on the real driver: what must give the same picture, bit by bit.
#include <GLES3/gl3.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "velmora/axes/numeric_axis.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/platform/offscreen/offscreen_host.h"
#include "velmora/rendering/visual_style.h"
#include "velmora/series/fast_line_renderable_series.h"
#include "velmora/surface/chart_surface.h"
#include "velmora/surface/chart_surface_view.h"

namespace {

struct Chart {
  explicit Chart(const VELSize& size, double scale, double phase = 0.0)
      : host(VELOffscreenHost::create(size, scale)) {
    if (!host) throw std::runtime_error(VELGLContext::lastFailure());
    view = VELChartSurfaceView::initWithFrame({0.0, 0.0, size.width, size.height}, *host);
    view->surface()->setChartTitle("Same picture");
    view->surface()->attachAxis(std::make_shared<VELNumericAxis>(), true);
    view->surface()->attachAxis(std::make_shared<VELNumericAxis>(), false);
    for (int i = 0; i < 200; ++i) data->appendX(i, std::sin(i * 0.1 + phase));
    auto series = std::make_shared<VELFastLineRenderableSeries>();
    series->setDataSeries(data);
    view->surface()->attachRenderableSeries(series);
    host->rootView()->addSubview(view);
    host->settle(0.0);
  }
  VELBitmap redrawn() {
    view->surface()->invalidateElement();
    host->tick(1.0);
    return host->picture();
  }

  std::shared_ptr<VELXyDataSeries> data =
      std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  std::shared_ptr<VELOffscreenHost> host;
  std::shared_ptr<VELChartSurfaceView> view;
};

// What another library may do to a context of ES 3.
void leaveStateOfES3() {
  using Names = std::initializer_list<GLenum>;
  GLuint names[2] = {};
  glGenVertexArrays(1, names);
  glBindVertexArray(names[0]);
  glGenSamplers(1, names);
  for (const GLuint unit : {0u, 1u}) glBindSampler(unit, names[0]);
  glGenBuffers(2, names);
  for (const GLenum target : Names{GL_PIXEL_UNPACK_BUFFER, GL_PIXEL_PACK_BUFFER, GL_ARRAY_BUFFER}) {
    glBindBuffer(target, names[0]);
    glBufferData(target, 16, nullptr, GL_STATIC_DRAW);
  }
  for (const GLuint slot : {0u, 1u, 2u}) glVertexAttribDivisor(slot, 1);
  for (const GLenum gap :
       Names{GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS, GL_PACK_ROW_LENGTH})
    glPixelStorei(gap, 7);
  for (const GLenum capability : Names{GL_PRIMITIVE_RESTART_FIXED_INDEX, GL_RASTERIZER_DISCARD})
    glEnable(capability);
}

TEST(ChartOnGL, WhateverAnotherLibraryLeftInGLThePictureIsTheSame) {
  Chart chart({200.0, 120.0}, 1.0);
  if (!chart.host->glContext()->gl().hasMultisampling()) GTEST_SKIP() << "this driver has no ES 3";
  const VELBitmap expected = chart.redrawn();
  for (const bool composesAlone : {false, true}) {
    leaveStateOfES3();
    EXPECT_TRUE((composesAlone ? chart.host->picture() : chart.redrawn()) == expected) << composesAlone;
  }
  // New storage, new labels and new buffers under the same conditions.
  chart.view->setFrame({0.0, 0.0, 180.0, 120.0});
  leaveStateOfES3();
  chart.host->settle(2.0);
  const VELBitmap smaller = chart.host->picture();
  EXPECT_TRUE(chart.redrawn() == smaller);
  EXPECT_FALSE(smaller == expected);
}

TEST(ChartOnGL, ALostContextIsBackWithTheSamePictureAtTheNextRefresh) {
  Chart chart({200.0, 120.0}, 1.5);
  const VELBitmap expected = chart.redrawn();
  for (int losses = 0; losses < 2; ++losses) {
    chart.host->glContext()->setLost();
    EXPECT_TRUE(chart.host->rootView()->isTreeDirty());
    chart.host->tick(2.0);
    EXPECT_TRUE(chart.host->picture() == expected) << "nothing was drawn anew";
    EXPECT_FALSE(chart.host->rootView()->isTreeDirty());
  }
  EXPECT_TRUE(chart.redrawn() == expected);
}

TEST(ChartOnGL, HostsTakeTurnsAndOneThatEndsTakesNothingOfTheOther) {
  auto first = std::make_unique<Chart>(VELSize{200.0, 120.0}, 1.0);
  const VELBitmap ofFirst = first->redrawn();
  Chart second({160.0, 90.0}, 2.0, 1.0);
  const VELBitmap ofSecond = second.redrawn();
  for (int turn = 0; turn < 3; ++turn) {
    first->view->surface()->invalidateElement();
    second.view->surface()->invalidateElement();
    first->host->tick(turn);
    second.host->tick(turn);
    EXPECT_TRUE(first->host->picture() == ofFirst && second.host->picture() == ofSecond) << turn;
  }
  first->host->glContext()->setLost();  // theirs alone
  EXPECT_TRUE(second.redrawn() == ofSecond && first->redrawn() == ofFirst);
  first.reset();
  EXPECT_TRUE(second.redrawn() == ofSecond);
}

// The surface's clear colour is black and the host shows magenta: neither may come through.
TEST(ChartOnGL, AChartOfAnySizeAtAnyDensityCoversItsLastRowAndColumn) {
  for (const double scale : {1.0, 1.25, 1.3, 1.5, 2.0, 2.625})
    for (const VELSize size : {VELSize{200.0, 120.0}, {199.0, 121.0}, {160.3, 90.7}, {100.5, 100.25}}) {
      Chart chart(size, scale);
      chart.host->setBackgroundColor(VELColor(1.0, 0.0, 1.0));
      const VELBitmap picture = chart.redrawn();
      const uint32_t expected = VELVisualStyle::standard().background;
      const int32_t right = picture.width() - 1, bottom = picture.height() - 1;
      for (int32_t i = 0; i <= std::max(right, bottom); ++i)
        for (const auto& [x, y] : {std::pair{i, 0}, {i, bottom}, {0, i}, {right, i}})
          if (x <= right && y <= bottom) {
            ASSERT_EQ(picture.colorCodeAt(x, y), expected)
                << scale << ": " << size.width << ", " << x << ' ' << y;
          }
    }
}

}  // namespace
