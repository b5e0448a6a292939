#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "fake_chart.h"
#include "velmora/surface/render_pass_info.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct Chart : FakeChart {
  FakeSeries& add(const VELRangePtr& xRange, const VELRangePtr& yRange = nullptr) {
    surface->series.push_back(std::make_shared<FakeSeries>());
    surface->series.back()->xRange = xRange;
    surface->series.back()->yRange = [yRange](const VELRange&, bool) { return yRange; };
    return *surface->series.back();
  }
};

void expectRange(const VELRangePtr& range, double min, double max) {
  ASSERT_NE(range, nullptr);
  EXPECT_DOUBLE_EQ(range->minAsDouble(), min);
  EXPECT_DOUBLE_EQ(range->maxAsDouble(), max);
}

TEST(AxisRanges, TheMaximumXRangeCoversTheSeriesThatCount) {
  Chart chart;
  EXPECT_EQ(chart.x->getDataRange(), nullptr);
  expectRange(chart.x->getMaximumRange(), 0, 10);

  chart.add(doubles(3, 5));
  chart.add(std::make_shared<VELIntegerRange>(7, 7));  // one integer value is data
  chart.add(std::make_shared<VELFloatRange>(-2, 1));
  expectRange(chart.x->getDataRange(), -2, 7);
  chart.add(doubles(-100, 100)).visible = false;
  chart.add(doubles(-100, 100)).data = nullptr;
  chart.add(doubles(-100, 100)).xId = "other";
  chart.add(nullptr);
  chart.add(std::make_shared<VELDoubleRange>());   // undefined and inverted: no data, not all data
  chart.add(std::make_shared<VELIntegerRange>());  // the same
  chart.add(doubles(kNaN, 100));
  chart.add(doubles(-kInf, 100));
  expectRange(chart.x->getMaximumRange(), -2, 7);
  chart.x->setGrowBy(doubles(0.1, 1));
  expectRange(chart.x->getMaximumRange(), -2.9, 16);
  chart.x->setVisibleRangeLimit(doubles(0, 12));
  expectRange(chart.x->getMaximumRange(), 0, 12);
}

TEST(AxisRanges, TheYRangeIsThatOfTheDataInsideTheXWindow) {
  Chart chart;
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
  const VELAxisBase::Ranges others = {{"unrelated", doubles(1, 2)}};
  expectRange(chart.y->getWindowedYRangeWithXRanges(&others), 20, 60);
  expectRange(chart.y->calculateYRangeWithRenderPassInfo(VELRenderPassInfo()), 20, 60);
  ASSERT_EQ(asked.size(), 4u);
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
  chart.y->setVisibleRange(nullptr);
  expectRange(chart.y->getMaximumRange(), 0, 10);
}

}  // namespace
