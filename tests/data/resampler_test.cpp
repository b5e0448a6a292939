#include "velmora/data/resampler.h"

#include <random>

#include "tests/data/points.h"

namespace {

const VELDoubleRange kAnyRange(0.0, 1.0);

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
  EXPECT_TRUE(requires_(VELResamplingMode_Auto, VELIndexRange(1000, 1400), 100));
  EXPECT_FALSE(requires_(VELResamplingMode_None, VELIndexRange(0, 400), 100));
  EXPECT_FALSE(requires_(VELResamplingMode_Min, VELIndexRange(0, 400), INT32_MAX));
}

TEST(Resampler, EveryReducerEqualsThePlainWalkForEveryType) {
  std::mt19937 random(7);
  VELPointResampler resampler;
  std::shared_ptr<VELPointSeries> last;
  int64_t compared = 0;
  // Few different values make ties; widths make buckets from 2 points to hundreds, with and without a rest.
  for (const int64_t count : {1000, 1001, 2459, 5000}) {
    for (size_t type = 0; type < std::size(kTypes); ++type) {
      Values x, y;
      for (int64_t i = 0; i < count; ++i) {
        x.push_back(static_cast<double>(i % 100));
        const auto drawn = static_cast<double>(random() % 13);
        const bool gap = random() % 5 == 0 || (i >= 300 && i < 700);
        y.push_back(gap ? kNaN : drawn == 12 ? kInf : drawn - 6);
      }
      const auto xColumn = column(kTypes[(type + 3) % std::size(kTypes)], x);
      const auto yColumn = column(kTypes[type], y);
      for (const auto mode :
           {VELResamplingMode_MinMax, VELResamplingMode_Mid, VELResamplingMode_Max, VELResamplingMode_Min}) {
        for (const int32_t width : {1, 7, 50, 120, 249}) {
          const auto lo = static_cast<int32_t>(random() % 3),
                     hi = static_cast<int32_t>(count) - 1 - static_cast<int32_t>(random() % 3);
          if (hi - lo < 4 * width) continue;
          last = resampler.o_executeMode(mode, *xColumn, *yColumn, VELIndexRange(lo, hi), kAnyRange, width,
                                         last);
          ASSERT_EQ(pointsOf(*last), plainlyReduced(mode, *xColumn, *yColumn, lo, hi, width))
              << "type " << kTypes[type] << " mode " << mode << " width " << width << " range " << lo << ".."
              << hi;
          ++compared;
        }
      }
    }
  }
  EXPECT_GT(compared, 400);
}

TEST(Resampler, WhatCannotBeReducedIsCopiedAsFarAsBothColumnsReach) {
  const auto x = column(VELDataType_Int16, {}), y = column(VELDataType_Float, {});
  for (int i = 0; i < 50; ++i) x->append(i - 5);
  for (int i = 0; i < 40; ++i) y->append(i - 5);
  VELPointResampler resampler;
  const struct {
    VELIndexRange range;
    int32_t width;
    int64_t first, count;
  } rows[] = {{VELIndexRange(3, 20), 100, 3, 18}, {VELIndexRange(0, 49), 0, 0, 40},
              {VELIndexRange(0, 49), -3, 0, 40},  {VELIndexRange(-9, 99), 60, 0, 40},
              {VELIndexRange(45, 49), 1, 0, 0},   {VELIndexRange(), 10, 0, 0},
              {VELIndexRange(30, 10), 10, 0, 0},  {VELIndexRange(36, 1000), 15, 36, 4}};
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
  const auto all = column(kDouble, {});
  for (int i = 0; i < 1000; ++i) all->append(i * 1.0);
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
  const auto all = column(kDouble, Values(100, 1.0));
  VELPointResampler resampler;
  const auto reduce = [&](int32_t hi, const std::shared_ptr<VELPointSeries>& last) {
    return resampler.o_executeMode(VELResamplingMode_None, *all, *all, VELIndexRange(0, hi), kAnyRange, 10,
                                   last);
  };
  auto own = reduce(99, nullptr);
  const VELPointSeries* const first = own.get();
  own = reduce(49, own);
  EXPECT_EQ(own.get(), first);
  const auto shared = own;
  own = reduce(9, own);
  EXPECT_NE(own, shared);
  EXPECT_EQ(shared->count(), 50);
}
