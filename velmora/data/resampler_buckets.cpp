// The reducers for evenly spaced data: buckets of an equal number of points.
#include <limits>

#include "velmora/data/extremes.h"
#include "velmora/data/resampler_parts.h"

namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

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
void writeBucketX(const T* x, const VELBuckets& buckets, double* out) {
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
void writeEachBucket(const VELBuckets& buckets, const T* y, const VELPointBuffers& out, Find find) {
  for (int64_t bucket = 0; bucket < buckets.full; ++bucket) {
    const int64_t first = buckets.first(bucket);
    const int64_t at = bucket * Writer::kPoints;
    Writer::write(y, first, buckets.size, find(y + first, buckets.size), out.y + at, out.index + at);
  }
}

/// All full buckets; the types of the columns and the way to search a bucket are chosen once.
template <typename Writer>
void writeFullBuckets(const VELBuckets& buckets, const VELColumnView& xColumn, const VELColumnView& yColumn,
                      const VELPointBuffers& out) {
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
int64_t writeRest(const VELReduction& reduction, const VELColumnView& xColumn, const VELColumnView& yColumn,
                  const VELPointBuffers& out) {
  const VELBuckets& buckets = reduction.buckets;
  if (buckets.rest() == 0) return 0;
  const int64_t at = 2 * buckets.full;
  const int64_t lastPoint = reduction.pointCount - 1;
  VELVisitElements(xColumn,
                   [&](const auto* x) { out.x[at] = out.x[at + 1] = static_cast<double>(x[lastPoint]); });
  VELVisitElements(yColumn, [&](const auto* y) {
    const int64_t first = buckets.first(buckets.full);
    const VELExtremes found = VELFindExtremes(y + first, buckets.rest());
    MinMaxPair::write(y, first, buckets.rest(), found, out.y + at, out.index + at);
  });
  return 2;
}

}  // namespace

int64_t VELReduceBuckets(const VELReduction& reduction, const VELColumnView& x, const VELColumnView& y,
                         const VELPointBuffers& out) {
  const VELBuckets& buckets = reduction.buckets;
  switch (reduction.mode) {
    case VELResamplingMode_MinMax:
      writeFullBuckets<MinMaxPair>(buckets, x, y, out);
      return 2 * buckets.full + writeRest(reduction, x, y, out);
    case VELResamplingMode_Max:
      writeFullBuckets<Maximum>(buckets, x, y, out);
      break;
    case VELResamplingMode_Min:
      writeFullBuckets<Minimum>(buckets, x, y, out);
      break;
    default:
      writeFullBuckets<Middle>(buckets, x, y, out);
      break;
  }
  return buckets.full;
}
