#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <random>
#include <set>
#include <vector>

#include "tests/data/columns.h"
#include "velmora/data/resampler.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

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

/// Pixel column of an x inside the range, by a plain count of the edges that it has reached.
int32_t pixelColumn(double x, double minX, double maxX, int32_t width) {
  int32_t column = 0;
  while (column + 1 < width && x >= minX + (maxX - minX) * (static_cast<double>(column + 1) / width))
    ++column;
  return column;
}

/// What one column must show.
struct Column {
  std::vector<int32_t> points;
  int32_t low = -1;
  int32_t high = -1;
  bool hasGap = false;
};

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
    const std::set<int32_t> kept(indices.begin(), indices.end());

    std::vector<Column> columns(static_cast<size_t>(width));
    int32_t inside = 0, beyond = static_cast<int32_t>(count);
    for (int32_t i = 0; i < static_cast<int32_t>(count); ++i) {
      const double at = x[static_cast<size_t>(i)];
      if (at < minX) inside = i + 1;
      if (at > maxX) beyond = std::min(beyond, i);
      if (at < minX || at > maxX) continue;
      Column& column = columns[static_cast<size_t>(pixelColumn(at, minX, maxX, width))];
      column.hasGap |= gap(i);
      if (gap(i)) continue;
      column.points.push_back(i);
      const auto value = [&y](int32_t index) { return y[static_cast<size_t>(index)]; };
      if (column.low < 0 || value(i) <= value(column.low)) column.low = i;
      if (column.high < 0 || value(i) >= value(column.high)) column.high = i;
    }
    ASSERT_TRUE(kept.contains(inside - 1)) << "the neighbour before";
    ASSERT_TRUE(kept.contains(beyond) || gap(beyond)) << "the neighbour behind";
    ASSERT_FALSE(kept.contains(inside - 2) || kept.contains(beyond + 1));

    size_t wanted = kept.contains(beyond) ? 2 : 1;
    bool anyGap = false;
    for (const Column& column : columns) {
      anyGap |= column.hasGap;
      if (column.points.empty()) continue;
      const std::set<int32_t> all = {column.points.front(), column.low, column.high, column.points.back()};
      wanted += all.size();
      ASSERT_TRUE(kept.contains(column.low) && kept.contains(column.high));
      if (column.hasGap) continue;
      for (const int32_t index : all) ASSERT_TRUE(kept.contains(index)) << index;
    }
    ASSERT_TRUE(anyGap || indices.size() == wanted) << indices.size() << " points, wanted " << wanted;

    // A run of NaN that reaches from one pixel column into another is one gap point.
    for (int32_t i = inside - 1; i <= beyond; ++i) {
      if (!gap(i) || (i >= inside && gap(i - 1))) continue;
      int32_t end = i;
      while (end <= beyond && gap(end)) ++end;
      const auto keptOfRun =
          std::count_if(indices.begin(), indices.end(), [&](auto k) { return k >= i && k < end; });
      const auto columnOfPoint = [&](int32_t k) {
        return pixelColumn(x[static_cast<size_t>(k)], minX, maxX, width);
      };
      ASSERT_LE(keptOfRun, 1);
      ASSERT_TRUE(keptOfRun == 1 || columnOfPoint(i) == columnOfPoint(end - 1)) << i << ".." << end;
    }
  }
}

