#include <random>

#include "tests/data/points.h"
#include "velmora/data/array_controller_fifo.h"
#include "velmora/data/resampler.h"

namespace {

/// Columns of one length, ascending x with leaps and pauses, y with ties and runs of NaN, and what to do.
struct Case {
  Case(VELResamplingMode caseMode, size_t count, int32_t caseWidth)
      : mode(caseMode), width(caseWidth), range(1, static_cast<int32_t>(count) - 2) {
    std::mt19937 random(static_cast<uint32_t>(count));
    Values xs(1);
    while (xs.size() < count)
      xs.push_back(xs.back() + static_cast<double>(random() % 50 == 0 ? 40 : random() % 3));
    x = column(VELDataType_Double, xs);
    visible = VELDoubleRange(xs[30] + 0.5, xs[count - 40]);
    for (size_t i = 0; i < std::size(y); ++i) {
      Values ys;
      for (size_t k = 0; k < count; ++k) {
        const bool gap = random() % 6 == 0 || (k > 300 && k < 420 + 20 * i);
        ys.push_back(gap ? kNaN : static_cast<double>(random() % 12));
      }
      y[i] = column(kTypes[(i + count) % std::size(kTypes)], ys);
    }
  }
  Points alone(size_t i) const {
    VELPointResampler resampler;
    resampler.setIsSortedData(true);
    return pointsOf(*resampler.o_executeMode(mode, *x, *y[i], range, visible, width, nullptr));
  }

  VELResamplingMode mode;
  int32_t width;
  VELIndexRange range;
  VELDoubleRange visible;
  VELArrayControllerPtr x;
  VELArrayControllerPtr y[4];
};

template <typename Check>
void forEachCase(Check check) {
  for (int32_t mode = VELResamplingMode_None; mode <= VELResamplingMode_Auto; ++mode) {
    for (const size_t count : {450u, 1001u, 4003u}) {
      for (const int32_t width : {1, 9, 60}) {
        SCOPED_TRACE(testing::Message() << "mode " << mode << " count " << count << " width " << width);
        ASSERT_NO_FATAL_FAILURE(check(Case(static_cast<VELResamplingMode>(mode), count, width)));
      }
    }
  }
}

/// The same points with the elements of another column as y.
Points withValues(Points points, const VELArrayController& column) {
  for (Point& point : points) point.y = valueAt(column, point.index);
  return points;
}

/// One point for each of the runs that end with the given ones, by a plain walk.
Points plainly(const VELArrayController& x, const VELArrayController& y, int64_t first,
               const std::vector<int64_t>& lasts, double (*choose)(double chosen, double next)) {
  Points points;
  for (const int64_t last : lasts) {
    double chosen = kNaN;
    for (; first <= last; ++first) {
      const double value = valueAt(y, first);
      if (!std::isnan(value)) chosen = std::isnan(chosen) ? value : choose(chosen, value);
    }
    points.push_back({valueAt(x, last), chosen, last});
  }
  return points;
}

}  // namespace

TEST(CompositeResampler, EveryValueComesOutAsItWouldAlone) {
  VELPointResampler resampler;
  resampler.setIsSortedData(true);
  std::shared_ptr<VELPointSeries> lastBubbles, lastBand;
  forEachCase([&](const Case& c) {
    lastBubbles =
        resampler.o_executeModeXyz(c.mode, *c.x, *c.y[0], *c.y[1], c.range, c.visible, c.width, lastBubbles);
    const auto& bubbles = static_cast<const VELXyzPointSeries&>(*lastBubbles);
    const Points y1 = c.alone(0);
    ASSERT_EQ(pointsOf(bubbles), y1);
    ASSERT_EQ(pointsOf(bubbles, *bubbles.zValues()), withValues(y1, *c.y[1]));

    lastBand =
        resampler.o_executeModeXyy(c.mode, *c.x, *c.y[0], *c.y[1], c.range, c.visible, c.width, lastBand);
    const auto& band = static_cast<const VELXyyPointSeries&>(*lastBand);
    Points y2 = c.alone(1);
    if (c.mode < VELResamplingMode_MinMaxUnevenlySpaced) {
      for (size_t i = 0; i < y2.size(); ++i) y2[i].index = y1[i].index;
      ASSERT_EQ(pointsOf(band), y1);
      ASSERT_EQ(pointsOf(band, *band.y2Values()), y2);
      return;
    }
    Points either;
    std::set_union(y1.begin(), y1.end(), y2.begin(), y2.end(), std::back_inserter(either),
                   [](const Point& a, const Point& b) { return a.index < b.index; });
    ASSERT_LE(either.size(), 8 * static_cast<size_t>(c.width) + 2);
    ASSERT_EQ(pointsOf(band), withValues(either, *c.y[0]));
    ASSERT_EQ(pointsOf(band, *band.y2Values()), withValues(either, *c.y[1]));
  });
}

