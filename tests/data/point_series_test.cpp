#include "velmora/data/point_series.h"

#include "tests/data/columns.h"
#include "velmora/data/array_controller_fifo.h"
#include "velmora/data/ranges.h"

TEST(PointSeries, ItIsAsLongAsItsShortestColumnAndRefusesColumnsOfOtherTypes) {
  const auto x = column(kDouble, {}), y = column(kDouble, {});
  const auto indices = column(VELDataType_Int32, {});
  VELPointSeries points(x, y, indices);
  EXPECT_FALSE(points.getYRange()->isDefined());
  points.addX(1.0, 5.0, 10);
  EXPECT_TRUE(points.getYRange()->equals(VELDoubleRange(5.0, 5.0)));
  points.addX(2.0, kNaN, 11);
  points.addX(3.0, -4.0, 12);
  x->append(4.0);
  EXPECT_EQ(points.count(), 3);
  EXPECT_EQ(points.xSpan().size(), 3u);
  EXPECT_EQ(points.indexSpan().back(), 12);
  EXPECT_TRUE(points.getYRange()->equals(VELDoubleRange(-4.0, 5.0)));
  EXPECT_THROW(VELPointSeries(x, y, y), VELInvalidArgumentException);
  const VELArrayControllerPtr ring = VELArrayControllerFIFO::initWithType(kDouble, 8);
  for (const auto& bad : {indices, ring, VELArrayControllerPtr()})
    EXPECT_THROW(VELPointSeries(x, bad, indices), VELInvalidArgumentException);
}
