// What an application's providers and blocks may do to an axis in the middle of a pass.
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "fake_chart.h"
#include "tests/support/calling_label_provider.h"
#include "velmora/axes/nice_scale.h"
#include "velmora/axes/numeric_tick_provider.h"
#include "velmora/axes/tick_coordinates_provider.h"

namespace {

size_t labelViews(const VELAxisBase& axis) { return axis.axisPanel()->subviews().size(); }

TEST(AxisCallbacks, ALabelProviderThatRaisesLeavesNoOldLabelsBehind) {
  FakeChart chart;
  chart.draw();
  const size_t before = labelViews(*chart.x);
  const auto usual = chart.x->labelProvider();
  for (const int failing : {1, 3, 5}) {
    int calls = 0;
    chart.x->setLabelProvider(std::make_shared<CallingLabelProvider>([&] {
      if (++calls == failing) throw std::runtime_error("application");
    }));
    chart.x->setVisibleRange(doubles(failing, failing + 10.0));
    EXPECT_THROW(chart.draw(), std::runtime_error);
    chart.x->setLabelProvider(usual);
    chart.x->setVisibleRange(doubles(0.0, 10.0));
    chart.draw();
    EXPECT_EQ(labelViews(*chart.x), before) << failing;
    EXPECT_EQ(chart.x->axisPanel()->tickLabels().size() + 1, before) << "labels and the title";
  }
}

TEST(AxisCallbacks, APassSurvivesChangesOfItsAxis) {
  FakeChart chart;
  const std::function<void()> meddling[] = {
      [&] { chart.x->setVisibleRange(nullptr); },
      [&] { chart.x->prepareForDrawing(); },
      [&] { chart.x->clear(); },
      [&] { chart.x->setTickProvider(nullptr); },
  };
  for (const auto& action : meddling) {
    bool done = false;
    chart.x->setLabelProvider(std::make_shared<CallingLabelProvider>([&] {
      if (!std::exchange(done, true)) action();
    }));
    chart.draw();
    EXPECT_TRUE(done);
    chart.x->setVisibleRange(doubles(0.0, 10.0));
    chart.x->setTickProvider(std::make_shared<VELNumericTickProvider>());
    chart.draw();
    EXPECT_FALSE(chart.x->axisPanel()->tickLabels().empty());
  }
}

// Answers whatever it is told to.
class OddCoordinates : public VELTickCoordinatesProviderDefault {
 public:
  std::shared_ptr<const VELTickCoordinates> answer;
  std::shared_ptr<const VELTickCoordinates> getTickCoordinatesWithMinorTicks(
      std::span<const double>, std::span<const double>) override {
    return answer;
  }
};

TEST(AxisCallbacks, OddTickCoordinatesAreCutToPairs) {
  FakeChart chart;
  const auto provider = std::make_shared<OddCoordinates>();
  chart.x->setTickCoordinatesProvider(provider);
  chart.draw();
  EXPECT_TRUE(chart.x->axisPanel()->tickLabels().empty()) << "no answer is an axis without ticks";

  const std::vector<double> values = {1.0, 2.0, 3.0};
  const std::vector<float> coordinates = {50.0f};
  const VELTickCoordinates cut(values, values, coordinates, {});
  EXPECT_EQ(cut.getMinorTicks().size(), 1u);
  EXPECT_EQ(cut.getMajorTicks().size(), 0u);
  provider->answer = std::make_shared<VELTickCoordinates>(
      std::span<const double>(values), std::span<const double>(values), std::span<const float>(coordinates),
      std::span<const float>(coordinates));
  chart.draw();
  EXPECT_EQ(chart.x->axisPanel()->tickLabels().size(), 1u);
}

TEST(AxisCallbacks, AnAlignmentBlockMayReplaceItselfAndLetGoOfTheAxis) {
  auto axis = std::make_shared<VELNumericAxis>();
  VELNumericAxis* raw = axis.get();
  const std::string captured(100, 'x');  // on the heap, so that a destroyed block is noticed
  axis->setOnAxisAlignmentChanged([&axis, raw, captured] {
    raw->setOnAxisAlignmentChanged(nullptr);
    EXPECT_EQ(captured.size(), 100u);
    axis.reset();
  });
  raw->setAxisAlignment(VELAxisAlignment_Top);
  EXPECT_EQ(axis, nullptr);
}

TEST(AxisCallbacks, StylesAssignedInPlaceShow) {
  FakeChart chart;
  const auto shows = [&](auto change) {
    chart.surface->invalidations = 0;
    change();
    return chart.surface->invalidations > 0;
  };
  VELAxisStyle style;
  style.setDrawMajorBands(false);
  EXPECT_TRUE(shows([&] { chart.x->style() = style; }));
  EXPECT_FALSE(chart.x->style().drawMajorBands());
  EXPECT_TRUE(shows([&] { chart.x->style().labelStyle() = VELTextFormattingStyle({}, 20.0, 0xFF0000FF); }));
  EXPECT_TRUE(shows([&] { chart.x->setStyle(style); }));
}

TEST(AxisCallbacks, ExtremeNumbersOfTicksAndOddGrowthAreHarmless) {
  VELNiceDoubleScale scale(0.0, 100.0, 5, std::numeric_limits<int32_t>::min());
  scale.calculateDelta();
  EXPECT_EQ(VELGenericDouble(scale.tickSpacing().majorDelta), 100.0);

  // Growing by less than nothing may leave no width: it is widened again.
  FakeChart chart;
  const auto series = std::make_shared<FakeSeries>();
  series->xRange = doubles(3.0, 5.0);
  chart.surface->series.push_back(series);
  chart.x->setGrowBy(doubles(-0.5, -0.5));
  const VELRangePtr range = chart.x->getMaximumRange();
  EXPECT_LT(range->minAsDouble(), range->maxAsDouble());

  // A range that ends a hair below a tick: it stays a major and is no minor.
  VELNumericTickProvider ticks;
  const auto majors = ticks.calculateMajorTicksWithRange(VELDoubleRange(0.0, 0.3 - 1e-12), {0.02, 0.1});
  const auto minors = ticks.calculateMinorTicksWithRange(VELDoubleRange(0.0, 0.3 - 1e-12), {0.02, 0.1});
  EXPECT_EQ(majors->count(), 4);
  EXPECT_EQ(minors->count(), 12);
}

}  // namespace
