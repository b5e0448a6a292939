#include "tests/data/columns.h"
#include "velmora/data/ohlc_point_series.h"
#include "velmora/data/xyy_point_series.h"
#include "velmora/data/xyz_point_series.h"

TEST(CompositePointSeries, PartsThatDoNotShareTheirPointsAreRefused) {
  const auto of = [](Values values) { return column(kDouble, values); };
  const auto x = of({1, 2}), y = of({3, 4}), indices = column(VELDataType_Int32, {0, 1});
  const auto make = [](auto a, auto b, auto c) { return std::make_shared<VELPointSeries>(a, b, c); };
  const auto good = make(x, y, indices);
  const auto alike = make(x, of({5, 6}), indices);
  const std::shared_ptr<VELPointSeries> bad[] = {
      nullptr, make(x, of({5}), indices), make(of({1, 2}), of({5, 6}), indices),
      make(x, of({5, 6}), column(VELDataType_Int32, {0, 1})), std::make_shared<VELXyyPointSeries>()};
  for (const auto& column : {indices, VELArrayControllerPtr()})
    EXPECT_THROW(VELPointSeries(x, column, indices), VELInvalidArgumentException);
  for (const auto& part : bad) {
    EXPECT_THROW(VELXyyPointSeries(good, part), VELInvalidArgumentException);
    EXPECT_THROW(VELOhlcPointSeries(good, alike, make(x, of({7, 8}), indices), part),
                 VELInvalidArgumentException);
  }
}
