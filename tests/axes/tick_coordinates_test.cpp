#include "tests/axes/axis_kinds.h"
#include "velmora/axes/tick_coordinates_provider.h"

namespace {

std::vector<double> kept(VELAxisBase& axis, const std::vector<double>& ticks) {
  axis.getCurrentCoordinateCalculator();
  const auto placed = axis.tickCoordinatesProvider()->getTickCoordinatesWithMinorTicks({}, ticks);
  return {placed->getMajorTicks().begin(), placed->getMajorTicks().end()};
}

TEST(TickCoordinates, KeepWhatLiesOnTheAxisAndDropDoubles) {
  FakeChart chart;
  chart.x->setVisibleRange(doubles(0, 439));
  chart.x->getCurrentCoordinateCalculator();
  ASSERT_EQ(chart.x->getAxisSize(), 440) << "one point per unit";
  const std::vector<double> minors = {-50, -1e-8, 0, 0, 100, 100 + 1e-16, 439, 440, 440.1, kNaN};
  const auto provider = chart.x->tickCoordinatesProvider();
  const auto ticks = provider->getTickCoordinatesWithMinorTicks(minors, {});
  const std::vector<double> kept(ticks->getMinorTicks().begin(), ticks->getMinorTicks().end());
  EXPECT_EQ(kept, (std::vector<double>{-1e-8, 0, 100, 439, 440})) << "both ends with a hair of tolerance";
  ASSERT_EQ(ticks->getMinorTickCoordinates().size(), 5u);
  EXPECT_EQ(ticks->getMinorTickCoordinates()[3], 439.0f);
  EXPECT_NE(provider->getTickCoordinatesWithMinorTicks({}, {}), ticks) << "the first answer is still kept";
  VELTickCoordinatesProviderDefault orphan;
  EXPECT_TRUE(orphan.getTickCoordinatesWithMinorTicks(minors, minors)->isEmpty());
}

TEST(TickCoordinates, NeitherTinyValuesNorOneWithoutAPlaceTakeOthersWithThem) {
  OneAxisChart chart(kLogarithmic);
  chart.show(1e-20, 1e-18);
  EXPECT_EQ(kept(*chart.axis, {1e-20, 1e-19, 1e-18}), (std::vector<double>{1e-20, 1e-19, 1e-18}));
  for (const double none : {kNaN, -1e-19, 0.0})
    EXPECT_EQ(kept(*chart.axis, {none, 1e-20, 1e-19, none, 1e-18}),
              (std::vector<double>{1e-20, 1e-19, 1e-18}))
        << none;
}

}  // namespace
