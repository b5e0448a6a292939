#include "velmora/data/point_series.h"

#include <gtest/gtest.h>

#include "tests/data/columns.h"
#include "velmora/data/array_controller_fifo.h"
#include "velmora/data/ranges.h"

TEST(PointSeries, ItIsAsLongAsItsShortestColumnAndRefusesColumnsOfOtherTypes) {
  const auto x = column(VELDataType_Double, {}), y = column(VELDataType_Double, {});
  const auto indices = column(VELDataType_Int32, {});
  VELPointSeries points(x, y, indices);
  EXPECT_FALSE(points.getYRange()->isDefined());
  points.addX(1.0, 5.0, 10);
  points.addX(2.0, std::numeric_limits<double>::quiet_NaN(), 11);
  points.addX(3.0, -4.0, 12);
  x->append(4.0);
  EXPECT_EQ(points.count(), 3);
  EXPECT_EQ(points.xSpan().size(), 3u);
  EXPECT_EQ(points.indexSpan().back(), 12);
  EXPECT_TRUE(points.getYRange()->equals(VELDoubleRange(-4.0, 5.0)));
  EXPECT_THROW(VELPointSeries(x, indices, indices), VELInvalidArgumentException);
  EXPECT_THROW(VELPointSeries(x, y, y), VELInvalidArgumentException);
  EXPECT_THROW(VELPointSeries(x, nullptr, indices), VELInvalidArgumentException);
  const auto ring = VELArrayControllerFIFO::initWithType(VELDataType_Double, 8);
  EXPECT_THROW(VELPointSeries(x, ring, indices), VELInvalidArgumentException);
}
