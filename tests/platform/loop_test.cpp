// platform/loop_test.cpp: what a host's loop counts on: timers, paces and densities.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <utility>

#include "velmora/platform/density.h"
#include "velmora/platform/frame_pacer.h"
#include "velmora/platform/timer_list.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

}  // namespace

TEST(TimerList, CallsComeInOrderOnTheirOwnGridAndAreNeverMadeUpFor) {
  VELTimerList timers;
  EXPECT_EQ(timers.nextDue(), kInf);
  std::string log;
  const uint64_t a = timers.add(
      1.0, [&](double) { log += 'a'; }, 0.0);
  const uint64_t b = timers.add(
      0.25, [&](double) { log += 'b'; }, 0.0);
  const uint64_t never = timers.add(
      kInf, [&](double) { log += 'n'; }, 0.0);
  const std::pair<double, std::string> rows[] = {{0.2, ""},   {0.3, "b"}, {0.49, ""},  {0.5, "b"},
                                                 {1.1, "ba"}, {1.2, ""},  {9.0, "ba"}, {9.2, ""}};
  for (const auto& [now, calls] : rows) {
    log.clear();
    timers.fire(now);
    EXPECT_EQ(log, calls) << now;
  }
  EXPECT_DOUBLE_EQ(timers.nextDue(), 9.25);
  timers.setInterval(never, 0.01, 9.2);
  timers.setInterval(b, kInf, 9.2);
  timers.remove(a);
  timers.remove(a + 100);
  EXPECT_DOUBLE_EQ(timers.nextDue(), 9.21);
  timers.setInterval(never, kNaN, 9.2);
  EXPECT_DOUBLE_EQ(timers.nextDue(), 9.2 + VELTimerList::shortestInterval);
}

TEST(TimerList, ACallMayRemoveItselfAndOthersAndAddNewOnes) {
  VELTimerList timers;
  int calls = 0;
  uint64_t self = 0, other = 0;
  const auto once = [&](double now) {
    ++calls;
    timers.remove(self);
    timers.remove(other);
    for (int i = 0; i < 100; ++i)
      timers.add(
          0.0, [&](double) { ++calls; }, now);
  };
  self = timers.add(0.1, once, 0.0);
  other = timers.add(
      0.2, [&](double) { calls += 1000; }, 0.0);
  timers.fire(1.0);
  EXPECT_EQ(calls, 1) << "what was added is not due at once";
  timers.fire(1.5);
  EXPECT_EQ(calls, 101);
}

TEST(FramePacer, BeatsStandOnAGridUnlessTheExchangeWaitsForTheDisplay) {
  constexpr double kPeriod = 0.01;
  // Runs beats as early as they are allowed; gives the mean distance of the last hundred.
  const auto meanDistance = [&](bool promises, double work, const std::function<double(double)>& exchange) {
    VELFramePacer pacer;
    pacer.setDisplay(kPeriod, promises);
    double now = 1.0, hundred = 0.0;
    for (int i = 0; i < 200; ++i) {
      now = std::max(now, pacer.nextBeat());
      if (i == 100) hundred = now;
      pacer.beat(now);
      now = exchange(now + work);
      pacer.exchanged(now);
    }
    return (now - hundred) / 100.0;
  };
  const auto atOnce = [](double now) { return now; };
  const auto atNextPicture = [](double now) { return (std::floor(now / 0.0102) + 1.0) * 0.0102; };
  EXPECT_NEAR(meanDistance(false, 0.001, atOnce), kPeriod, 1e-4);
  EXPECT_NEAR(meanDistance(true, 0.001, atOnce), kPeriod, 1e-4) << "a promise that is not kept";
  EXPECT_NEAR(meanDistance(true, 0.001, atNextPicture), 0.0102, 2e-4) << "the display knows better";
  EXPECT_NEAR(meanDistance(false, 0.025, atOnce), 0.025, 3e-4) << "late beats are not made up for";

  VELFramePacer pacer;
  for (const double wrong : {0.0, -1.0, kNaN, kInf}) {
    pacer.setDisplay(wrong, true);
    EXPECT_EQ(pacer.period(), 1.0 / 60.0);
  }
}

TEST(Density, RoundedSizesOfOneWindowHaveOneDensity) {
  for (const double density : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
    double seen = VELDensityOf({2400.0, 1200.0}, {2400.0 * density, 1200.0 * density}, 7.0);
    for (int side = 37; side < 3000; side += 61) {
      const VELSize points{1.0 * side, std::round(side * 0.6)};
      seen = VELDensityOf(points, {std::round(side * density), std::round(points.height * density)}, seen);
      ASSERT_EQ(seen, density) << side;
    }
    EXPECT_EQ(VELDensityOf({0.0, 10.0}, {0.0, 20.0}, density), density);
    EXPECT_EQ(VELDensityOf({kNaN, 10.0}, {10.0, 20.0}, density), density);
  }
}
