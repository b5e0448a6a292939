#include "velmora/data/resampler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/data/columns.h"
#include "velmora/data/array_controller_fifo.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
const VELDoubleRange kAnyRange(0.0, 1.0);

struct Point {
  double x;
  double y;
  int64_t index;
  bool operator==(const Point& other) const {
    const auto same = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    return same(x, other.x) && same(y, other.y) && index == other.index;
  }
};
using Points = std::vector<Point>;

void PrintTo(const Point& point, std::ostream* out) {
  *out << "(" << point.x << ", " << point.y << ", #" << point.index << ")";
}

double valueAt(const VELArrayController& column, int64_t index) {
  return VELGenericDouble(column.valueAt(index));
}

Points pointsOf(const VELPointSeries& series) {
  Points points;
  for (size_t i = 0; i < series.xSpan().size(); ++i) {
    points.push_back({series.xSpan()[i], series.ySpan()[i], series.indexSpan()[i]});
  }
  return points;
}

/// The plain walk over all points, one running minimum and maximum, that every reducer must equal.
Points plainlyReduced(VELResamplingMode mode, const VELArrayController& x, const VELArrayController& y,
                      int64_t lo, int64_t hi, int64_t width) {
  const int64_t n = hi - lo + 1;
  const int64_t bucket = n / (2 * width);
  Points out;
  double low = kInf, high = -kInf;
  int64_t lowAt = -1, highAt = -1;
  const auto emit = [&](int64_t last, double atX) {
    const bool gap = lowAt < 0;
    const Point lowest{atX, gap ? kNaN : low, gap ? last : lowAt};
    const Point highest{atX, gap ? kNaN : high, gap ? last : highAt};
    if (mode == VELResamplingMode_MinMax || mode == VELResamplingMode_Min) out.push_back(lowest);
    if (mode == VELResamplingMode_MinMax || mode == VELResamplingMode_Max) out.push_back(highest);
    if (mode == VELResamplingMode_Mid) out.push_back({atX, gap ? kNaN : (high + low) * 0.5, last});
    low = kInf, high = -kInf, lowAt = highAt = -1;
  };
  int64_t inBucket = 0;
  for (int64_t i = lo; i <= hi; ++i) {
    const double value = valueAt(y, i);
    if (value <= low) low = value, lowAt = i;
    if (value >= high) high = value, highAt = i;
    if (++inBucket < bucket) continue;
    emit(i, valueAt(x, i));
    inBucket = 0;
  }
  if (inBucket > 0 && mode == VELResamplingMode_MinMax) emit(hi, valueAt(x, x.count() - 1));
  return out;
}

}  // namespace

TEST(Resampler, ReducesFromFourPointsPerPointOfWidthOn) {
  const auto requires_ = VELPointResampler::o_requiresReductionWithMode;
  EXPECT_FALSE(requires_(VELResamplingMode_MinMax, VELIndexRange(0, 399), 100));
  EXPECT_TRUE(requires_(VELResamplingMode_MinMax, VELIndexRange(0, 400), 100));
  EXPECT_TRUE(requires_(VELResamplingMode_Auto, VELIndexRange(1000, 1400), 100));
  EXPECT_FALSE(requires_(VELResamplingMode_None, VELIndexRange(0, 400), 100));
  EXPECT_FALSE(requires_(VELResamplingMode_Min, VELIndexRange(0, 400), std::numeric_limits<int32_t>::max()));
}

