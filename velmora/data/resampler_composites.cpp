// The entries of the resampler for points of more than one value.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <span>
#include <typeinfo>

#include "velmora/data/extent.h"
#include "velmora/data/resampler.h"
#include "velmora/data/resampler_parts.h"

namespace {

/// @p last when it is of the class itself and nobody else holds it or a part of it, else a new one; with
/// @p count points still to be written.
template <typename Points>
std::shared_ptr<Points> pointSeriesToFill(const std::shared_ptr<VELPointSeries>& last, int64_t count) {
  const VELPointSeries* const old = last.get();
  const bool isReused = old != nullptr && typeid(*old) == typeid(Points) && last.use_count() == 1 &&
                        !static_cast<const Points*>(old)->hasHolders();
  auto points = isReused ? std::static_pointer_cast<Points>(last) : std::make_shared<Points>(count);
  points->setCount(count);
  return points;
}

template <size_t size>
int64_t shortestOf(const std::array<VELColumnView, size>& columns) {
  const auto isShorter = [](const auto& a, const auto& b) { return a.count < b.count; };
  return std::min_element(columns.begin(), columns.end(), isShorter)->count;
}

double* bufferOf(const std::shared_ptr<VELArrayController>& values) {
  return static_cast<double*>(values->data());
}

std::span<const int32_t> firstIndices(const VELPointBuffers& out, int64_t count) {
  return {out.index, static_cast<size_t>(count)};
}

/// Writes the last point of every pixel column that has one.
class LastPoints {
 public:
  explicit LastPoints(int32_t* out) : _begin(out), _end(out) {}
  int64_t written() const { return _end - _begin; }
  void keep(int64_t index) { *_end++ = static_cast<int32_t>(index); }
  void reduce(int64_t first, int64_t last) {
    if (first < last) keep(last - 1);
  }

 private:
  int32_t* _begin;
  int32_t* _end;
};

int64_t ohlcCapacity(const VELReduction& reduction) {
  if (reduction.mode == VELResamplingMode_MinMaxUnevenlySpaced) {
    return std::min(int64_t{reduction.columns.count} + 2, reduction.run.count);
  }
  return reduction.buckets.full + (reduction.buckets.rest() > 0 ? 1 : 0);
}

/// Runs of neighbouring points, of which each gives one: the index of the last of each.
struct Runs {
  int64_t first;
  std::span<const int32_t> lasts;
  bool ofOne;
};

Runs runsOf(const VELReduction& reduction, const VELColumnView& x, int32_t* out) {
  if (reduction.mode == VELResamplingMode_MinMaxUnevenlySpaced) {
    const VELPixelColumns& columns = reduction.columns;
    LastPoints lasts(out);
    VELWalkPixelColumns(columns, x, lasts);
    const int64_t before = columns.first > reduction.run.first ? 1 : 0;
    return {columns.first - before, {out, static_cast<size_t>(lasts.written())}, false};
  }
  const VELBuckets& buckets = reduction.buckets;
  const int64_t count = ohlcCapacity(reduction);
  for (int64_t bucket = 0; bucket < count; ++bucket) {
    out[bucket] = static_cast<int32_t>(std::min(buckets.last(bucket), reduction.run.last()));
  }
  return {reduction.run.first, {out, static_cast<size_t>(count)}, buckets.size == 1};
}

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

/// Below this count a plain loop is done before lanes were made ready.
constexpr int64_t kShortRun = 24;

template <typename T>
VELExtent<T> extentOf(const T* prices, int64_t count) {
  VELExtent<T> found;
  const std::span<const T> run(prices, static_cast<size_t>(count));
  if (count >= kShortRun) {
    VELFoldExtent(run, found);
    return found;
  }
  for (const T price : run) {
    found.low = price < found.low ? price : found.low;
    found.high = price > found.high ? price : found.high;
  }
  return found;
}

template <typename T>
bool isGap(T price) {
  return std::isnan(static_cast<double>(price));
}

// What a run gives of one column: NaN is none of its prices while there is another.

struct FirstPrice {
  template <typename T>
  static double of(const T* prices, int64_t count) {
    int64_t i = 0;
    while (i + 1 < count && isGap(prices[i])) ++i;
    return static_cast<double>(prices[i]);
  }
};

struct LastPrice {
  template <typename T>
  static double of(const T* prices, int64_t count) {
    int64_t i = count - 1;
    while (i > 0 && isGap(prices[i])) --i;
    return static_cast<double>(prices[i]);
  }
};

struct HighestPrice {
  template <typename T>
  static double of(const T* prices, int64_t count) {
    const VELExtent<T> found = extentOf(prices, count);
    return found.exists() ? static_cast<double>(found.high) : kGap;
  }
};

struct LowestPrice {
  template <typename T>
  static double of(const T* prices, int64_t count) {
    const VELExtent<T> found = extentOf(prices, count);
    return found.exists() ? static_cast<double>(found.low) : kGap;
  }
};

template <typename Price>
void writePrices(const Runs& runs, const VELColumnView& column, double* out) {
  if (runs.ofOne) return VELGather(column, runs.lasts, out);
  VELVisitElements(column, [&runs, out](const auto* prices) {
    int64_t first = runs.first;
    double* price = out;
    for (const int32_t last : runs.lasts) {
      *price++ = Price::of(prices + first, last + 1 - first);
      first = last + int64_t{1};
    }
  });
}

}  // namespace

