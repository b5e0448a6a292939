// What an application's providers and blocks may do to an axis in the middle of a pass.
#include <stdexcept>

#include "tests/axes/fake_chart.h"
#include "tests/support/calling_label_provider.h"
#include "velmora/axes/numeric_tick_provider.h"
#include "velmora/axes/tick_coordinates_provider.h"

namespace {

TEST(AxisCallbacks, ALabelProviderThatRaisesLeavesNoOldLabelsBehind) {
  FakeChart chart;
  chart.draw();
  const auto& panel = chart.x->axisPanel();
  const size_t before = panel->subviews().size();
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
    EXPECT_EQ(panel->subviews().size(), before) << failing;
    EXPECT_EQ(panel->tickLabels().size() + 1, before) << "labels and the title";
  }
}

TEST(AxisCallbacks, APassSurvivesChangesOfItsAxis) {
  FakeChart chart;
  const std::function<void()> meddling[] = {[&] { chart.x->setVisibleRange(nullptr); },
                                            [&] { chart.x->prepareForDrawing(); }, [&] { chart.x->clear(); },
                                            [&] { chart.x->setTickProvider(nullptr); }};
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
  chart.x->setParentSurface({});
  chart.y->setParentSurface({});
  chart.draw();
  EXPECT_TRUE(chart.context.shapes.empty()) << "without a chart";
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
  const std::vector<float> one = {50.0f}, two = {50.0f, 60.0f};
  provider->answer = std::make_shared<VELTickCoordinates>(values, values, two, one);
  EXPECT_EQ(provider->answer->getMinorTicks().size(), 2u);
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

}  // namespace
