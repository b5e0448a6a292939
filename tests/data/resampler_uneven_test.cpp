#include <random>
#include <set>

#include "tests/data/points.h"
#include "velmora/data/resampler.h"

namespace {

using Indices = std::vector<int32_t>;

Indices reduced(const Values& x, const Values& y, const VELDoubleRange& visible, int32_t width) {
  VELPointResampler resampler;
  const auto points = resampler.o_executeMode(
      VELResamplingMode_MinMaxUnevenlySpaced, *column(VELDataType_Double, x), *column(VELDataType_Double, y),
      VELIndexRange(0, static_cast<int32_t>(x.size()) - 1), visible, width, nullptr);
  const auto indices = points->indexSpan();
  for (size_t i = 0; i < indices.size(); ++i) {
    const auto at = static_cast<size_t>(indices[i]);
    EXPECT_TRUE(points->xSpan()[i] == x[at] || std::isnan(x[at]));
    EXPECT_TRUE(points->ySpan()[i] == y[at] || std::isnan(y[at]));
  }
  return {indices.begin(), indices.end()};
}

}  // namespace

TEST(UnevenResampler, KeepsFirstExtremesAndLastOfEveryPixelColumnAndItsNeighbours) {
  std::mt19937 random(3);
  std::exponential_distribution<double> step(1.0);
  for (int round = 0; round < 60; ++round) {
    const auto width = static_cast<int32_t>(5 + random() % 60);
    const size_t count = 4 * static_cast<size_t>(width) + 2 + random() % 4000;
    const uint32_t gapEvery = round % 3 == 0 ? 0 : round % 3 == 1 ? 3 : 40;
    Values x, y;
    for (size_t i = 0; i < count; ++i) {
      const double jump = random() % 50 == 0 ? 40.0 : random() % 4 == 0 ? 0.0 : 1.0;
      x.push_back((x.empty() ? 0.0 : x.back()) + step(random) * jump);
      y.push_back(static_cast<double>(random() % 9));
    }
    for (size_t i = 0; gapEvery > 0 && i < count; i += 1 + random() % (2ul * gapEvery)) {
      for (size_t run = random() % 30; run > 0 && i < count; --run) y[i++] = kNaN;
    }
    const double minX = x[count / 10] + 1e-9;
    const double maxX = x[count - count / 10];
    const Indices indices = reduced(x, y, VELDoubleRange(minX, maxX), width);

    ASSERT_LE(indices.size(), 4 * static_cast<size_t>(width) + 2);
    ASSERT_EQ(std::adjacent_find(indices.begin(), indices.end(), std::greater_equal<>()), indices.end());
    const auto gap = [&y](int64_t i) { return std::isnan(y[static_cast<size_t>(i)]); };
    const auto value = [&y](int32_t i) { return y[static_cast<size_t>(i)]; };
    const auto columnOf = [&](int32_t i) {
      return pixelColumn(x[static_cast<size_t>(i)], minX, maxX, width);
    };
    const std::set<int32_t> kept(indices.begin(), indices.end());
    const auto inside = static_cast<int32_t>(std::lower_bound(x.begin(), x.end(), minX) - x.begin());
    const auto beyond = static_cast<int32_t>(std::upper_bound(x.begin(), x.end(), maxX) - x.begin());
    ASSERT_TRUE(kept.contains(inside - 1)) << "the neighbour before";
    ASSERT_TRUE(kept.contains(beyond) || gap(beyond)) << "the neighbour behind";
    ASSERT_FALSE(kept.contains(inside - 2) || kept.contains(beyond + 1));

    std::set<int32_t> wanted = {inside - 1, beyond};
    for (int32_t first = inside, end = inside; first < beyond; first = end) {
      int32_t low = -1, high = -1, last = -1, start = -1;
      bool hasGap = false;
      for (; end < beyond && columnOf(end) == columnOf(first); ++end) {
        hasGap |= gap(end);
        if (gap(end)) continue;
        last = end;
        if (start < 0) start = end;
        if (low < 0 || value(end) <= value(low)) low = end;
        if (high < 0 || value(end) >= value(high)) high = end;
      }
      if (last < 0) continue;
      ASSERT_TRUE(kept.contains(low) && kept.contains(high));
      ASSERT_TRUE(hasGap || (kept.contains(start) && kept.contains(last)));
      wanted.insert({start, low, high, last});
    }
    ASSERT_TRUE(gapEvery > 0 || kept == wanted) << indices.size() << " points, wanted " << wanted.size();

    // A run of NaN that reaches from one pixel column into another is one gap point.
    for (int32_t i = inside - 1, end = i; i <= beyond; i = end + 1) {
      for (end = i; end <= beyond && gap(end); ++end) {
      }
      if (end == i) continue;
      const auto keptOfRun = std::distance(kept.lower_bound(i), kept.lower_bound(end));
      ASSERT_LE(keptOfRun, 1);
      ASSERT_TRUE(keptOfRun == 1 || columnOf(i) == columnOf(end - 1)) << i << ".." << end;
    }
  }
}

