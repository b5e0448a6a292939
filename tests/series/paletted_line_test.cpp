// A line in the styles of a palette.
#include <gtest/gtest.h>

#include <functional>
#include <numeric>
#include <utility>

#include "tests/series/drawn_series.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/rendering/linear_gradient.h"

namespace {

using Style = TestPalette::Style;

struct OtherStyle : VELSeriesStyle {};

// A gradient that counts how many times it gets the data.
struct SpannedPen : VELLinearGradient<VELPen2D> {
  SpannedPen() : VELLinearGradient({}, VELGradientDirection_Vertical) {}
  int spans = 0;
  float strokeThickness() const override { return 1.0f; }
  void setRenderPassData(const VELBrushPassData* data) override { spans += data ? 1 : 0; }
  VELBrushPtr clone() const override { return std::make_shared<SpannedPen>(); }
};

std::shared_ptr<VELLineSeriesStyle> styleOf(VELPenPtr pen) {
  auto style = std::make_shared<VELLineSeriesStyle>();
  style->setLinePen(std::move(pen));
  return style;
}

// A palette that colours by index, on a series of colour 5.
struct PalettedSeries : DrawnSeries {
  using DrawnSeries::DrawnSeries;
  std::shared_ptr<TestPalette> palette = [this] {
    auto made = std::make_shared<TestPalette>();
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
  }
}

TEST(PalettedLine, AStyleWithoutAPenIsTheSeriesOwn) {
  for (const Style& style : {Style(), Style(std::make_shared<OtherStyle>()), Style(styleOf(nullptr))}) {
    PalettedSeries drawn({30}, {40});
    drawn.palette->answer = [&](double, double, uint32_t) { return style; };
    EXPECT_EQ(drawn.line(), (std::vector<double>{30, 40, 5}));
  }
}

TEST(PalettedLine, AGradientPenGetsTheDataOnceAPassTheSeriesOwnToo) {
  constexpr size_t kPens = 40;
  std::vector<double> values(4 * kPens);
  std::iota(values.begin(), values.end(), 0.0);
  PalettedSeries drawn(values, values);
  std::vector<std::shared_ptr<SpannedPen>> pens(kPens);
  std::vector<Style> styles(kPens);
  for (size_t i = 0; i < kPens; ++i) styles[i] = styleOf(pens[i] = std::make_shared<SpannedPen>());
  styles[0] = nullptr;
  drawn.series->style()->setLinePen(pens[0]);
  drawn.palette->answer = [&](double, double, uint32_t index) { return styles[index % kPens]; };
  for (int pass = 1; pass <= 2; ++pass) {
    drawn.draw();
    for (const auto& pen : pens) EXPECT_EQ(pen->spans, pass);
  }
}

TEST(PalettedLine, APaletteMayTakeTheChartApart) {
  using Line = VELFastLineRenderableSeries;
  // What it does, and how many lines the refresh after that draws.
  const std::pair<std::function<void(RecordingChart&)>, size_t> rows[] = {
      {[](auto& chart) { chart.surface->detachRenderableSeries(chart.surface->renderableSeries()[0]); }, 1},
      {[](auto& chart) { chart.surface->detachRenderableSeries(chart.surface->renderableSeries()[1]); }, 1},
      {[](auto& chart) { chart.surface->free(); }, 0},
      {[](auto& chart) { chart.view.reset(), chart.surface.reset(); }, 0},
      {[](auto& chart) { chart.surface->setRenderSurface(nullptr); }, 0},
      {[](auto& chart) {
         const auto series = std::static_pointer_cast<Line>(chart.surface->renderableSeries()[0]);
         series->setPaletteProvider(nullptr);
         series->setStyle(VELLineSeriesStyle());
         series->setDataSeries(nullptr);
       },
       1}};
  // Also where the application holds the series, and for the selected ones, which come last.
  for (const auto& [takeApart, lines] : rows)
    for (int kind = 0; kind < 4; ++kind) {
      RecordingChart chart;
      for (const bool isXAxis : {true, false})
        chart.surface->attachAxis(std::make_shared<VELNumericAxis>(), isXAxis);
      std::vector<std::shared_ptr<Line>> series;
      for (int i = 0; i < 2; ++i) {
        PalettedSeries drawn({0, 1, 2}, {0, 1, 2});
        drawn.series->setIsSelected((kind & 1) != 0);
        drawn.series->setDataSeries(drawn.values);
        if (i == 0)
          drawn.palette->onUpdate = [&, &act = takeApart, done = false]() mutable {
            if (!std::exchange(done, true)) act(chart);
          };
        chart.surface->attachRenderableSeries(drawn.series);
        series.push_back(drawn.series);
      }
      if (kind & 2) series.clear();
      const auto surface = chart.view->recording;
      surface->onRenderTimeElapsed();
      surface->render->clear();
      surface->invalidateElement();
      surface->onRenderTimeElapsed();
      EXPECT_EQ(surface->render->count("begin"), lines) << kind;
    }
}

}  // namespace
