// The reducers for evenly spaced data: buckets of an equal number of points.
#include <algorithm>
#include <limits>

#include "velmora/data/extremes.h"
#include "velmora/data/resampler.h"
#include "velmora/data/resampler_parts.h"

namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

/// Full buckets, and what is left behind them.
struct Buckets {
  Buckets(VELPointRun run, int64_t size) : run(run), size(size), full(run.count / size) {}
  int64_t rest() const { return run.count - full * size; }
  int64_t first(int64_t bucket) const { return run.first + bucket * size; }
  int64_t last(int64_t bucket) const { return first(bucket) + size - 1; }

  VELPointRun run;
  int64_t size;
  int64_t full;
};

/// A y and the index where it stands.
struct Reduced {
  double y;
  int64_t index;
};

/// The extreme at @p at of a run, or a gap at the run's last point when there is none.
template <typename T>
Reduced extremeAt(const T* y, int64_t first, int64_t count, int64_t at) {
  if (at < 0) return {kGap, first + count - 1};
  return {static_cast<double>(y[first + at]), first + at};
}

/// x of each bucket's last point, as often as the bucket gives points.
template <int64_t pointsPerBucket, typename T>
void writeBucketX(const T* x, const Buckets& buckets, double* out) {
  for (int64_t bucket = 0; bucket < buckets.full; ++bucket) {
    const double value = static_cast<double>(x[buckets.last(bucket)]);
    for (int64_t i = 0; i < pointsPerBucket; ++i) *out++ = value;
  }
}

// What one bucket gives, written to its place in the columns.

struct MinMaxPair {
  static constexpr int64_t kPoints = 2;
  template <typename T>
  static void write(const T* y, int64_t first, int64_t count, VELExtremes found, double* outY,
                    int32_t* outIndex) {
    const Reduced low = extremeAt(y, first, count, found.minAt);
    const Reduced high = extremeAt(y, first, count, found.maxAt);
    outY[0] = low.y;
    outY[1] = high.y;
    outIndex[0] = static_cast<int32_t>(low.index);
    outIndex[1] = static_cast<int32_t>(high.index);
  }
};

struct Maximum {
  static constexpr int64_t kPoints = 1;
  template <typename T>
  static void write(const T* y, int64_t first, int64_t count, VELExtremes found, double* outY,
                    int32_t* outIndex) {
    const Reduced high = extremeAt(y, first, count, found.maxAt);
    *outY = high.y;
    *outIndex = static_cast<int32_t>(high.index);
  }
};

struct Minimum {
  static constexpr int64_t kPoints = 1;
  template <typename T>
  static void write(const T* y, int64_t first, int64_t count, VELExtremes found, double* outY,
                    int32_t* outIndex) {
    const Reduced low = extremeAt(y, first, count, found.minAt);
    *outY = low.y;
    *outIndex = static_cast<int32_t>(low.index);
  }
};

struct Middle {
  static constexpr int64_t kPoints = 1;
  template <typename T>
  static void write(const T* y, int64_t first, int64_t count, VELExtremes found, double* outY,
                    int32_t* outIndex) {
    const double low = extremeAt(y, first, count, found.minAt).y;
    const double high = extremeAt(y, first, count, found.maxAt).y;
    *outY = (high + low) * 0.5;
    *outIndex = static_cast<int32_t>(first + count - 1);
  }
};

template <typename Writer, typename T, typename Find>
void writeEachBucket(const Buckets& buckets, const T* y, const VELPointBuffers& out, Find find) {
  for (int64_t bucket = 0; bucket < buckets.full; ++bucket) {
    const int64_t first = buckets.first(bucket);
    const int64_t at = bucket * Writer::kPoints;
    Writer::write(y, first, buckets.size, find(y + first, buckets.size), out.y + at, out.index + at);
  }
}

/// All full buckets; the types of the columns and the way to search a bucket are chosen once.
template <typename Writer>
void writeFullBuckets(const Buckets& buckets, const VELArrayController& xColumn,
                      const VELArrayController& yColumn, const VELPointBuffers& out) {
  VELVisitElements(xColumn, [&](const auto* x) { writeBucketX<Writer::kPoints>(x, buckets, out.x); });
  VELVisitElements(yColumn, [&](const auto* y) {
    if (buckets.size < kVELLongRun) {
      const auto find = [](const auto* run, int64_t count) { return VELFindExtremesOfShortRun(run, count); };
      writeEachBucket<Writer>(buckets, y, out, find);
    } else {
      const auto find = [](const auto* run, int64_t count) { return VELFindExtremesOfLongRun(run, count); };
      writeEachBucket<Writer>(buckets, y, out, find);
    }
  });
}

