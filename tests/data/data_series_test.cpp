#include "velmora/data/data_series.h"

#include "tests/data/series_classes.h"

namespace {

std::shared_ptr<VELXyDataSeries> seriesOf(const Values& x, const Values& y) {
  auto series = std::make_shared<VELXyDataSeries>(kDouble, kDouble);
  series->setAcceptUnsortedData(true);
  series->appendRangeX(x, y);
  return series;
}

void expectRange(const VELRangePtr& range, Ends expected) { EXPECT_EQ(ends(range), expected); }

}  // namespace

TEST(DataSeries, TheIndexRangeReachesOnePointBeyondTheVisibleRangeAndHoldsAllEqualNeighbours) {
  constexpr int32_t kMin = INT32_MAX, kMax = INT32_MIN;  // of an undefined range
  const Values plain = {1, 3, 5, 7, 9};
  const Values equal = {1, 2, 2, 2, 3};
  const Values broken = {kNaN, 1, 2, kNaN, 3, 4};
  const struct {
    Values x;
    double min, max;
    int32_t first, last;
  } rows[] = {{plain, 3.5, 6, 1, 3},        {plain, 3, 7, 1, 3},
              {plain, 4, 4.5, 1, 2},        {plain, 0, 100, 0, 4},
              {plain, 9, 20, 4, 4},         {plain, -kInf, kInf, 0, 4},
              {plain, 9.5, 20, kMin, kMax}, {plain, -5, 0.5, kMin, kMax},
              {plain, 6, 4, kMin, kMax},    {plain, kNaN, 4, kMin, kMax},
              {equal, 2, 2, 1, 3},          {equal, 1.5, 2.5, 0, 4},
              {broken, 1.5, 2.5, 1, 3},     {broken, 3.5, 9, 4, 5},
              {{5, 1, 3}, 2, 2, 0, 2},      {{}, 0, 1, kMin, kMax},
              {{4}, 0, 10, 0, 0},           {{1e-20, 2e-20, 3e-20, 4e-20}, 2.5e-20, 2.6e-20, 1, 2}};
  for (const auto& row : rows) {
    const auto series = seriesOf(row.x, row.x);
    const auto range = series->getIndicesRangeWithVisibleRange(VELDoubleRange(row.min, row.max));
    EXPECT_TRUE(range->equals(VELIndexRange(row.first, row.last))) << row.min << ".." << row.max << *range;
  }
}

TEST(DataSeries, AnAnswerBelongsToWhoAskedAndIsNewAfterAChange) {
  const auto series = seriesOf({1, 2, 3}, {1, 2, 3});
  const VELDoubleRange all(0.0, 10.0);
  const auto first = series->getIndicesRangeWithVisibleRange(all);
  first->setMax(0);
  EXPECT_EQ(VELGenericInt(series->getIndicesRangeWithVisibleRange(all)->max()), 2);
  const VELRangePtr window = series->getWindowYRangeWithXRange(all);
  window->growMinBy(1.0, 1.0);
  expectRange(series->getWindowYRangeWithXRange(all), {1, 3});

  series->appendX(4.0, 40.0);
  EXPECT_EQ(VELGenericInt(series->getIndicesRangeWithVisibleRange(all)->max()), 3);
  expectRange(series->getWindowYRangeWithXRange(all), {1, 40});
  expectRange(series->getXRange(), {1, 4});
}

TEST(DataSeries, TheWindowedYRangeCountsWhatLiesInsideOrElseTheTwoNeighbours) {
  const Values x = {1, 2, 3, 4, 5};
  const Values y = {10, -20, kNaN, 40, -50};
  const struct {
    double min, max;
    bool positive;
    Ends expected;
  } rows[] = {{1, 2, false, {-20, 10}},     {1, 2, true, {10, 10}},     {2, 4, false, {-20, 40}},
              {4.2, 4.8, false, {-50, 40}}, {4.2, 4.8, true, {40, 40}}, {0, 9, true, {10, 40}}};
  const auto series = seriesOf(x, y);
  for (const auto& row : rows) {
    expectRange(series->getWindowYRangeWithXRange(VELDoubleRange(row.min, row.max), row.positive),
                row.expected);
  }
  for (const VELDoubleRange& none :
       {VELDoubleRange(6.0, 9.0), VELDoubleRange(kNaN, 9.0), VELDoubleRange(4.0, 2.0)}) {
    EXPECT_FALSE(series->getWindowYRangeWithXRange(none)->isDefined()) << none.description();
  }
  expectRange(series->getWindowYRangeWithIndexRange(VELIndexRange(-5, 1)), {-20, 10});
  EXPECT_FALSE(series->getWindowYRangeWithIndexRange(VELIndexRange())->isDefined());
}

TEST(DataSeries, RangesAreUndefinedWithoutANumberAndPassOverNaN) {
  for (const VELDataType type : kTypes) {
    const VELXyDataSeries empty(type, type);
    EXPECT_FALSE(empty.getXRange()->isDefined() || empty.getYRange()->isDefined()) << type;
  }
  const auto series = seriesOf({kNaN, 1, 2, kNaN}, {kNaN, kNaN, kNaN, kNaN});
  EXPECT_TRUE(series->isSorted());
  expectRange(series->getXRange(), {1, 2});
  EXPECT_FALSE(series->getYRange()->isDefined());
  EXPECT_EQ(seriesOf({1}, {2})->getYMinAt(7, 9.0), 9.0);
}

