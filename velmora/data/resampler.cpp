#include "velmora/data/resampler.h"

#include <algorithm>

#include "velmora/data/array_controller_fifo.h"
#include "velmora/data/resampler_parts.h"
#include "velmora/platform/exception.h"

namespace {

/// Somebody else who holds the point series, or a column of it, still wants to draw it as it is.
bool isSoleOwned(const std::shared_ptr<VELPointSeries>& points) {
  return points && points.use_count() == 1 && points->xValues().use_count() == 1 &&
         points->yValues().use_count() == 1 && points->indices().use_count() == 1;
}

/// A derived class may have columns of its own, of any size and type.
bool hasRoom(const VELPointSeries& points, int64_t count) {
  const auto has = [count](const VELArrayController& column, VELDataType type) {
    return column.count() == count && column.type() == type;
  };
  return has(*points.xValues(), VELDataType_Double) && has(*points.yValues(), VELDataType_Double) &&
         has(*points.indices(), VELDataType_Int32);
}

std::shared_ptr<VELPointSeries> pointSeriesToFill(const std::shared_ptr<VELPointSeries>& last,
                                                  int64_t count) {
  if (isSoleOwned(last)) {
    last->setCount(count);
    if (hasRoom(*last, count)) return last;
  }
  auto points = std::make_shared<VELPointSeries>(count);
  points->setCount(count);
  return points;
}

[[noreturn]] void raiseNotHandled() {
  throw VELInvalidArgumentException("Resampling mode has not been handled.");
}

VELResamplingMode autoMode(bool evenlySpaced, bool sorted) {
  if (evenlySpaced) return VELResamplingMode_MinMax;
  return sorted ? VELResamplingMode_MinMaxUnevenlySpaced : VELResamplingMode_None;
}

}  // namespace

bool VELPointResampler::o_requiresReductionWithMode(VELResamplingMode mode, const VELIndexRange& pointRange,
                                                    int32_t viewportWidth) {
  return mode != VELResamplingMode_None && VELGenericInt(pointRange.diff()) >= 4 * int64_t{viewportWidth};
}

VELResamplingMode VELPointResampler::p_VEL_resolvedMode(VELResamplingMode mode,
                                                        const VELIndexRange& pointRange,
                                                        int32_t viewportWidth) const {
  if (!o_requiresReductionWithMode(mode, pointRange, viewportWidth)) return VELResamplingMode_None;
  if (mode < VELResamplingMode_None || mode > VELResamplingMode_Auto) raiseNotHandled();
  return mode == VELResamplingMode_Auto ? autoMode(_isEvenlySpacedData, _isSortedData) : mode;
}

void VELPointResampler::p_VEL_normalize(std::initializer_list<VELArrayController*> columns) const {
  if (!_isFifoData) return;
  for (VELArrayController* column : columns) {
    if (auto* ring = dynamic_cast<VELArrayControllerFIFO*>(column)) ring->normalizeIndices();
  }
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_executeMode(
    VELResamplingMode mode, VELArrayController& xColumn, VELArrayController& yColumn,
    const VELIndexRange& pointRange, const VELRange& visibleRange, int32_t viewportWidth,
    const PointSeriesPtr& last) {
  p_VEL_normalize({&xColumn, &yColumn});
  PointSeriesPtr points;
  switch (p_VEL_resolvedMode(mode, pointRange, viewportWidth)) {
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
  if (!points) raiseNotHandled();
  return points;
}

std::shared_ptr<VELPointSeries> VELPointResampler::p_VEL_reduce(
    VELResamplingMode mode, const VELIndexRange& pointRange, const VELRange& visibleRange,
    const VELArrayController& xColumn, const VELArrayController& yColumn, int32_t viewportWidth,
    const PointSeriesPtr& last) {
  const VELColumnView x = xColumn.view();
  const VELColumnView y = yColumn.view();
  const VELReduction reduction =
      VELReductionOf(mode, x, std::min(x.count, y.count), pointRange, visibleRange, viewportWidth);
  if (reduction.mode == VELResamplingMode_None && mode != VELResamplingMode_None) {
    return o_resampleWithoutReduction(pointRange, xColumn, yColumn, last);
  }
  auto points = pointSeriesToFill(last, VELCapacityOf(reduction));
  points->setCount(VELReduce(reduction, x, y, VELBuffersOf(*points)));
  return points;
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_resampleWithoutReduction(
    const VELIndexRange& pointRange, const VELArrayController& xColumn, const VELArrayController& yColumn,
    const PointSeriesPtr& last) {
  return p_VEL_reduce(VELResamplingMode_None, pointRange, VELIndexRange(), xColumn, yColumn, 0, last);
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_reducePointsMinMax(const VELIndexRange& pointRange,
                                                                        const VELArrayController& xColumn,
                                                                        const VELArrayController& yColumn,
                                                                        int32_t viewportWidth,
                                                                        const PointSeriesPtr& last) {
  return p_VEL_reduce(VELResamplingMode_MinMax, pointRange, VELIndexRange(), xColumn, yColumn, viewportWidth,
                      last);
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_reducePointsMax(const VELIndexRange& pointRange,
                                                                     const VELArrayController& xColumn,
                                                                     const VELArrayController& yColumn,
                                                                     int32_t viewportWidth,
                                                                     const PointSeriesPtr& last) {
  return p_VEL_reduce(VELResamplingMode_Max, pointRange, VELIndexRange(), xColumn, yColumn, viewportWidth,
                      last);
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_reducePointsMin(const VELIndexRange& pointRange,
                                                                     const VELArrayController& xColumn,
                                                                     const VELArrayController& yColumn,
                                                                     int32_t viewportWidth,
                                                                     const PointSeriesPtr& last) {
  return p_VEL_reduce(VELResamplingMode_Min, pointRange, VELIndexRange(), xColumn, yColumn, viewportWidth,
                      last);
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_reducePointsMid(const VELIndexRange& pointRange,
                                                                     const VELArrayController& xColumn,
                                                                     const VELArrayController& yColumn,
                                                                     int32_t viewportWidth,
                                                                     const PointSeriesPtr& last) {
  return p_VEL_reduce(VELResamplingMode_Mid, pointRange, VELIndexRange(), xColumn, yColumn, viewportWidth,
                      last);
}

std::shared_ptr<VELPointSeries> VELPointResampler::o_reducePointsMinMaxUnevenlySpaced(
    const VELIndexRange& pointRange, const VELRange& visibleRange, const VELArrayController& xColumn,
    const VELArrayController& yColumn, int32_t viewportWidth, const PointSeriesPtr& last) {
  return p_VEL_reduce(VELResamplingMode_MinMaxUnevenlySpaced, pointRange, visibleRange, xColumn, yColumn,
                      viewportWidth, last);
}
