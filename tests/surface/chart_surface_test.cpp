#include "velmora/surface/chart_surface.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/recording_chart.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/series/fast_line_renderable_series.h"

namespace {

using Axis = std::shared_ptr<VELNumericAxis>;
using Series = std::shared_ptr<VELFastLineRenderableSeries>;

Axis makeAxis(VELAxisAlignment alignment = VELAxisAlignment_Default) {
  auto axis = std::make_shared<VELNumericAxis>();
  axis->setAxisAlignment(alignment);
  return axis;
}

class PolarAxis : public VELNumericAxis {
 public:
  bool isPolarAxis() const override { return true; }
};

// Notes what the surface tells it.
template <class Protocol>
class Element : public Protocol {
 public:
  std::vector<std::string> told;
  void draw() override { told.emplace_back("draw"); }
  void setParentSurface(const std::weak_ptr<VELChartSurface>& surface) override {
    told.emplace_back(surface.lock() ? "parent" : "no parent");
  }
  void setIsAttached(bool attached) override {
    told.emplace_back(attached ? "is attached" : "is not attached");
  }
  void onAttached() override { told.emplace_back("onAttached"); }
  void onDetached() override { told.emplace_back("onDetached"); }
};

class Gestures : public VELSurfaceGestures {
 public:
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
  EXPECT_EQ(chart.view->leftAxesArea()->orientation(), VELOrientation_Vertical);
  EXPECT_EQ(chart.view->rightAxesArea()->orientation(), VELOrientation_Vertical);
  EXPECT_EQ(chart.view->topAxesArea()->orientation(), VELOrientation_Horizontal);
  EXPECT_EQ(chart.view->bottomAxesArea()->orientation(), VELOrientation_Horizontal);
  EXPECT_EQ(chart.surface->chartFrame(), chart.view->bounds());
  EXPECT_EQ(chart.view->recording->delegate(), chart.surface);
}

TEST(ChartSurface, ClearingSeriesLeavesEverySecondOne) {
  RecordingChart chart;
  std::vector<Series> all;
  for (int i = 0; i < 4; ++i) {
    all.push_back(std::make_shared<VELFastLineRenderableSeries>());
    chart.surface->attachRenderableSeries(all.back());
  }
  chart.surface->clearSeries();
  ASSERT_EQ(chart.surface->renderableSeries().size(), 2u);
  EXPECT_EQ(chart.surface->renderableSeries()[0], all[1]);
  EXPECT_EQ(chart.surface->renderableSeries()[1], all[3]);
  EXPECT_EQ(all[0]->parentSurface(), nullptr);
  EXPECT_EQ(all[1]->parentSurface(), chart.surface);
}

TEST(ChartSurface, ASeriesMayStandInItTwiceAndSelectedOnesAreListedOnce) {
  RecordingChart chart;
  const auto series = std::make_shared<VELFastLineRenderableSeries>();
  series->setIsSelected(true);
  chart.surface->attachRenderableSeries(series);
  chart.surface->attachRenderableSeries(series);
  chart.surface->attachRenderableSeries(nullptr);
  EXPECT_EQ(chart.surface->renderableSeries().size(), 2u);
  EXPECT_EQ(chart.surface->selectedRenderableSeries().size(), 1u);
  chart.surface->detachRenderableSeries(series);
  EXPECT_TRUE(chart.surface->renderableSeries().empty());
  EXPECT_TRUE(chart.surface->selectedRenderableSeries().empty());
}

TEST(ChartSurface, AxesStandWhereTheirAlignmentSays) {
  RecordingChart chart;
  const Axis x = makeAxis(), y = makeAxis();
  chart.surface->attachAxis(x, true);
  chart.surface->attachAxis(y, false);
  EXPECT_EQ(x->axisAlignment(), VELAxisAlignment_Bottom);
  EXPECT_EQ(y->axisAlignment(), VELAxisAlignment_Right);
  EXPECT_TRUE(chart.view->bottomAxesArea()->contains(x));
  EXPECT_TRUE(chart.view->rightAxesArea()->contains(y));
  EXPECT_FALSE(y->isXAxis());

  struct Row {
    VELAxisAlignment alignment;
    VELChartSide side;
    bool newestFirst;
  };
  const Row rows[] = {{VELAxisAlignment_Right, VELChartSide_Right, false},
                      {VELAxisAlignment_Left, VELChartSide_Left, true},
                      {VELAxisAlignment_Top, VELChartSide_Top, true},
                      {VELAxisAlignment_Bottom, VELChartSide_Bottom, false}};
  for (const Row& row : rows) {
    const Axis first = makeAxis(row.alignment), second = makeAxis(row.alignment);
    chart.surface->attachAxis(first, false);
    chart.surface->attachAxis(second, false);
    const auto& area = chart.view->area(row.side);
    EXPECT_EQ(area->itemAt(row.newestFirst ? 0 : area->count() - 1), second) << row.alignment;
  }
}

TEST(ChartSurface, AnAxisMovesWithItsAlignmentAndLeavesWhenDetached) {
  RecordingChart chart;
  const Axis axis = makeAxis(VELAxisAlignment_Left);
  chart.surface->attachAxis(axis, false);
  axis->setAxisAlignment(VELAxisAlignment_Top);
  EXPECT_EQ(chart.view->leftAxesArea()->count(), 0);
  EXPECT_TRUE(chart.view->topAxesArea()->contains(axis));
  chart.surface->detachAxis(axis);
  EXPECT_EQ(chart.view->topAxesArea()->count(), 0);
  EXPECT_EQ(chart.surface->yAxes()->count(), 0);
  EXPECT_EQ(axis->parentSurface(), nullptr);
  axis->setAxisAlignment(VELAxisAlignment_Left);
  EXPECT_EQ(chart.view->leftAxesArea()->count(), 0) << "a detached axis must not come back";
}

TEST(ChartSurface, PolarIsDecidedByTheCentreAreasAlone) {
  RecordingChart chart;
  const auto polar = std::make_shared<PolarAxis>();
  polar->setIsCenterAxis(true);
  chart.surface->attachAxis(polar, true);
  EXPECT_FALSE(chart.surface->isPolarChart()) << "without centre areas nothing is decided";
  EXPECT_EQ(chart.view->bottomAxesArea()->count(), 0);

  const auto xArea = std::make_shared<VELAxisArea>(), yArea = std::make_shared<VELAxisArea>();
  chart.surface->setCenterXAxisArea(xArea);
  chart.surface->setCenterYAxisArea(yArea);
  chart.surface->detachAxis(polar);
  chart.surface->attachAxis(polar, true);
  EXPECT_TRUE(xArea->contains(polar));
  EXPECT_TRUE(chart.surface->isPolarChart());
  chart.surface->detachAxis(polar);
  EXPECT_FALSE(chart.surface->isPolarChart());

  // An axis that became a centre axis only after it was attached leaves its side all the same.
  const Axis late = makeAxis();
  chart.surface->attachAxis(late, true);
  late->setIsCenterAxis(true);
  chart.surface->detachAxis(late);
  EXPECT_EQ(chart.view->bottomAxesArea()->count(), 0);
}

TEST(ChartSurface, ModifierAndAnnotationAreToldInOrder) {
  RecordingChart chart;
  const auto modifier = std::make_shared<Element<VELChartModifier>>();
  chart.surface->setChartModifier(modifier);
  chart.surface->setChartModifier(nullptr);
  const std::vector<std::string> expected = {"parent",    "is attached",     "onAttached",
                                             "no parent", "is not attached", "onDetached"};
  EXPECT_EQ(modifier->told, expected);
  const auto annotation = std::make_shared<Element<VELAnnotation>>();
  chart.surface->setAnnotation(annotation);
  chart.surface->setAnnotation(nullptr);
  EXPECT_EQ(annotation->told, expected);
}

TEST(ChartSurface, AModifierMayReplaceItselfWhileItIsDetached) {
  class Replacing : public Element<VELChartModifier> {
   public:
    explicit Replacing(VELChartSurface& surface) : _surface(surface) {}
    void onDetached() override { _surface.setChartModifier(nullptr); }

   private:
    VELChartSurface& _surface;
  };
  RecordingChart chart;
  chart.surface->setChartModifier(std::make_shared<Replacing>(*chart.surface));
  const auto next = std::make_shared<Element<VELChartModifier>>();
  chart.surface->setChartModifier(next);
  EXPECT_EQ(chart.surface->chartModifier(), next);
}

TEST(ChartSurface, WithoutCpuReductionEveryRefreshRunsAPass) {
  RecordingChart chart;
  chart.surface->attachAxis(makeAxis(), true);
  chart.surface->attachAxis(makeAxis(), false);
  const auto modifier = std::make_shared<Element<VELChartModifier>>();
  chart.surface->setChartModifier(modifier);
  modifier->told.clear();
  for (int i = 0; i < 8; ++i) chart.tick();
  const size_t settled = modifier->told.size();
  chart.tick();
  EXPECT_EQ(modifier->told.size(), settled) << "an idle chart draws nothing";

  chart.view->recording->setReduceCPUFrames(false);
  for (int i = 0; i < 5; ++i) chart.tick();
  EXPECT_EQ(modifier->told.size(), settled + 5);
  EXPECT_FALSE(chart.surface->isRendering());
}

TEST(ChartSurface, AStyleIsCopiedAndForcesAreaSizes) {
  RecordingChart chart;
  EXPECT_TRUE(std::isnan(chart.surface->style()->leftAxisAreaSize()));
  EXPECT_EQ(chart.surface->style()->backgroundBrush(), nullptr);
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
  for (const float nonsense : {std::nanf(""), -1.0f}) {
    const float before = chart.view->rightAxisAreaSize();
    chart.view->setRightAxisAreaSize(nonsense);
    EXPECT_EQ(chart.view->rightAxisAreaSize(), before);
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
  const Axis axis = makeAxis(VELAxisAlignment_Left);
  chart.surface->attachAxis(axis, false);
  for (int i = 0; i < 5; ++i)
    chart.surface->attachRenderableSeries(std::make_shared<VELFastLineRenderableSeries>());
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
