// Ranges that move in time, and who is told of them.
#include <stdexcept>

#include "tests/axes/axis_kinds.h"

namespace {

struct AnimatedChart : OneAxisChart {
  struct Told {
    VELRangePtr from, to;
    bool isAnimation;
  };
  std::vector<Told> told;

  explicit AnimatedChart(AxisMaker make = kNumeric) : OneAxisChart(make) {
    axis->addOnVisibleRangeChanged([this](const VELRangePtr& from, const VELRangePtr& to, bool isAnimation) {
      told.push_back({from, to, isAnimation});
    });
  }
  void beat(double seconds) { surface->link->tick(seconds); }
};

TEST(AxisAnimation, StepsAreLinearOnTheScaleOfEachKindAndTheLastOneIsTheTarget) {
  const struct {
    AxisMaker make;
    double fromMin, fromMax, toMin, toMax, middleMin, middleMax;
  } rows[] = {{kNumeric, 0, 10, 5, 35, 2.5, 22.5},
              {kLogarithmic, 1, 100, 100, 1e6, 10, 1e4},
              {kLogarithmic, -100, -1, -1e4, -100, -1000, -10},
              {kDateTime, 1.5e9, 1.6e9, 1.6e9, 1.65e9, 1.55e9, 1.625e9},
              {kCategory, -0.5, 9.5, 4.5, 9.5, 2, 9.5}};
  for (const auto& row : rows) {
    AnimatedChart chart(row.make);
    chart.show(row.fromMin, row.fromMax);
    chart.told.clear();
    EXPECT_TRUE(chart.axis->trySetOrAnimateVisibleRange(doubles(row.toMin, row.toMax), 2.0));
    chart.beat(100);  // whenever the first beat comes, it is the start
    expectRange(chart.axis->visibleRange(), row.fromMin, row.fromMax);
    chart.beat(101);
    expectRange(chart.axis->visibleRange(), row.middleMin, row.middleMax);
    chart.beat(102.5);
    EXPECT_TRUE(chart.axis->visibleRange()->equals(*chart.axis->toVisibleRangeMin(row.toMin, row.toMax)));
    EXPECT_TRUE(chart.told.size() == 2 && chart.told[1].isAnimation);
  }
}

TEST(AxisAnimation, ANewRangeOrAGestureEndsItWhereItIs) {
  void (*const ends[])(VELAxisBase&) = {
      [](VELAxisBase& axis) { axis.setVisibleRange(axis.visibleRange()); },
      [](VELAxisBase& axis) { axis.scrollByPixels(0, VELClipMode_None); },
      [](VELAxisBase& axis) { axis.zoomByFractionMin(0, 0); },
      [](VELAxisBase& axis) { axis.setParentSurface({}); },
      [](VELAxisBase& axis) { axis.trySetOrAnimateVisibleRange(axis.visibleRange(), 1.0); }};
  for (const auto end : ends) {
    AnimatedChart chart;
    chart.axis->trySetOrAnimateVisibleRange(doubles(10, 20), 1.0);
    for (const double seconds : {0.0, 0.5, 0.9}) {
      chart.beat(seconds);
      if (seconds == 0.5) end(*chart.axis);
    }
    expectRange(chart.axis->visibleRange(), 5, 15);
  }
}

TEST(AxisAnimation, WithoutABeatOrAWayTheRangeIsSetAtOnce) {
  AnimatedChart chart(kLogarithmic);  // its default is no start, and there is no way across zero
  for (const double bound : {2.0, -3.0, -5.0, -6.0}) {
    if (bound == -5.0) chart.surface->link = nullptr;
    EXPECT_TRUE(chart.axis->trySetOrAnimateVisibleRange(doubles(bound, bound + 1), 1));
    expectRange(chart.axis->visibleRange(), bound, bound + 1);
  }
  AnimatedChart endless;
  for (const double max : {kInf, 20.0}) {  // there, and back from it
    EXPECT_TRUE(endless.axis->trySetOrAnimateVisibleRange(doubles(5, max), 1));
    EXPECT_EQ(endless.axis->visibleRange()->maxAsDouble(), max);
  }
}

TEST(AxisAnimation, BlocksOfAStepMayDoAnything) {
  void (*const meddlings[])(AnimatedChart&) = {
      [](AnimatedChart& chart) { chart.axis->setVisibleRange(doubles(7, 8)); },
      [](AnimatedChart& chart) { chart.axis->trySetOrAnimateVisibleRange(doubles(7, 8), 0.5); },
      [](AnimatedChart& chart) {
        chart.axis->setVisibleRange(doubles(7, 8));
        throw std::runtime_error("application");
      },
      [](AnimatedChart& chart) {
        chart.horizontal->clear();
        chart.surface->xs.clear();
        chart.axis.reset();
      }};
  for (const auto meddle : meddlings) {
    AnimatedChart chart;
    const std::weak_ptr<VELAxisBase> axis = chart.axis;
    bool done = false;
    chart.axis->addOnVisibleRangeChanged([&](const VELRangePtr&, const VELRangePtr&, bool) {
      if (!std::exchange(done, true)) meddle(chart);
    });
    chart.axis->trySetOrAnimateVisibleRange(doubles(10, 20), 1.0);
    for (int i = 0; i <= 8; ++i) try {
        chart.beat(i * 0.25);
      } catch (const std::runtime_error&) {
      }
    EXPECT_EQ(axis.expired(), chart.axis == nullptr);
    EXPECT_TRUE(!chart.axis || chart.axis->visibleRange()->equals(VELDoubleRange(7, 8)));
  }
}

TEST(RangeChanged, IsToldOfEachRealChangeOnceAndInOrder) {
  AnimatedChart chart;
  chart.show(0, 10);
  chart.axis->setVisibleRange(std::make_shared<VELIntegerRange>(0, 10));
  EXPECT_TRUE(chart.told.empty()) << "the same bounds are no change";
  chart.axis->setVisibleRange(nullptr);
  ASSERT_EQ(chart.told.size(), 1u);
  EXPECT_EQ(chart.told[0].to, nullptr);

  // Two axes that bind each other settle.
  const auto other = std::make_shared<VELNumericAxis>();
  chart.axis->addOnVisibleRangeChanged(
      [&](const VELRangePtr&, const VELRangePtr& to, bool) { other->setVisibleRange(to); });
  const uint64_t key = other->addOnVisibleRangeChanged([&](const VELRangePtr&, const VELRangePtr& to, bool) {
    chart.axis->setVisibleRange(doubles(to->minAsDouble(), 50));
  });
  chart.show(3, 4);
  expectRange(other->visibleRange(), 3, 50);
  ASSERT_EQ(chart.told.size(), 3u);
  EXPECT_TRUE(chart.told[2].from->equals(chart.told[1].to));

  // An argument without an end is cut off.
  other->removeOnVisibleRangeChanged(key);
  chart.axis->addOnVisibleRangeChanged([&](const VELRangePtr&, const VELRangePtr& to, bool) {
    chart.show(to->minAsDouble(), to->maxAsDouble() + 1);
  });
  chart.show(0, 1);
  EXPECT_EQ(chart.told.size(), 3u + VELRangeChangedCallbackHandler::maxRounds);
}

}  // namespace