TEST(CompositeResampler, ACandleSpansItsBucketOrPixelColumnAndNoneIsLost) {
  VELPointResampler resampler;
  resampler.setIsEvenlySpacedData(true);
  forEachCase([&](const Case& c) {
    const bool byPixel = c.mode == VELResamplingMode_MinMaxUnevenlySpaced;
    const double minX = c.visible.minAsDouble(), maxX = c.visible.maxAsDouble();
    const auto x = [&c](int64_t i) { return valueAt(*c.x, i); };
    int64_t first = 1, end = VELGenericInt(c.range.max());
    const int64_t size = c.mode == VELResamplingMode_None ? 1 : end / (2 * c.width);
    const auto bucket = [&](int64_t i) {
      if (!byPixel) return (i - 1) / size;
      return x(i) < minX ? -1 : x(i) > maxX ? c.width : int64_t{pixelColumn(x(i), minX, maxX, c.width)};
    };
    while (byPixel && x(first + 1) < minX) ++first;
    while (byPixel && x(end - 1) > maxX) --end;
    std::vector<int64_t> lasts;
    for (int64_t i = first; i <= end; ++i) {
      if (i == end || bucket(i) != bucket(i + 1)) lasts.push_back(i);
    }
    const auto candles = resampler.o_executeModeOhlc(c.mode, *c.x, *c.y[0], *c.y[1], *c.y[2], *c.y[3],
                                                     c.range, c.visible, c.width, nullptr);
    const struct {
      const VELArrayControllerPtr& prices;
      double (*choose)(double, double);
    } rows[] = {{candles->openValues(), [](double chosen, double) { return chosen; }},
                {candles->highValues(), [](double a, double b) { return std::max(a, b); }},
                {candles->lowValues(), [](double a, double b) { return std::min(a, b); }},
                {candles->closeValues(), [](double, double next) { return next; }}};
    for (size_t i = 0; i < std::size(rows); ++i) {
      ASSERT_EQ(pointsOf(*candles, *rows[i].prices), plainly(*c.x, *c.y[i], first, lasts, rows[i].choose));
    }
  });
}

TEST(CompositeResampler, PointsAreFilledAgainOnlyWhenNobodyHoldsThemOrAPart) {
  const Case c(VELResamplingMode_MinMax, 450, 5);
  VELPointResampler resampler;
  std::shared_ptr<VELPointSeries> own = std::make_shared<VELXyyPointSeries>();
  const auto isKept = [&] {
    const VELPointSeries* const before = own.get();
    own = resampler.o_executeModeXyy(c.mode, *c.x, *c.y[0], *c.y[1], c.range, c.visible, c.width, own);
    return own.get() == before;
  };
  EXPECT_TRUE(isKept());
  std::shared_ptr<const void> held = own;
  EXPECT_FALSE(isKept());
  held = static_cast<VELXyyPointSeries&>(*own).y2Values();
  EXPECT_FALSE(isKept());
  held = own->xValues();
  EXPECT_FALSE(isKept());
}

TEST(CompositeResampler, AllRingsArePutInOrderAndAllColumnsEndWithTheShortest) {
  VELPointResampler resampler;
  resampler.setIsFifoData(true);
  std::vector<std::shared_ptr<VELArrayControllerFIFO>> rings;
  for (int32_t ring = 0; ring < 11; ++ring) {
    rings.push_back(VELArrayControllerFIFO::initWithType(VELDataType_Int32, ring == 3 ? 6 : 8));
    for (int32_t i = 0; i < 11; ++i) rings.back()->append(100 * ring + i);
  }
  const VELIndexRange range(1, 7);
  const auto mode = VELResamplingMode_None;
  const auto points = resampler.o_executeModeOhlc(mode, *rings[0], *rings[1], *rings[2], *rings[3], *rings[4],
                                                  range, range, 1, nullptr);
  EXPECT_EQ(pointsOf(*points), (Points{{4, 404, 1}, {5, 405, 2}, {6, 406, 3}, {7, 407, 4}, {8, 408, 5}}));
  EXPECT_EQ((Values{points->openSpan()[0], points->highSpan()[0], points->lowSpan()[0]}),
            (Values{104, 204, 306}));
  const auto band =
      resampler.o_executeModeXyy(mode, *rings[5], *rings[6], *rings[7], range, range, 1, nullptr);
  EXPECT_EQ(pointsOf(*band).front(), (Point{504, 604, 1}));
  EXPECT_EQ(band->y2Span().front(), 704);
  const auto bubbles =
      resampler.o_executeModeXyz(mode, *rings[8], *rings[9], *rings[10], range, range, 1, nullptr);
  EXPECT_EQ(pointsOf(*bubbles).front(), (Point{804, 904, 1}));
  EXPECT_EQ(bubbles->zSpan().front(), 1004);
}