std::shared_ptr<VELXyyPointSeries> VELPointResampler::o_executeModeXyy(
    VELResamplingMode mode, VELArrayController& xColumn, VELArrayController& y1Column,
    VELArrayController& y2Column, const VELIndexRange& pointRange, const VELRange& visibleRange,
    int32_t viewportWidth, const PointSeriesPtr& last) {
  p_VEL_normalize({&xColumn, &y1Column, &y2Column});
  const std::array columns = {xColumn.view(), y1Column.view(), y2Column.view()};
  const auto& [x, y1, y2] = columns;
  const VELReduction reduction = VELReductionOf(p_VEL_resolvedMode(mode, pointRange, viewportWidth), x,
                                                shortestOf(columns), pointRange, visibleRange, viewportWidth);
  const bool isUneven = reduction.mode == VELResamplingMode_MinMaxUnevenlySpaced;
  const int64_t capacity =
      isUneven ? std::min(2 * kVELPointsPerPixelColumn * reduction.columns.count + 2, reduction.run.count)
               : VELCapacityOf(reduction);
  auto points = pointSeriesToFill<VELXyyPointSeries>(last, capacity);
  const VELPointBuffers out = VELBuffersOf(*points);
  double* const outY2 = bufferOf(points->y2Values());
  if (!isUneven) {
    VELReduce(reduction, x, y2, {out.x, outY2, out.index});
    // y1 after y2: its indices stay.
    points->setCount(VELReduce(reduction, x, y1, out));
    return points;
  }
  const int64_t count = VELPickFromPixelColumns(reduction.columns, x, y1, y2, out.index);
  VELGather(x, firstIndices(out, count), out.x);
  VELGather(y1, firstIndices(out, count), out.y);
  VELGather(y2, firstIndices(out, count), outY2);
  points->setCount(count);
  return points;
}

std::shared_ptr<VELOhlcPointSeries> VELPointResampler::o_executeModeOhlc(
    VELResamplingMode mode, VELArrayController& xColumn, VELArrayController& openColumn,
    VELArrayController& highColumn, VELArrayController& lowColumn, VELArrayController& closeColumn,
    const VELIndexRange& pointRange, const VELRange& visibleRange, int32_t viewportWidth,
    const PointSeriesPtr& last) {
  p_VEL_normalize({&xColumn, &openColumn, &highColumn, &lowColumn, &closeColumn});
  const std::array columns = {xColumn.view(), openColumn.view(), highColumn.view(), lowColumn.view(),
                              closeColumn.view()};
  const auto& [x, open, high, low, close] = columns;
  const VELReduction reduction = VELReductionOf(p_VEL_resolvedMode(mode, pointRange, viewportWidth), x,
                                                shortestOf(columns), pointRange, visibleRange, viewportWidth);
  auto points = pointSeriesToFill<VELOhlcPointSeries>(last, ohlcCapacity(reduction));
  const VELPointBuffers out = VELBuffersOf(*points);
  const Runs runs = runsOf(reduction, x, out.index);
  VELGather(x, runs.lasts, out.x);
  writePrices<FirstPrice>(runs, open, bufferOf(points->openValues()));
  writePrices<HighestPrice>(runs, high, bufferOf(points->highValues()));
  writePrices<LowestPrice>(runs, low, bufferOf(points->lowValues()));
  writePrices<LastPrice>(runs, close, bufferOf(points->closeValues()));
  points->setCount(static_cast<int64_t>(runs.lasts.size()));
  return points;
}

std::shared_ptr<VELXyzPointSeries> VELPointResampler::o_executeModeXyz(
    VELResamplingMode mode, VELArrayController& xColumn, VELArrayController& yColumn,
    VELArrayController& zColumn, const VELIndexRange& pointRange, const VELRange& visibleRange,
    int32_t viewportWidth, const PointSeriesPtr& last) {
  p_VEL_normalize({&xColumn, &yColumn, &zColumn});
  const std::array columns = {xColumn.view(), yColumn.view(), zColumn.view()};
  const auto& [x, y, z] = columns;
  const VELReduction reduction = VELReductionOf(p_VEL_resolvedMode(mode, pointRange, viewportWidth), x,
                                                shortestOf(columns), pointRange, visibleRange, viewportWidth);
  auto points = pointSeriesToFill<VELXyzPointSeries>(last, VELCapacityOf(reduction));
  const VELPointBuffers out = VELBuffersOf(*points);
  const int64_t count = VELReduce(reduction, x, y, out);
  VELGather(z, firstIndices(out, count), bufferOf(points->zValues()));
  points->setCount(count);
  return points;
}
