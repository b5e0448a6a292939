#include "velmora/data/resampler.h"

#include <algorithm>

#include "velmora/data/array_controller_fifo.h"
#include "velmora/data/resampler_parts.h"
#include "velmora/platform/exception.h"

namespace {

void normalize(VELArrayController& column) {
  if (auto* ring = dynamic_cast<VELArrayControllerFIFO*>(&column)) ring->normalizeIndices();
}

/// Somebody else who holds the point series, or a column of it, still wants to draw it as it is.
bool isSoleOwned(const std::shared_ptr<VELPointSeries>& points) {
  return points && points.use_count() == 1 && points->xValues().use_count() == 1 &&
         points->yValues().use_count() == 1 && points->indices().use_count() == 1;
}

/// A derived class may have columns of its own.
bool hasCount(const VELPointSeries& points, int64_t count) {
  return points.xValues()->count() == count && points.yValues()->count() == count &&
         points.indices()->count() == count;
}

VELResamplingMode autoMode(bool evenlySpaced, bool sorted) {
  if (evenlySpaced) return VELResamplingMode_MinMax;
  return sorted ? VELResamplingMode_MinMaxUnevenlySpaced : VELResamplingMode_None;
}

}  // namespace

VELPointRun VELPointRunOf(const VELIndexRange& range, const VELArrayController& xColumn,
                          const VELArrayController& yColumn) {
  const int64_t first = std::max(VELGenericInt(range.min()), 0);
  const int64_t last =
      std::min({int64_t{VELGenericInt(range.max())}, xColumn.count() - 1, yColumn.count() - 1});
  return {first, std::max<int64_t>(last - first + 1, 0)};
}

int64_t VELBucketSize(int64_t pointCount, int32_t viewportWidth) {
  return viewportWidth < 1 ? 0 : pointCount / (2 * int64_t{viewportWidth});
}

std::shared_ptr<VELPointSeries> VELPointSeriesToFill(const std::shared_ptr<VELPointSeries>& last,
                                                     int64_t count) {
  if (isSoleOwned(last)) {
    last->setCount(count);
    if (hasCount(*last, count)) return last;
  }
  auto points = std::make_shared<VELPointSeries>(count);
  points->setCount(count);
  return points;
}

bool VELPointResampler::o_requiresReductionWithMode(VELResamplingMode mode, const VELIndexRange& pointRange,
                                                    int32_t viewportWidth) {
  return mode != VELResamplingMode_None && VELGenericInt(pointRange.diff()) >= 4 * int64_t{viewportWidth};
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_executeMode(
    VELResamplingMode mode, VELArrayController& xColumn, VELArrayController& yColumn,
    const VELIndexRange& pointRange, const VELRange& visibleRange, int32_t viewportWidth,
    const PointSeriesPtr& last) {
  if (_isFifoData) {
    normalize(xColumn);
    normalize(yColumn);
  }
  if (!o_requiresReductionWithMode(mode, pointRange, viewportWidth)) {
    mode = VELResamplingMode_None;
  } else if (mode == VELResamplingMode_Auto) {
    mode = autoMode(_isEvenlySpacedData, _isSortedData);
  }
  PointSeriesPtr points;
  switch (mode) {
    case VELResamplingMode_None:
      points = o_resampleWithoutReduction(pointRange, xColumn, yColumn, last);
      break;
    case VELResamplingMode_MinMax:
      points = o_reducePointsMinMax(pointRange, xColumn, yColumn, viewportWidth, last);
      break;
    case VELResamplingMode_Mid:
      points = o_reducePointsMid(pointRange, xColumn, yColumn, viewportWidth, last);
      break;
    case VELResamplingMode_Max:
      points = o_reducePointsMax(pointRange, xColumn, yColumn, viewportWidth, last);
      break;
    case VELResamplingMode_Min:
      points = o_reducePointsMin(pointRange, xColumn, yColumn, viewportWidth, last);
      break;
    case VELResamplingMode_MinMaxUnevenlySpaced:
      points =
          o_reducePointsMinMaxUnevenlySpaced(pointRange, visibleRange, xColumn, yColumn, viewportWidth, last);
      break;
    default:
      break;
  }
  if (!points) throw VELInvalidArgumentException("Resampling mode has not been handled.");
  return points;
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_resampleWithoutReduction(
    const VELIndexRange& pointRange, const VELArrayController& xColumn, const VELArrayController& yColumn,
    const PointSeriesPtr& last) {
  const VELPointRun run = VELPointRunOf(pointRange, xColumn, yColumn);
  auto points = VELPointSeriesToFill(last, run.count);
  if (run.count == 0) return points;
  const VELPointBuffers out(*points);
  const auto copyTo = [run](double* target) {
    return [run, target](const auto* values) {
      const auto asDouble = [](auto value) { return static_cast<double>(value); };
      std::transform(values + run.first, values + run.first + run.count, target, asDouble);
    };
  };
  VELVisitElements(xColumn, copyTo(out.x));
  VELVisitElements(yColumn, copyTo(out.y));
  for (int64_t i = 0; i < run.count; ++i) out.index[i] = static_cast<int32_t>(run.first + i);
  return points;
}
