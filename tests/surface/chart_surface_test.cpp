#include "velmora/surface/chart_surface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <utility>

#include "tests/support/recording_chart.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/platform/gesture_recognizer.h"
#include "velmora/series/fast_line_renderable_series.h"

namespace {

using Series = VELFastLineRenderableSeries;

std::shared_ptr<VELNumericAxis> makeAxis(VELAxisAlignment alignment = VELAxisAlignment_Default) {
  auto axis = std::make_shared<VELNumericAxis>();
  axis->setAxisAlignment(alignment);
  return axis;
}

struct PolarAxis : VELNumericAxis {
  bool isPolarAxis() const override { return true; }
};

// Notes what the surface tells it.
template <class Protocol>
struct Element : Protocol {
  std::string told;
  std::function<void()> detached = [] {};
  void draw() override { told += "draw "; }
  void setParentSurface(const std::weak_ptr<VELChartSurface>& surface) override {
    told += surface.lock() ? "parent " : "no parent ";
  }
  void setIsAttached(bool attached) override { told += attached ? "is attached " : "is not attached "; }
  void onAttached() override { told += "onAttached "; }
  void onDetached() override { told += "onDetached ", detached(); }
};

struct Gestures : VELSurfaceGestures {
  std::string told;
  void enablePanGesture() override { told += "+pan "; }
  void enablePinchGesture() override { told += "+pinch "; }
  void enableTapGesture() override { told += "+tap "; }
  void enableDoubleTapGesture() override { told += "+double "; }
  void disablePanGesture() override { told += "-pan "; }
  void disablePinchGesture() override { told += "-pinch "; }
  void disableTapGesture() override { told += "-tap "; }
  void disableDoubleTapGesture() override { told += "-double "; }
};

TEST(ChartSurface, ExistsOnlyOnAView) {
  EXPECT_EQ(VELChartSurface::init(), nullptr);
  EXPECT_EQ(VELChartSurface::initWithView(nullptr), nullptr);
  RecordingChart chart;
  for (const VELChartSide side : {VELChartSide_Left, VELChartSide_Right})
    EXPECT_EQ(chart.view->area(side)->orientation(), VELOrientation_Vertical);
  for (const VELChartSide side : {VELChartSide_Top, VELChartSide_Bottom})
    EXPECT_EQ(chart.view->area(side)->orientation(), VELOrientation_Horizontal);
  EXPECT_EQ(chart.surface->chartFrame(), chart.view->bounds());
  EXPECT_EQ(chart.view->recording->delegate(), chart.surface);
}

TEST(ChartSurface, ClearingSeriesLeavesEverySecondOne) {
  RecordingChart chart;
  std::vector<std::shared_ptr<Series>> all(4);
  for (auto& one : all) chart.surface->attachRenderableSeries(one = std::make_shared<Series>());
  chart.surface->clearSeries();
  ASSERT_EQ(chart.surface->renderableSeries().size(), 2u);
  for (size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(chart.surface->renderableSeries()[i], all[2 * i + 1]);
    EXPECT_EQ(all[2 * i]->parentSurface(), nullptr);
    EXPECT_EQ(all[2 * i + 1]->parentSurface(), chart.surface);
  }
}

TEST(ChartSurface, ASeriesMayStandInItTwiceAndSelectedOnesAreListedOnce) {
  RecordingChart chart;
  const auto series = std::make_shared<Series>();
  series->setIsSelected(true);
  for (const auto& one : {series, series, std::shared_ptr<Series>()})
    chart.surface->attachRenderableSeries(one);
  EXPECT_EQ(chart.surface->renderableSeries().size(), 2u);
  EXPECT_EQ(chart.surface->selectedRenderableSeries().size(), 1u);
  chart.surface->detachRenderableSeries(series);
  EXPECT_TRUE(chart.surface->renderableSeries().empty());
  EXPECT_TRUE(chart.surface->selectedRenderableSeries().empty());
}

TEST(ChartSurface, AxesStandWhereTheirAlignmentSays) {
  struct Row {
    bool isXAxis;
    VELAxisAlignment alignment, resulting;
    VELChartSide side;
    bool newestFirst;
  };
  const Row rows[] = {{true, VELAxisAlignment_Default, VELAxisAlignment_Bottom, VELChartSide_Bottom, false},
                      {false, VELAxisAlignment_Default, VELAxisAlignment_Right, VELChartSide_Right, false},
                      {false, VELAxisAlignment_Right, VELAxisAlignment_Right, VELChartSide_Right, false},
                      {false, VELAxisAlignment_Left, VELAxisAlignment_Left, VELChartSide_Left, true},
                      {false, VELAxisAlignment_Top, VELAxisAlignment_Top, VELChartSide_Top, true},
                      {false, VELAxisAlignment_Bottom, VELAxisAlignment_Bottom, VELChartSide_Bottom, false}};
  RecordingChart chart;
  for (const Row& row : rows) {
    const auto first = makeAxis(row.alignment), second = makeAxis(row.alignment);
    for (const auto& axis : {first, second}) chart.surface->attachAxis(axis, row.isXAxis);
    const auto& area = chart.view->area(row.side);
    EXPECT_EQ(area->itemAt(row.newestFirst ? 0 : area->count() - 1), second) << row.alignment;
    EXPECT_TRUE(area->contains(first));
    EXPECT_EQ(first->axisAlignment(), row.resulting);
    EXPECT_EQ(first->isXAxis(), row.isXAxis);
  }
}

TEST(ChartSurface, AnAxisMovesWithItsAlignmentAndLeavesWhenDetached) {
  RecordingChart chart;
  const auto axis = makeAxis(VELAxisAlignment_Left);
  chart.surface->attachAxis(axis, false);
  axis->setAxisAlignment(VELAxisAlignment_Top);
  EXPECT_EQ(chart.view->leftAxesArea()->count(), 0);
  EXPECT_TRUE(chart.view->topAxesArea()->contains(axis));
  chart.surface->detachAxis(axis);
  EXPECT_EQ(chart.view->topAxesArea()->count() + chart.surface->yAxes()->count(), 0);
  EXPECT_EQ(axis->parentSurface(), nullptr);
  axis->setAxisAlignment(VELAxisAlignment_Left);
  EXPECT_EQ(chart.view->leftAxesArea()->count(), 0) << "a detached axis must not come back";
}

TEST(ChartSurface, PolarIsDecidedByTheCentreAreasAlone) {
  RecordingChart chart;
  const auto polar = std::make_shared<PolarAxis>();
  const auto xArea = std::make_shared<VELAxisArea>(), yArea = std::make_shared<VELAxisArea>();
  polar->setIsCenterAxis(true);
  for (const bool hasAreas : {false, true}) {
    chart.surface->setCenterXAxisArea(hasAreas ? xArea : nullptr);
    chart.surface->setCenterYAxisArea(hasAreas ? yArea : nullptr);
    chart.surface->attachAxis(polar, true);
    EXPECT_EQ(chart.view->bottomAxesArea()->count(), 0);
    EXPECT_EQ(xArea->contains(polar), hasAreas);
    EXPECT_EQ(chart.surface->isPolarChart(), hasAreas) << "without centre areas nothing is decided";
    chart.surface->detachAxis(polar);
    EXPECT_FALSE(chart.surface->isPolarChart());
  }
  // An axis that becomes a centre axis only after it was attached moves there.
  const auto late = makeAxis();
  chart.surface->attachAxis(late, true);
  late->setIsCenterAxis(true);
  EXPECT_TRUE(xArea->contains(late));
  EXPECT_EQ(chart.view->bottomAxesArea()->count(), 0);
  chart.surface->detachAxis(late);
  EXPECT_EQ(xArea->count(), 0);
}

TEST(ChartSurface, ModifierAndAnnotationAreToldInOrderAndMayReplaceThemselves) {
  RecordingChart chart;
  const auto modifier = std::make_shared<Element<VELChartModifier>>(),
             next = std::make_shared<Element<VELChartModifier>>();
  modifier->detached = [&] { chart.surface->setChartModifier(nullptr); };
  chart.surface->setChartModifier(modifier);
  chart.surface->setChartModifier(next);
  EXPECT_EQ(chart.surface->chartModifier(), next);
  const auto annotation = std::make_shared<Element<VELAnnotation>>();
  chart.surface->setAnnotation(annotation);
  chart.surface->setAnnotation(nullptr);
  for (const std::string& told : {modifier->told, annotation->told})
    EXPECT_EQ(told, "parent is attached onAttached no parent is not attached onDetached ");
}

TEST(ChartSurface, AnAnnotationDrawsIntoTheModifierContextAndTakesNoGestureUnlessItSaysSo) {
  struct Mark : Element<VELAnnotation> {
    std::weak_ptr<VELChartSurface> surface;
    void draw() override {
      surface.lock()->renderSurface()->modifierContext()->drawLineWithBrush(nullptr, 1.0f, 2.0f, 3.0f, 4.0f);
    }
  };
  RecordingChart chart;
  for (const bool isXAxis : {true, false}) chart.surface->attachAxis(makeAxis(), isXAxis);
  const auto mark = std::make_shared<Mark>();
  mark->surface = chart.surface;
  chart.surface->setAnnotation(mark);
  for (int i = 0; i < 8; ++i) chart.tick();
  const size_t drawn = chart.context().operations.size();
  EXPECT_EQ(chart.view->recording->modifier->names(), (std::vector<std::string>{"clear", "line"}));

  // A modifier-only refresh draws it once more and leaves the series alone.
  chart.view->recording->modifier->invalidate();
  chart.tick();
  EXPECT_EQ(chart.view->recording->modifier->names(), (std::vector<std::string>{"clear", "line"}));
  EXPECT_EQ(chart.context().operations.size(), drawn);

  struct Pinch : VELPinchGestureRecognizer {
    VELGestureState state() const override { return VELGestureState_Began; }
    VELPoint locationInView(const VELView&) const override { return {}; }
    double scale() const override { return 1.0; }
    int32_t numberOfTouches() const override { return 2; }
    VELPoint locationOfTouch(int32_t, const VELView&) const override { return {}; }
  };
  const Pinch pinch;
  EXPECT_FALSE(mark->onTapGesture(pinch, *chart.view) || mark->onPanGesture(pinch, *chart.view) ||
               mark->onDoubleTapGesture(pinch, *chart.view) || mark->onPinchGesture(pinch, *chart.view));
}

TEST(ChartSurface, WhatRunsInAPassMayLetGoOfIt) {
  struct Meddler : Element<VELChartModifier> {
    std::function<void()> onDraw;
    void draw() override {
      std::exchange(onDraw, [] {})();
    }
  };
  const std::function<void(RecordingChart&)> rows[] = {
      [](RecordingChart& chart) { chart.surface.reset(); },
      [](RecordingChart& chart) { chart.view.reset(); },
      [](RecordingChart& chart) { chart.surface.reset(), chart.view.reset(); },
      [](RecordingChart& chart) { chart.surface->free(); },
      [](RecordingChart& chart) { chart.surface->setChartModifier(nullptr); },
      [](RecordingChart& chart) { chart.surface->onRenderSurfaceDraw(); }};
  for (const auto& letGo : rows)
    for (const bool called : {false, true}) {
      RecordingChart chart;
      for (const bool isXAxis : {true, false}) chart.surface->attachAxis(makeAxis(), isXAxis);
      const auto modifier = std::make_shared<Meddler>();
      chart.surface->setChartModifier(modifier);
      modifier->onDraw = [&] { letGo(chart); };
      const auto recording = chart.view->recording;
      // Called straight, nobody but the chart itself holds the surface.
      if (called)
        chart.surface->onRenderSurfaceDraw();
      else
        recording->onRenderTimeElapsed();
      recording->onRenderTimeElapsed();
      EXPECT_TRUE(!chart.surface || !chart.surface->isRendering());
    }
}

TEST(ChartSurface, WithoutCpuReductionEveryRefreshRunsAPass) {
  RecordingChart chart;
  for (const bool isXAxis : {true, false}) chart.surface->attachAxis(makeAxis(), isXAxis);
  const auto modifier = std::make_shared<Element<VELChartModifier>>();
  chart.surface->setChartModifier(modifier);
  for (int i = 0; i < 8; ++i) chart.tick();
  modifier->told.clear();
  chart.tick();
  EXPECT_EQ(modifier->told, "") << "an idle chart draws nothing";
  chart.view->recording->setReduceCPUFrames(false);
  for (int i = 0; i < 3; ++i) chart.tick();
  EXPECT_EQ(modifier->told, "draw draw draw ");
  EXPECT_FALSE(chart.surface->isRendering());
}

TEST(ChartSurface, AStyleIsCopiedAndForcesAreaSizes) {
  RecordingChart chart;
  VELRenderSurfaceStyle style;
  style.setLeftAxisAreaSize(70.0f);
  chart.surface->setStyle(style);
  EXPECT_NE(chart.surface->style().get(), &style);
  EXPECT_EQ(chart.view->leftAxisAreaForcedSize(), 70.0f);
  EXPECT_EQ(chart.view->leftAxisAreaSize(), 70.0f);

  chart.tick();
  chart.surface->style()->setTopAxisAreaSize(33.0f);
  EXPECT_EQ(chart.view->topAxisAreaForcedSize(), 33.0f);
  EXPECT_TRUE(chart.view->recording->needRedraw());
  style.setLeftAxisAreaSize(10.0f);
  EXPECT_EQ(chart.view->leftAxisAreaForcedSize(), 70.0f) << "the original is no longer heard";
  const auto former = chart.surface->style();
  chart.surface->setStyle(style);
  chart.tick();
  former->setTopAxisAreaSize(1.0f);
  EXPECT_FALSE(chart.view->recording->needRedraw()) << "a replaced style is no longer heard";
}

TEST(ChartSurface, SidesKeepTheirSizeForNaNAndNegativeWishes) {
  RecordingChart chart;
  for (const float wish : {17.0f, std::nanf(""), -1.0f}) {
    chart.view->setRightAxisAreaSize(wish);
    EXPECT_EQ(chart.view->rightAxisAreaSize(), 17.0f);
  }
  // Without axes the sides want nothing; forced sizes win over that.
  EXPECT_EQ(chart.view->leftAxisAreaSize(), 0.0f);
  chart.view->setLeftAxisAreaForcedSize(12.0f);
  chart.view->layoutSubviews();
  EXPECT_EQ(chart.view->leftAxisAreaSize(), 12.0f);
}

TEST(ChartSurface, FreeingLetsGoOfEverything) {
  RecordingChart chart;
  const auto gestures = std::make_shared<Gestures>();
  chart.surface->setGestureController(gestures);
  const auto axis = makeAxis(VELAxisAlignment_Left);
  chart.surface->attachAxis(axis, false);
  for (int i = 0; i < 5; ++i) chart.surface->attachRenderableSeries(std::make_shared<Series>());
  chart.surface->free();
  EXPECT_TRUE(chart.surface->renderableSeries().empty());
  EXPECT_EQ(chart.surface->yAxes()->count(), 0);
  EXPECT_EQ(chart.view->leftAxesArea()->count(), 0);
  EXPECT_EQ(gestures->told, "+pan +pinch +tap +double -pan -pinch -tap -double ");
  chart.tick();  // a freed chart still answers its beat
  chart.surface.reset();
  chart.tick();
  EXPECT_EQ(chart.view->recording->delegate(), nullptr);
}

}  // namespace