TEST(DataSeries, ARotatedRingIsReadInLogicalOrder) {
  const auto series = VELXyDataSeries::initFifoWithXType(kDouble, VELDataType_Float, 3);
  for (const float y : {1.0F, 2.0F, 5.0F, 4.0F, std::nanf("")}) series->appendX(y, y);
  expectRange(series->getYRange(), {4, 5});  // a float column ends at its first NaN: 5, 4, NaN
  expectRange(series->getXRange(), {4, 5});  // not looked at when it came, and the wrong way round
  EXPECT_THROW(series->updateAt(1, 1, 1), VELException) << "by logical neighbours";
}

namespace {

/// Does as it likes with the series when it is told of a change.
struct Calculator : VELUserDefinedDistributionCalculator {
  using Column = const VELArrayController&;
  void tell() {
    if (meddle) std::exchange(meddle, nullptr)();
  }
  void onAppendValueInArrayController(Column x, int64_t count, bool accepts) override {
    tell();
    VELUserDefinedDistributionCalculator::onAppendValueInArrayController(x, count, accepts);
  }
  void onUpdateValueInArrayController(Column x, int64_t index, bool accepts) override {
    tell();
    VELUserDefinedDistributionCalculator::onUpdateValueInArrayController(x, index, accepts);
  }
  void updateDataDistributionFlagsWhenRemovedXValues() override { tell(); }
  void clear() override {
    tell();
    VELUserDefinedDistributionCalculator::clear();
  }
  std::function<void()> meddle;
};

}  // namespace

// Under the address sanitizer: what is being told or read outlives what it does to the series.
TEST(DataSeries, CalculatorsAndResamplersMayChangeTheSeriesThatCallsThem) {
  auto ring = VELXyDataSeries::initFifoWithXType(kDouble, kDouble, 3);
  const std::function<void()> changes[] = {[&] { ring->appendX(1, 1); }, [&] { ring->updateAt(0, 2, 2); },
                                           [&] { ring->removeAt(0); }, [&] { ring->clear(); },
                                           [&] { ring->setFifoCapacity(9); }};
  for (const auto& change : changes) {
    auto calculator = std::make_shared<Calculator>();
    ring->setFifoCapacity(3);
    ring->clear();
    ring->appendX(1, 1);
    calculator->meddle = [&] {
      ring->setDataDistributionCalculator(std::make_shared<VELUserDefinedDistributionCalculator>());
      ring->setFifoCapacity(4);
    };
    ring->setDataDistributionCalculator(std::move(calculator));
    change();
    EXPECT_TRUE(ring->isSorted() && ring->fifoCapacity() == 4) << &change - changes;
  }
  ring->clear();
  ring->appendX(1, 1);
  struct Resampler : VELPointResampler {
    explicit Resampler(std::shared_ptr<VELXyDataSeries>& toChange) : series(toChange) {}
    PointSeriesPtr o_resampleWithoutReduction(const VELIndexRange& range, const VELArrayController& x,
                                              const VELArrayController& y,
                                              const PointSeriesPtr& last) override {
      series->setFifoCapacity(5);
      series.reset();
      return VELPointResampler::o_resampleWithoutReduction(range, x, y, last);
    }
    std::shared_ptr<VELXyDataSeries>& series;
  } resampler(ring);
  VELXyDataSeries& alive = *ring;
  const auto points = alive.toPointSeriesWithResamplingMode(VELResamplingMode_None, VELIndexRange(0, 9), 9,
                                                            false, VELDoubleRange(0, 9), resampler);
  EXPECT_EQ(points->count(), 1);
}

TEST(DataSeries, YRangesCoverTheColumnsBetweenWhichThePointsLie) {
  VELXyyDataSeries band(kDouble, kDouble);
  band.appendRangeX(Values{1, 2, 3}, Values{1, kNaN, 7}, Values{-5, 3, 2});
  VELOhlcDataSeries prices(kDouble, kDouble);  // open above high, close below low
  prices.appendRangeX(Values{1, 2, 3}, Values{50, 2, kNaN}, Values{10, 3, kNaN}, Values{1, 2, kNaN},
                      Values{4, -3, kNaN});
  VELXyzDataSeries bubbles(kDouble, kDouble);
  bubbles.appendRangeX(Values{1, 2, 3}, Values{4, -1, 4}, Values{900, 900, 900});
  const struct {
    const VELDataSeries& series;
    Ends all, positive, second;
  } rows[] = {{band, {-5, 7}, {1, 7}, {3, 3}},
              {prices, {-3, 50}, {1, 50}, {-3, 3}},
              {bubbles, {-1, 4}, {4, 4}, {-1, -1}}};
  for (const auto& row : rows) {
    const VELDoubleRange visible(0.0, 9.0);
    expectRange(row.series.getYRange(), row.all);
    expectRange(row.series.getWindowYRangeWithXRange(visible), row.all);
    expectRange(row.series.getWindowYRangeWithXRange(visible, true), row.positive);
    expectRange(row.series.getWindowYRangeWithIndexRange(VELIndexRange(1, 1)), row.second);
  }
}
