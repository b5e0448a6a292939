#include "tests/axes/fake_chart.h"
#include "velmora/surface/render_pass_info.h"

TEST(AxisRanges, TheMaximumXRangeCoversTheSeriesThatCount) {
  FakeChart chart;
  EXPECT_EQ(chart.x->getDataRange(), nullptr);
  expectRange(chart.x->getMaximumRange(), 0, 10);

  chart.add(doubles(3, 5));
  chart.add(std::make_shared<VELIntegerRange>(7, 7));  // one integer value is data
  chart.add(std::make_shared<VELFloatRange>(-2, 1));
  expectRange(chart.x->getDataRange(), -2, 7);
  chart.add(doubles(-100, 100)).visible = false;
  chart.add(doubles(-100, 100)).data = nullptr;
  chart.add(doubles(-100, 100)).xId = "other";
  // The new ranges are undefined and inverted: no data, not all data.
  const VELRangePtr newDoubles = std::make_shared<VELDoubleRange>(),
                    newIntegers = std::make_shared<VELIntegerRange>();
  for (const VELRangePtr& none :
       {newDoubles, newIntegers, doubles(kNaN, 100), doubles(-kInf, 100), VELRangePtr()})
    chart.add(none);
  expectRange(chart.x->getMaximumRange(), -2, 7);
  chart.x->setGrowBy(doubles(0.1, 1));
  expectRange(chart.x->getMaximumRange(), -2.9, 16);
  chart.x->setVisibleRangeLimit(doubles(0, 12));
  expectRange(chart.x->getMaximumRange(), 0, 12);
}

TEST(AxisRanges, TheYRangeIsThatOfTheDataInsideTheXWindow) {
  FakeChart chart;
  std::vector<VELDoubleRange> asked;
  FakeSeries& a = chart.add(doubles(0, 100));
  a.yRange = [&asked](const VELRange& window, bool positive) {
    EXPECT_FALSE(positive);
    asked.emplace_back(window.min(), window.max());
    return doubles(window.minAsDouble(), window.maxAsDouble() * 2);
  };
  chart.x->setVisibleRange(doubles(20, 30));
  expectRange(chart.y->getWindowedYRangeWithXRanges(), 20, 60);
  const VELAxisBase::Ranges given = {{VELAxisBase::defaultAxisId, doubles(1, 2)}};
  expectRange(chart.y->getWindowedYRangeWithXRanges(&given), 1, 4);
  expectRange(chart.y->calculateYRangeWithRenderPassInfo(VELRenderPassInfo()), 20, 60);
  ASSERT_EQ(asked.size(), 3u);
  EXPECT_TRUE(asked[1].equals(VELDoubleRange(1, 2)));
  expectRange(chart.y->getDataRange(), 0, 200);

  chart.add(doubles(0, 1), doubles(-7, 0)).yId = "other";
  chart.add(doubles(0, 1), doubles(-7, 0)).xId = "missing";
  chart.add(doubles(0, 1), doubles(-7, kInf));
  expectRange(chart.y->getMaximumRange(), 20, 60);
  a.visible = false;
  EXPECT_FALSE(chart.y->getWindowedYRangeWithXRanges()->isDefined());
  chart.y->setVisibleRange(doubles(-3, 3));
  expectRange(chart.y->getMaximumRange(), -3, 3);
}