TEST(Resampler, EveryReducerEqualsThePlainWalkForEveryType) {
  constexpr VELDataType types[] = {VELDataType_Int16,   VELDataType_Int32, VELDataType_Int64,
                                   VELDataType_Byte,    VELDataType_Float, VELDataType_Double,
                                   VELDataType_DateTime};
  std::mt19937 random(7);
  VELPointResampler resampler;
  std::shared_ptr<VELPointSeries> last;
  int64_t compared = 0;
  // Few different values make ties; widths make buckets from 2 points to hundreds, with and without a rest.
  for (const int64_t count : {1000, 1001, 2459, 5000}) {
    for (size_t type = 0; type < std::size(types); ++type) {
      Values x, y;
      for (int64_t i = 0; i < count; ++i) {
        x.push_back(static_cast<double>(i % 100));
        const auto drawn = static_cast<double>(random() % 13);
        const bool gap = random() % 5 == 0 || (i >= 300 && i < 700);
        y.push_back(gap ? kNaN : drawn == 12 ? kInf : drawn - 6);
      }
      const auto xColumn = column(types[(type + 3) % std::size(types)], x);
      const auto yColumn = column(types[type], y);
      for (const auto mode :
           {VELResamplingMode_MinMax, VELResamplingMode_Mid, VELResamplingMode_Max, VELResamplingMode_Min}) {
        for (const int32_t width : {1, 7, 50, 120, 249}) {
          const auto lo = static_cast<int32_t>(random() % 3),
                     hi = static_cast<int32_t>(count) - 1 - static_cast<int32_t>(random() % 3);
          if (hi - lo < 4 * width) continue;
          last = resampler.o_executeMode(mode, *xColumn, *yColumn, VELIndexRange(lo, hi), kAnyRange, width,
                                         last);
          ASSERT_EQ(pointsOf(*last), plainlyReduced(mode, *xColumn, *yColumn, lo, hi, width))
              << "type " << types[type] << " mode " << mode << " width " << width << " range " << lo << ".."
              << hi;
          ++compared;
        }
      }
    }
  }
  EXPECT_GT(compared, 400);
}

