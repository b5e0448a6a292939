#include "velmora/surface/chart_surface.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <utility>

#include "tests/support/recording_chart.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/series/fast_line_renderable_series.h"

namespace {

using Series = VELFastLineRenderableSeries;

std::shared_ptr<VELNumericAxis> makeAxis(VELAxisAlignment alignment = VELAxisAlignment_Default) {
  auto axis = std::make_shared<VELNumericAxis>();
  axis->setAxisAlignment(alignment);
  return axis;
}

// Notes what the surface tells it.
template <class Protocol>
struct Element : Protocol {
  std::string told;
  std::function<void()> detached = [] {}, drawn = [] {};
  void draw() override { drawn(); }
  void setParentSurface(const std::weak_ptr<VELChartSurface>& surface) override {
    told += surface.lock() ? "parent " : "no parent ";
  }
  void setIsAttached(bool attached) override { told += attached ? "is attached " : "is not attached "; }
  void onAttached() override { told += "onAttached "; }
  void onDetached() override { told += "onDetached ", detached(); }
};

// A letter is a series; the same one twice is drawn twice, and leaves both its places when it is detached.
TEST(ChartSurface, ClearingSeriesDetachesEveryOtherOneOfTheShrinkingList) {
  for (const auto& [attached, left] :
       {std::pair<std::string, std::string>{"abcd", "bd"}, {"aabc", "b"}, {"abcbd", "bb"}}) {
    RecordingChart chart;
    std::map<char, std::shared_ptr<Series>> all;
    for (const char letter : attached) {
      auto& one = all[letter];
      if (!one) one = std::make_shared<Series>();
      one->setIsSelected(true);
      chart.surface->attachRenderableSeries(one);
    }
    chart.surface->attachRenderableSeries(nullptr);
    EXPECT_EQ(chart.surface->renderableSeries().size(), attached.size());
    EXPECT_EQ(chart.surface->selectedRenderableSeries().size(), all.size()) << "listed once";
    chart.surface->clearSeries();
    std::string rest;
    for (const auto& series : chart.surface->renderableSeries())
      for (const auto& [letter, one] : all) rest += one == series ? std::string{letter} : "";
    EXPECT_EQ(rest, left);
    for (const auto& [letter, one] : all)
      EXPECT_EQ(one->parentSurface() != nullptr, left.find(letter) != std::string::npos) << letter;
    EXPECT_EQ(chart.surface->selectedRenderableSeries().size(), std::set(left.begin(), left.end()).size());
  }
}

TEST(ChartSurface, AxesStandWhereTheirAlignmentSays) {
  const struct {
    bool isXAxis;
    VELAxisAlignment alignment, resulting;
    VELChartSide side;
    bool newestFirst;
  } rows[] = {{true, VELAxisAlignment_Default, VELAxisAlignment_Bottom, VELChartSide_Bottom, false},
              {false, VELAxisAlignment_Default, VELAxisAlignment_Right, VELChartSide_Right, false},
              {false, VELAxisAlignment_Left, VELAxisAlignment_Left, VELChartSide_Left, true},
              {false, VELAxisAlignment_Top, VELAxisAlignment_Top, VELChartSide_Top, true},
              {false, VELAxisAlignment_Bottom, VELAxisAlignment_Bottom, VELChartSide_Bottom, false}};
  RecordingChart chart;
  for (const auto& row : rows) {
    const auto first = makeAxis(row.alignment), second = makeAxis(row.alignment);
    for (const auto& axis : {first, second}) chart.surface->attachAxis(axis, row.isXAxis);
    const auto& area = chart.view->area(row.side);
    EXPECT_EQ(area->itemAt(row.newestFirst ? 0 : area->count() - 1), second) << row.alignment;
    EXPECT_EQ(first->axisAlignment(), row.resulting);
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

template <class Protocol>
void replaceElements(void (VELChartSurface::*set)(const std::shared_ptr<Protocol>&),
                     const std::shared_ptr<Protocol>& (VELChartSurface::*get)() const) {
  RecordingChart chart;
  VELChartSurface& surface = *chart.surface;
  const std::string on = "parent is attached onAttached ", off = "no parent is not attached onDetached ";
  const auto first = std::make_shared<Element<Protocol>>(), second = std::make_shared<Element<Protocol>>(),
             third = std::make_shared<Element<Protocol>>();
  (surface.*set)(first);
  (surface.*set)((surface.*get)());
  EXPECT_EQ((surface.*get)(), first) << "it may be set again";
  first->detached = [&] { (surface.*set)(second); };
  (surface.*set)(third);
  EXPECT_EQ((surface.*get)(), third);
  EXPECT_EQ(first->told, on + off + on + off);
  EXPECT_EQ(second->told, on + off) << "set by the one that went";
  third->detached = [&] { chart.surface.reset(); };
  (surface.*set)(nullptr);
  EXPECT_EQ(third->told, on + off);
}

TEST(ChartSurface, ModifierAndAnnotationAreToldInOrderAndMayReplaceThemselves) {
  replaceElements<VELChartModifier>(&VELChartSurface::setChartModifier, &VELChartSurface::chartModifier);
  replaceElements<VELAnnotation>(&VELChartSurface::setAnnotation, &VELChartSurface::annotation);
}

TEST(ChartSurface, ModifierAndAnnotationDrawInThatOrderIntoContextsThatWereCleared) {
  struct Context : RecordingContext {
    Context(std::string& log, const char* name) : _log(log), _name(name) {}
    void clear() override { _log += _name, RecordingContext::clear(); }
    std::string& _log;
    const char* _name;
  };
  std::string log;
  RecordingChart chart;
  RecordingSurface& surface = *chart.view->recording;
  const auto series = std::make_shared<Context>(log, "series "),
             above = std::make_shared<Context>(log, "modifiers "),
             below = std::make_shared<Context>(log, "background ");
  for (const auto& context : {series, above, below}) context->setParentRenderSurface(chart.view->recording);
  surface.addRenderContext(series);
  surface.addModifierContext(above);
  surface.addBackgroundContext(below);
  for (const bool isXAxis : {true, false}) chart.surface->attachAxis(makeAxis(), isXAxis);
  const auto modifier = std::make_shared<Element<VELChartModifier>>();
  const auto annotation = std::make_shared<Element<VELAnnotation>>();
  modifier->drawn = [&] {
    log += "modifier ";
    EXPECT_EQ(below->names(), (std::vector<std::string>{"clear", "rect"})) << "the background is drawn";
  };
  annotation->drawn = [&] { log += "annotation "; };
  chart.surface->setChartModifier(modifier);
  chart.surface->setAnnotation(annotation);
  for (int i = 0; i < 8; ++i) chart.tick();

  const std::string secondary = "modifiers background modifier annotation ";
  for (const auto& [context, expected] : {std::pair{series, "series " + secondary}, {above, secondary}}) {
    log.clear();
    context->invalidate();
    chart.tick();
    EXPECT_EQ(log, expected);
  }
}

TEST(ChartSurface, WhatRunsInAPassMayLetGoOfIt) {
  const struct {
    std::function<void(RecordingChart&)> letGo;
    const char* next;  // what the next refresh draws: the whole chart, a clear, or nothing
    int draws;         // of the modifier, both refreshes together
  } rows[] = {{[](RecordingChart& chart) { chart.surface.reset(); }, "nothing", 1},
              {[](RecordingChart& chart) { chart.view.reset(); }, "nothing", 1},  // no chart frame is left
              {[](RecordingChart& chart) { chart.surface.reset(), chart.view.reset(); }, "nothing", 1},
              {[](RecordingChart& chart) { chart.surface->free(); }, "clear", 1},
              {[](RecordingChart& chart) { chart.surface->setChartModifier(nullptr); }, "chart", 1},
              {[](RecordingChart& chart) { chart.surface->onRenderSurfaceDraw(); }, "chart", 2}};
  for (const auto& row : rows)
    for (const bool called : {false, true}) {
      RecordingChart chart;
      for (const bool isXAxis : {true, false}) chart.surface->attachAxis(makeAxis(), isXAxis);
      const auto modifier = std::make_shared<Element<VELChartModifier>>();
      chart.surface->setChartModifier(modifier);
      int draws = 0;
      modifier->drawn = [&] {
        if (draws++ == 0) row.letGo(chart);
      };
      const auto recording = chart.view->recording;
      // Called straight, nobody but the chart itself holds the surface.
      called ? chart.surface->onRenderSurfaceDraw() : recording->onRenderTimeElapsed();
      EXPECT_TRUE(!chart.surface || !chart.surface->isRendering());
      auto& drawn = recording->render->operations;
      drawn.clear();
      recording->invalidateElement();
      recording->onRenderTimeElapsed();
      EXPECT_STREQ(drawn.empty() ? "nothing" : drawn.size() == 1 ? "clear" : "chart", row.next);
      EXPECT_EQ(draws, row.draws) << &row - rows;
    }
}

TEST(ChartSurface, FreeingLetsGoOfEverything) {
  RecordingChart chart;
  const auto axis = makeAxis(VELAxisAlignment_Left);
  chart.surface->attachAxis(axis, false);
  for (int i = 0; i < 5; ++i) chart.surface->attachRenderableSeries(std::make_shared<Series>());
  chart.surface->free();
  EXPECT_TRUE(chart.surface->renderableSeries().empty());
  EXPECT_EQ(chart.surface->yAxes()->count(), 0);
  EXPECT_EQ(chart.view->leftAxesArea()->count(), 0);
  chart.tick();  // a freed chart still answers its beat
  chart.surface.reset();
  chart.tick();
  EXPECT_EQ(chart.view->recording->delegate(), nullptr);
  EXPECT_EQ(VELChartSurface::initWithView(nullptr), nullptr) << "none exists without a view";
}

}  // namespace
