#include "velmora/data/resampler_parts.h"

#include <algorithm>

namespace {

VELPointRun runOf(const VELIndexRange& range, int64_t pointCount) {
  const int64_t first = std::max(VELGenericInt(range.min()), 0);
  const int64_t last = std::min(int64_t{VELGenericInt(range.max())}, pointCount - 1);
  return {first, std::max<int64_t>(last - first + 1, 0)};
}

/// n / (2 × width) in whole numbers; below 1 there is nothing to reduce.
int64_t bucketSize(int64_t pointCount, int32_t viewportWidth) {
  return viewportWidth < 1 ? 0 : pointCount / (2 * int64_t{viewportWidth});
}

}  // namespace

VELReduction VELReductionOf(VELResamplingMode mode, const VELColumnView& x, int64_t pointCount,
                            const VELIndexRange& pointRange, const VELRange& visibleRange,
                            int32_t viewportWidth) {
  VELReduction reduction;
  reduction.run = runOf(pointRange, pointCount);
  reduction.pointCount = pointCount;
  reduction.buckets = {reduction.run, 1, reduction.run.count};
  const int64_t size = bucketSize(reduction.run.count, viewportWidth);
  if (size < 1 || mode == VELResamplingMode_None) return reduction;
  if (mode == VELResamplingMode_MinMaxUnevenlySpaced) {
    reduction.columns = VELPixelColumnsOf(reduction.run, x, visibleRange, viewportWidth);
    if (!reduction.columns.exist()) return reduction;
  }
  reduction.mode = mode;
  reduction.buckets = {reduction.run, size, reduction.run.count / size};
  return reduction;
}

VELPointBuffers VELBuffersOf(const VELPointSeries& points) {
  // A point series made sure of their types.
  return {static_cast<double*>(points.xValues()->data()), static_cast<double*>(points.yValues()->data()),
          static_cast<int32_t*>(points.indices()->data())};
}

int64_t VELCapacityOf(const VELReduction& reduction) {
  const VELBuckets& buckets = reduction.buckets;
  switch (reduction.mode) {
    case VELResamplingMode_None:
      return reduction.run.count;
    case VELResamplingMode_MinMax:
      return 2 * buckets.full + (buckets.rest() > 0 ? 2 : 0);
    case VELResamplingMode_MinMaxUnevenlySpaced:
      return std::min(kVELPointsPerPixelColumn * reduction.columns.count + 2, reduction.run.count);
    default:
      return buckets.full;
  }
}

int64_t VELReduce(const VELReduction& reduction, const VELColumnView& x, const VELColumnView& y,
                  const VELPointBuffers& out) {
  if (reduction.mode == VELResamplingMode_None) {
    VELCopyPoints(reduction.run, x, y, out);
    return reduction.run.count;
  }
  if (reduction.mode != VELResamplingMode_MinMaxUnevenlySpaced) {
    return VELReduceBuckets(reduction, x, y, out);
  }
  const int64_t count = VELPickFromPixelColumns(reduction.columns, x, y, out.index);
  const std::span<const int32_t> picked(out.index, static_cast<size_t>(count));
  VELGather(x, picked, out.x);
  VELGather(y, picked, out.y);
  return count;
}

void VELCopyPoints(VELPointRun run, const VELColumnView& x, const VELColumnView& y,
                   const VELPointBuffers& out) {
  if (run.count == 0) return;
  const auto copyTo = [run](double* target) {
    return [run, target](const auto* values) {
      const auto asDouble = [](auto value) { return static_cast<double>(value); };
      std::transform(values + run.first, values + run.first + run.count, target, asDouble);
    };
  };
  VELVisitElements(x, copyTo(out.x));
  VELVisitElements(y, copyTo(out.y));
  for (int64_t i = 0; i < run.count; ++i) out.index[i] = static_cast<int32_t>(run.first + i);
}

void VELGather(const VELColumnView& column, std::span<const int32_t> indices, double* out) {
  VELVisitElements(column, [indices, out](const auto* values) {
    std::transform(indices.begin(), indices.end(), out,
                   [values](int32_t index) { return static_cast<double>(values[index]); });
  });
}
