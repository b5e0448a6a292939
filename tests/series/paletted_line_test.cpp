// A line in the styles of a palette.
#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "tests/series/drawn_series.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/rendering/solid_pen.h"
#include "velmora/series/ellipse_point_marker.h"

namespace {

using Style = std::shared_ptr<const VELSeriesStyle>;

// Answers what a test says and notes what it was asked.
struct Palette : VELPaletteProvider {
  std::function<Style(double, double, uint32_t)> answer = [](double, double, uint32_t) { return nullptr; };
  std::function<void()> onUpdate = [] {};
  int updates = 0;
  std::vector<double> asked;
  void updateData(const VELRenderPassData&) override { ++updates, onUpdate(); }
  Style styleForX(double x, double y, uint32_t index) override {
    asked.insert(asked.end(), {x, y, static_cast<double>(index)});
    return answer(x, y, index);
  }
};

struct OtherStyle : VELSeriesStyle {};

// A pen that depends on the data, as a gradient does.
struct SpannedPen : VELPen2D {
  int spans = 0;
  uint32_t colorCode() const override { return 77; }
  float strokeThickness() const override { return 1.0f; }
  void getColorCode(uint32_t& code, uint16_t&, uint16_t&, double, double) const override { code = 77; }
  VELShaderType shaderType() const override { return VELShaderType_Solid; }
  bool equalsToBrush(const VELBrush2D& other) const override { return &other == this; }
  void apply(VELShaderAttributes&) const override {}
  bool requireRenderPassData() const override { return true; }
  void setRenderPassData(const VELBrushPassData* data) override { spans += data ? 1 : 0; }
  VELBrushPtr clone() const override { return std::make_shared<SpannedPen>(); }
};

std::shared_ptr<VELLineSeriesStyle> styleOf(VELPenPtr pen, bool markers = false) {
  auto style = std::make_shared<VELLineSeriesStyle>();
  style->setLinePen(std::move(pen));
  style->setDrawPointMarkers(markers);
  return style;
}

// A palette that colours by index, on a series of colour 5.
struct PalettedSeries : DrawnSeries {
  using DrawnSeries::DrawnSeries;
  std::shared_ptr<Palette> palette = [this] {
    auto made = std::make_shared<Palette>();
    series->style()->setLinePen(VELPen2D::solid(5, 1.0f));
    series->setPaletteProvider(made);
    return made;
  }();
  // The line as x, y and colour of each place.
  std::vector<double> line() {
    std::vector<double> places;
    size_t begun = 0;
    for (const auto& one : draw()) {
      if (one.name != "begin" && one.name != "extend") continue;
      EXPECT_EQ(one.name == "begin", begun++ == 0) << "one polyline, begun once";
      places.insert(places.end(), {one.numbers[0], one.numbers[1], static_cast<double>(one.colorCode)});
    }
    return places;
  }
};

TEST(PalettedLine, TheStyleOfASegmentIsThatOfThePointWhereItEnds) {
  const struct {
    bool digital, vertical;
    std::vector<double> line;  // screen x, screen y, colour: 10 + index
  } rows[] = {
      {false, false, {0, 4, 10, 2, 6, 12, 3, 8, 13}},
      {false, true, {4, 0, 10, 6, 2, 12, 8, 3, 13}},
      {true, false, {0, 4, 10, 2, 4, 12, 2, 6, 12, 3, 6, 13, 3, 8, 13}},
      {true, true, {4, 0, 10, 4, 2, 12, 6, 2, 12, 6, 3, 13, 8, 3, 13}},  // corners, then swapped
  };
  for (const auto& row : rows) {
    PalettedSeries drawn({0, 1, 2, 3}, {4, kNaN, 6, 8}, row.vertical);
    drawn.series->style()->setIsDigitalLine(row.digital);
    drawn.palette->answer = [](double, double, uint32_t index) {
      return styleOf(VELPen2D::solid(10 + index, 1.0f));
    };
    EXPECT_EQ(drawn.line(), row.line);
    EXPECT_EQ(drawn.palette->updates, 2);
    // Asked for every place of the line, corners too, and then for every point again for its marker.
    std::vector<double> places = row.line;
    for (size_t i = 2; i < places.size(); i += 3) places[i] -= 10;
    EXPECT_EQ(std::vector<double>(drawn.palette->asked.begin(),
                                  drawn.palette->asked.begin() + static_cast<std::ptrdiff_t>(places.size())),
              places);
    EXPECT_EQ(drawn.palette->asked.size(), places.size() + 9);
  }
}

TEST(PalettedLine, WhatAStyleLacksIsTheSeriesOwn) {
  const auto marker = std::make_shared<VELEllipsePointMarker>();
  marker->setFillBrush(VELBrush2D::solid(9));
  const auto withMarker = styleOf(VELPen2D::solid(8, 1.0f), true), withoutMarker = styleOf(nullptr, true);
  withMarker->setPointMarker(marker);
  withoutMarker->setPointMarker(nullptr);
  const struct {
    Style style;
    uint32_t line, markerOfPlainSeries, markerOfMarkedSeries;
  } rows[] = {{nullptr, 5, 0, 6},
              {std::make_shared<OtherStyle>(), 5, 0, 6},
              {withMarker, 8, 9, 9},
              {withoutMarker, 5, 6, 6},
              {styleOf(nullptr, false), 5, 0, 0}};
  for (const auto& row : rows)
    for (const bool marked : {false, true}) {
      PalettedSeries drawn({30}, {40});
      const auto own = std::make_shared<VELEllipsePointMarker>();
      own->setFillBrush(VELBrush2D::solid(6));
      drawn.series->style()->setPointMarker(own);
      drawn.series->style()->setDrawPointMarkers(marked);
      drawn.palette->answer = [&](double, double, uint32_t) { return row.style; };
      EXPECT_EQ(drawn.line(), (std::vector<double>{30, 40, static_cast<double>(row.line)}));
      const auto& last = drawn.surface->render->operations.back();
      EXPECT_EQ(last.name == "ellipse" ? last.colorCode : 0,
                marked ? row.markerOfMarkedSeries : row.markerOfPlainSeries);
    }
}

TEST(PalettedLine, AGradientPenGetsTheDataOnceAPass) {
  PalettedSeries drawn({0, 1, 2, 3, 4}, {0, 1, 2, 3, 4});
  const auto first = std::make_shared<SpannedPen>(), second = std::make_shared<SpannedPen>();
  const Style styles[] = {styleOf(first), styleOf(second)};
  drawn.palette->answer = [&](double, double, uint32_t index) { return styles[index % 2]; };
  for (int pass = 1; pass <= 2; ++pass) {
    drawn.draw();
    EXPECT_EQ(first->spans, pass);
    EXPECT_EQ(second->spans, pass);
  }
}

TEST(PalettedLine, APaletteMayTakeTheChartApart) {
  const std::function<void(RecordingChart&)> rows[] = {
      [](RecordingChart& chart) {
        chart.surface->detachRenderableSeries(chart.surface->renderableSeries()[0]);
      },
      [](RecordingChart& chart) {
        chart.surface->detachRenderableSeries(chart.surface->renderableSeries()[1]);
      },
      [](RecordingChart& chart) { chart.surface->free(); },
      [](RecordingChart& chart) { chart.view.reset(), chart.surface.reset(); },
      [](RecordingChart& chart) { chart.surface->setRenderSurface(nullptr); },
      [](RecordingChart& chart) {
        const auto series =
            std::static_pointer_cast<VELFastLineRenderableSeries>(chart.surface->renderableSeries()[0]);
        series->setPaletteProvider(nullptr);
        series->setStyle(VELLineSeriesStyle());
        series->setDataSeries(nullptr);
      }};
  // Also where the application holds the series, and for the selected ones, which come last.
  for (const auto& takeApart : rows)
    for (const bool held : {false, true})
      for (const bool selected : {false, true}) {
        RecordingChart chart;
        for (const bool isXAxis : {true, false})
          chart.surface->attachAxis(std::make_shared<VELNumericAxis>(), isXAxis);
        std::vector<std::shared_ptr<VELFastLineRenderableSeries>> series;
        for (int i = 0; i < 2; ++i) {
          PalettedSeries drawn({0, 1, 2}, {0, 1, 2});
          drawn.series->setIsSelected(selected);
          drawn.series->setDataSeries(drawn.values);
          if (i == 0)
            drawn.palette->onUpdate = [&, done = false]() mutable {
              if (!std::exchange(done, true)) takeApart(chart);
            };
          chart.surface->attachRenderableSeries(drawn.series);
          series.push_back(drawn.series);
        }
        if (!held) series.clear();
        const auto surface = chart.view->recording;
        EXPECT_NO_THROW(surface->onRenderTimeElapsed());
        EXPECT_NO_THROW(surface->onRenderTimeElapsed());
      }
}

}  // namespace