TEST(Resampler, BucketsTakeTheLaterOfEqualExtremesAndALeftOverPairEndsAtTheLastPoint) {
  // Width 1 and nine points: buckets of 4 points and one point left over.
  const auto x = column(VELDataType_Double, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  const auto y = column(VELDataType_Double, {3, 1, 1, 3, kNaN, kNaN, kNaN, kNaN, -2, 50, 60});
  VELPointResampler resampler;
  const VELIndexRange range(0, 8);
  const auto reduced = [&](VELResamplingMode mode) {
    return pointsOf(*resampler.o_executeMode(mode, *x, *y, range, kAnyRange, 1, nullptr));
  };
  EXPECT_EQ(reduced(VELResamplingMode_MinMax),
            (Points{{3, 1, 2}, {3, 3, 3}, {7, kNaN, 7}, {7, kNaN, 7}, {10, -2, 8}, {10, -2, 8}}));
  EXPECT_EQ(reduced(VELResamplingMode_Max), (Points{{3, 3, 3}, {7, kNaN, 7}}));
  EXPECT_EQ(reduced(VELResamplingMode_Min), (Points{{3, 1, 2}, {7, kNaN, 7}}));
  EXPECT_EQ(reduced(VELResamplingMode_Mid), (Points{{3, 2, 3}, {7, kNaN, 7}}));
}

TEST(Resampler, WhatCannotBeReducedIsCopiedAsFarAsBothColumnsReach) {
  Values values(50);
  for (size_t i = 0; i < values.size(); ++i) values[i] = static_cast<double>(i) - 5;
  const auto x = column(VELDataType_Int16, values);
  const auto y = column(VELDataType_Float, {values.begin(), values.begin() + 40});
  VELPointResampler resampler;
  const struct {
    VELIndexRange range;
    int32_t width;
    int64_t first, count;
  } rows[] = {
      {VELIndexRange(3, 20), 100, 3, 18}, {VELIndexRange(0, 49), 0, 0, 40},
      {VELIndexRange(0, 49), -3, 0, 40},  {VELIndexRange(-9, 99), 60, 0, 40},
      {VELIndexRange(45, 49), 1, 0, 0},   {VELIndexRange(), 10, 0, 0},
      {VELIndexRange(30, 10), 10, 0, 0},  {VELIndexRange(36, 1000), 15, 36, 4},
  };
  for (int32_t mode = VELResamplingMode_None; mode <= VELResamplingMode_Auto; ++mode) {
    for (const auto& row : rows) {
      const auto points = resampler.o_executeMode(static_cast<VELResamplingMode>(mode), *x, *y, row.range,
                                                  kAnyRange, row.width, nullptr);
      ASSERT_EQ(points->count(), row.count) << mode << " " << row.range.description() << " " << row.width;
      for (int64_t i = 0; i < row.count; ++i) {
        const auto value = static_cast<double>(row.first + i) - 5;
        EXPECT_EQ(pointsOf(*points)[static_cast<size_t>(i)], (Point{value, value, row.first + i}));
      }
    }
  }
}

TEST(Resampler, AutoIsChosenByWhatIsKnownOfTheData) {
  Values values(1000);
  for (size_t i = 0; i < values.size(); ++i) values[i] = static_cast<double>(i);
  const auto all = column(VELDataType_Double, values);
  VELPointResampler resampler;
  const VELDoubleRange visible(0.0, 999.0);
  const auto reduced = [&](VELResamplingMode mode) {
    return pointsOf(*resampler.o_executeMode(mode, *all, *all, VELIndexRange(0, 999), visible, 10, nullptr));
  };
  EXPECT_EQ(reduced(VELResamplingMode_Auto).size(), 1000u);
  resampler.setIsSortedData(true);
  EXPECT_EQ(reduced(VELResamplingMode_Auto), reduced(VELResamplingMode_MinMaxUnevenlySpaced));
  resampler.setIsEvenlySpacedData(true);
  EXPECT_EQ(reduced(VELResamplingMode_Auto), reduced(VELResamplingMode_MinMax));
  EXPECT_NE(reduced(VELResamplingMode_MinMax), reduced(VELResamplingMode_MinMaxUnevenlySpaced));
}

TEST(Resampler, OnlyAPointSeriesThatNobodyElseHoldsIsFilledAgain) {
  const auto all = column(VELDataType_Double, Values(100, 1.0));
  VELPointResampler resampler;
  const auto reduce = [&](int32_t hi, const std::shared_ptr<VELPointSeries>& last) {
    return resampler.o_executeMode(VELResamplingMode_None, *all, *all, VELIndexRange(0, hi), kAnyRange, 10,
                                   last);
  };
  auto own = reduce(99, nullptr);
  const VELPointSeries* const first = own.get();
  own = reduce(49, own);
  EXPECT_EQ(own.get(), first);
  EXPECT_EQ(own->count(), 50);
  const auto shared = own;
  own = reduce(9, own);
  EXPECT_NE(own, shared);
  EXPECT_EQ(shared->count(), 50);
  const auto held = own->yValues();
  own = reduce(49, own);
  EXPECT_EQ(own->count(), 50);
  EXPECT_EQ(held->count(), 10) << "a column may be held, too";
  const VELArrayControllerPtr twice = column(VELDataType_Double, {});
  EXPECT_EQ(
      reduce(49, std::make_shared<VELPointSeries>(twice, twice, column(VELDataType_Int32, {})))->count(), 50);
  struct OwnColumn : VELPointSeries {
    const VELArrayControllerPtr& xValues() const override { return x; }
    VELArrayControllerPtr x = column(VELDataType_Double, {1});
  };
  EXPECT_EQ(reduce(49, std::make_shared<OwnColumn>())->xValues()->count(), 50);
}

TEST(Resampler, ARotatedRingIsPutInOrderAndWhatNoModeHandlesIsRaised) {
  const auto x = VELArrayControllerFIFO::initWithType(VELDataType_Int32, 10);
  const auto y = VELArrayControllerFIFO::initWithType(VELDataType_Double, 10);
  for (int i = 0; i < 14; ++i) {
    x->append(i);
    y->append(10.0 * i);
  }
  VELPointResampler resampler;
  resampler.setIsFifoData(true);
  const auto run = [&](VELResamplingMode mode) {
    return pointsOf(*resampler.o_executeMode(mode, *x, *y, VELIndexRange(0, 9), kAnyRange, 1, nullptr));
  };
  EXPECT_EQ(run(VELResamplingMode_Min), (Points{{8, 40, 0}, {13, 90, 5}}));
  EXPECT_EQ(run(VELResamplingMode_None).front(), (Point{4, 40, 0}));
  const char* const notHandled = "Resampling mode has not been handled.";
  EXPECT_EQ(reasonOf([&] { run(static_cast<VELResamplingMode>(7)); }), notHandled);
  struct Nothing : VELPointResampler {
    PointSeriesPtr o_resampleWithoutReduction(const VELIndexRange&, const VELArrayController&,
                                              const VELArrayController&, const PointSeriesPtr&) override {
      return nullptr;
    }
  } nothing;
  EXPECT_EQ(reasonOf([&] {
              nothing.o_executeMode(VELResamplingMode_MinMax, *x, *y, VELIndexRange(0, 9), kAnyRange, 100,
                                    nullptr);
            }),
            notHandled);
}