TEST(UnevenResampler, AGapTakesThePlaceOfTheEndThatShowsNothingElse) {
  // One column of nine points; y of first, minimum, maximum and last all differ.
  const struct {
    Values y;
    Indices kept;
  } rows[] = {
      {{5, 0, 9, 4, 4, 4, 4, 4, 6}, {0, 1, 2, 8}},
      {{5, 0, 9, 4, kNaN, kNaN, 4, 4, 6}, {1, 2, 4, 8}},     // extremes before the gap: the first gives way
      {{5, 4, 4, kNaN, kNaN, 4, 0, 9, 6}, {0, 3, 6, 7}},     // behind it: the last
      {{5, 0, 9, 6, 6, 6, 6, kNaN, kNaN}, {0, 1, 2, 7}},     // the last touches the gap
      {{kNaN, 5, 0, 9, 4, 4, 4, 4, 6}, {0, 2, 3, 8}},        // the first does
      {{0, kNaN, 4, kNaN, 4, kNaN, 4, 4, 9}, {0, 1, 3, 8}},  // room for two gaps
      {{5, kNaN, 0, 9, 6, 6, 6, 6, kNaN}, {0, 2, 3, 8}},     // the gap that leaves the column comes first
      {{kNaN, kNaN, kNaN, kNaN, kNaN, kNaN, kNaN, kNaN, kNaN}, {0}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(reduced({0, 1, 2, 3, 4, 5, 6, 7, 8}, row.y, VELDoubleRange(0.0, 8.0), 1), row.kept)
        << testing::PrintToString(row.y);
  }
}

TEST(UnevenResampler, NoXAndNoVisibleRangeBreaksIt) {
  Values y(400);
  for (size_t i = 0; i < y.size(); ++i) y[i] = static_cast<double>(i * 37 % 101);
  const auto even = [](size_t i) { return static_cast<double>(i); };
  const auto xOf = [&y](auto&& x) {
    Values values(y.size());
    for (size_t i = 0; i < values.size(); ++i) values[i] = x(i);
    return values;
  };
  const VELDoubleRange visible(0.0, 399.0);
  const VELDoubleRange ranges[] = {visible,
                                   VELDoubleRange(kNaN, kNaN),
                                   VELDoubleRange(-kInf, kInf),
                                   VELDoubleRange(1e9, 2e9),
                                   VELDoubleRange(5.0, 5.0),
                                   VELDoubleRange(300.0, 100.0),
                                   VELDoubleRange()};
  const Values columns[] = {xOf(even),
                            xOf([](size_t) { return 7.0; }),
                            xOf([](size_t i) { return i % 3 == 0 ? kNaN : static_cast<double>(i); }),
                            xOf([](size_t) { return kNaN; }),
                            xOf([](size_t i) {
                              return i == 0 ? -kInf : i == 399 ? kInf : static_cast<double>(i);
                            }),
                            xOf([](size_t i) { return static_cast<double>(i * 7919 % 400); }),
                            xOf([](size_t i) { return i < 200 ? -1e308 : 1e308; })};
  constexpr size_t sizes[std::size(ranges)][std::size(columns)] = {
      {175, 4, 177, 400, 178, 2, 2},   {175, 4, 177, 400, 400, 2, 400}, {175, 4, 177, 400, 400, 2, 400},
      {175, 4, 177, 400, 2, 2, 2},     {3, 4, 3, 400, 3, 2, 2},         {175, 4, 177, 400, 400, 2, 400},
      {175, 4, 177, 400, 400, 2, 400},
  };
  for (size_t r = 0; r < std::size(ranges); ++r) {
    for (size_t c = 0; c < std::size(columns); ++c) {
      const Indices indices = reduced(columns[c], y, ranges[r], 50);
      EXPECT_EQ(indices.size(), sizes[r][c]) << "range " << r << " column " << c;
      EXPECT_EQ(std::adjacent_find(indices.begin(), indices.end(), std::greater_equal<>()), indices.end());
    }
  }
}

TEST(UnevenResampler, ALongRunOfNaNInXIsOneGap) {
  // Two points in the first pixel column, then the run, then the last two columns.
  constexpr int32_t width = 20000;
  Values x(300000, kNaN);
  Values y(x.size(), 3.0);
  x[0] = 0.0;
  x[1] = 0.5;
  x[x.size() - 2] = width - 1.5;
  x[x.size() - 1] = width;
  const auto last = static_cast<int32_t>(x.size()) - 1;
  y[150000] = 9.0;
  const Indices indices = reduced(x, y, VELDoubleRange(0.0, 1e9), width);
  EXPECT_EQ(indices, (Indices{0, 1, 2, 150000, last - 1, last}));
}