TEST(UnevenResampler, AGapTakesThePlaceOfTheEndThatShowsNothingElse) {
  // One column of nine points; y of first, minimum, maximum and last all differ.
  const struct {
    Values y;
    Indices kept;
  } rows[] = {
      {{5, 0, 9, 4, kNaN, kNaN, 4, 4, 6}, {1, 2, 4, 8}},     // extremes before the gap: the first gives way
      {{5, 4, 4, kNaN, kNaN, 4, 0, 9, 6}, {0, 3, 6, 7}},     // behind it: the last
      {{5, 0, 9, 6, 6, 6, 6, kNaN, kNaN}, {0, 1, 2, 7}},     // the last touches the gap
      {{kNaN, 5, 0, 9, 4, 4, 4, 4, 6}, {0, 2, 3, 8}},        // the first does
      {{0, kNaN, 4, kNaN, 4, kNaN, 4, 4, 9}, {0, 1, 3, 8}},  // room for two gaps
      {{5, kNaN, 0, 9, 6, 6, 6, 6, kNaN}, {0, 2, 3, 8}},     // the gap that leaves the column comes first
      {{kNaN, kNaN, kNaN, kNaN, kNaN, kNaN, kNaN, kNaN, kNaN}, {0}}};
  for (const auto& row : rows) {
    EXPECT_EQ(reduced({0, 1, 2, 3, 4, 5, 6, 7, 8}, row.y, VELDoubleRange(0.0, 8.0), 1), row.kept)
        << testing::PrintToString(row.y);
  }
}

// Few points in order whatever x and range are, and the extremes of y where the whole is seen.
TEST(UnevenResampler, NoXAndNoVisibleRangeBreaksIt) {
  constexpr int32_t width = 50;
  constexpr size_t count = 400, most = 4 * width + 2;
  const VELDoubleRange ranges[] = {
      VELDoubleRange(0.0, 399.0),   VELDoubleRange(kNaN, kNaN), VELDoubleRange(-kInf, kInf),
      VELDoubleRange(300.0, 100.0), VELDoubleRange(),           VELDoubleRange(1e9, 2e9),
      VELDoubleRange(5.0, 5.0)};
  const struct {
    double (*x)(double i);
    bool isParted;  // into pixel columns, and only the last two ranges leave an extreme out
  } rows[] = {{[](double i) { return i; }, true},
              {[](double) { return 7.0; }, true},
              {[](double i) { return std::fmod(i, 3) == 0 ? kNaN : i; }, true},
              {[](double i) { return i == 0 || i == 399 ? (i - 1) * kInf : i; }, false},
              {[](double i) { return i < 200 ? -1e308 : 1e308; }, false},
              {[](double) { return kNaN; }, false},
              {[](double i) { return std::fmod(i * 7919, 400); }, false}};
  for (const auto& row : rows) {
    Values x, y;
    for (size_t i = 0; i < count; ++i) {
      x.push_back(row.x(static_cast<double>(i)));
      y.push_back(static_cast<double>(i * 37 % 101));
    }
    for (size_t r = 0; r < std::size(ranges); ++r) {
      const Indices indices = reduced(x, y, ranges[r], width);
      SCOPED_TRACE(testing::Message() << "x " << &row - rows << " range " << r << ": " << indices.size());
      EXPECT_EQ(std::adjacent_find(indices.begin(), indices.end(), std::greater_equal<>()), indices.end());
      EXPECT_TRUE(!indices.empty() && (indices.size() == count || indices.size() <= most));
      EXPECT_TRUE(!row.isParted || indices.size() <= most);
      for (const double extreme : {0.0, 100.0}) {
        const auto has = [&](int32_t i) { return y[static_cast<size_t>(i)] == extreme; };
        EXPECT_TRUE(!row.isParted || r > 4 || std::any_of(indices.begin(), indices.end(), has)) << extreme;
      }
    }
  }
}
