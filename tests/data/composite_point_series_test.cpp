#include "tests/data/columns.h"
#include "velmora/data/ohlc_point_series.h"
#include "velmora/data/ranges.h"
#include "velmora/data/xyy_point_series.h"
#include "velmora/data/xyz_point_series.h"

TEST(CompositePointSeries, AllColumnsGrowAndEndTogether) {
  VELXyyPointSeries band;
  VELOhlcPointSeries prices(4);
  VELXyzPointSeries bubbles;
  VELCompositePointSeries* const all[] = {&band, &prices, &bubbles};
  EXPECT_FALSE(prices.getYRange()->isDefined());
  band.addX(1.0, 5.0, -6.0, 10);
  prices.addX(1.0, 3.0, kNaN, 2.0, 4.0, 10);
  bubbles.addX(1.0, 3.0, 900.0, 10);
  EXPECT_TRUE(band.getYRange()->equals(VELDoubleRange(-6.0, 5.0)));
  EXPECT_TRUE(prices.getYRange()->equals(VELDoubleRange(2.0, 4.0)));
  EXPECT_TRUE(bubbles.getYRange()->equals(VELDoubleRange(3.0, 3.0)));
  EXPECT_EQ(prices.ySpan()[0], 4.0) << "the close";
  for (VELCompositePointSeries* series : all) {
    EXPECT_FALSE(series->hasHolders());
    static_cast<VELPointSeries*>(series)->addX(2.0, 7.0, 11);
    EXPECT_EQ(series->count(), 2);
    EXPECT_EQ(series->indexSpan()[1], 11);
  }
  EXPECT_EQ(values(*prices.lowValues()), (Values{2, 7}));
  EXPECT_TRUE(std::isnan(bubbles.zSpan()[1]));
  prices.highValues()->removeAt(1);
  EXPECT_EQ(prices.lowSpan().size(), 1u);
  for (VELCompositePointSeries* series : all) series->clear();
  for (const auto& last : {band.y2Values(), prices.openValues(), bubbles.zValues()})
    EXPECT_TRUE(last->isEmpty());
}

TEST(CompositePointSeries, PartsThatDoNotShareTheirPointsAreRefused) {
  const auto of = [](Values values) { return column(kDouble, values); };
  const auto x = of({1, 2}), y = of({3, 4}), indices = column(VELDataType_Int32, {0, 1});
  const auto make = [](auto a, auto b, auto c) { return std::make_shared<VELPointSeries>(a, b, c); };
  const auto good = make(x, y, indices);
  const auto alike = make(x, of({5, 6}), indices);
  EXPECT_EQ(values(*VELXyzPointSeries(good, alike).zValues()), (Values{5, 6}));
  const std::shared_ptr<VELPointSeries> bad[] = {nullptr,
                                                 good,
                                                 make(x, x, indices),
                                                 make(x, of({5}), indices),
                                                 make(of({1, 2}), of({5, 6}), indices),
                                                 make(x, of({5, 6}), column(VELDataType_Int32, {0, 1})),
                                                 std::make_shared<VELXyyPointSeries>()};
  for (const auto& part : bad) {
    EXPECT_THROW(VELXyyPointSeries(good, part), VELInvalidArgumentException);
    EXPECT_THROW(VELXyyPointSeries(part, good), VELInvalidArgumentException);
    EXPECT_THROW(VELOhlcPointSeries(good, alike, make(x, of({7, 8}), indices), part),
                 VELInvalidArgumentException);
  }
}