/// What is left behind the full buckets gives a pair at the x of the column's last point, which may lie
/// beyond the range: meant so, the line then reaches the end of the data.
void writeRest(const Buckets& buckets, const VELArrayController& xColumn, const VELArrayController& yColumn,
               const VELPointBuffers& out) {
  const int64_t at = 2 * buckets.full;
  const int64_t lastPoint = std::min(xColumn.count(), yColumn.count()) - 1;
  VELVisitElements(xColumn,
                   [&](const auto* x) { out.x[at] = out.x[at + 1] = static_cast<double>(x[lastPoint]); });
  VELVisitElements(yColumn, [&](const auto* y) {
    const int64_t first = buckets.first(buckets.full);
    const VELExtremes found = VELFindExtremes(y + first, buckets.rest());
    MinMaxPair::write(y, first, buckets.rest(), found, out.y + at, out.index + at);
  });
}

/// One point per full bucket; null where there is nothing to reduce.
template <typename Writer>
std::shared_ptr<VELPointSeries> onePerBucket(VELPointRun run, const VELArrayController& xColumn,
                                             const VELArrayController& yColumn, int32_t viewportWidth,
                                             const std::shared_ptr<VELPointSeries>& last) {
  const int64_t size = VELBucketSize(run.count, viewportWidth);
  if (size < 1) return nullptr;
  const Buckets buckets(run, size);
  auto points = VELPointSeriesToFill(last, buckets.full);
  writeFullBuckets<Writer>(buckets, xColumn, yColumn, VELPointBuffers(*points));
  return points;
}

}  // namespace

std::shared_ptr<VELPointSeries> VELPointResampler::o_reducePointsMinMax(const VELIndexRange& pointRange,
                                                                        const VELArrayController& xColumn,
                                                                        const VELArrayController& yColumn,
                                                                        int32_t viewportWidth,
                                                                        const PointSeriesPtr& last) {
  const VELPointRun run = VELPointRunOf(pointRange, xColumn, yColumn);
  const int64_t size = VELBucketSize(run.count, viewportWidth);
  if (size < 1) return o_resampleWithoutReduction(pointRange, xColumn, yColumn, last);
  const Buckets buckets(run, size);
  auto points = VELPointSeriesToFill(last, 2 * buckets.full + (buckets.rest() > 0 ? 2 : 0));
  const VELPointBuffers out(*points);
  writeFullBuckets<MinMaxPair>(buckets, xColumn, yColumn, out);
  if (buckets.rest() > 0) writeRest(buckets, xColumn, yColumn, out);
  return points;
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_reducePointsMax(const VELIndexRange& pointRange,
                                                                     const VELArrayController& xColumn,
                                                                     const VELArrayController& yColumn,
                                                                     int32_t viewportWidth,
                                                                     const PointSeriesPtr& last) {
  const VELPointRun run = VELPointRunOf(pointRange, xColumn, yColumn);
  auto points = onePerBucket<Maximum>(run, xColumn, yColumn, viewportWidth, last);
  return points ? points : o_resampleWithoutReduction(pointRange, xColumn, yColumn, last);
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_reducePointsMin(const VELIndexRange& pointRange,
                                                                     const VELArrayController& xColumn,
                                                                     const VELArrayController& yColumn,
                                                                     int32_t viewportWidth,
                                                                     const PointSeriesPtr& last) {
  const VELPointRun run = VELPointRunOf(pointRange, xColumn, yColumn);
  auto points = onePerBucket<Minimum>(run, xColumn, yColumn, viewportWidth, last);
  return points ? points : o_resampleWithoutReduction(pointRange, xColumn, yColumn, last);
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_reducePointsMid(const VELIndexRange& pointRange,
                                                                     const VELArrayController& xColumn,
                                                                     const VELArrayController& yColumn,
                                                                     int32_t viewportWidth,
                                                                     const PointSeriesPtr& last) {
  const VELPointRun run = VELPointRunOf(pointRange, xColumn, yColumn);
  auto points = onePerBucket<Middle>(run, xColumn, yColumn, viewportWidth, last);
  return points ? points : o_resampleWithoutReduction(pointRange, xColumn, yColumn, last);
}
