// data/resampler_parts.h: what all reducers of data/resampler.h are made of.
//
// Internal. A reduction is settled first, then its room is made, then its points are written: the loops at
// the bottom know raw columns only.
#pragma once

#include <cstdint>
#include <span>

#include "velmora/data/column_view.h"
#include "velmora/data/pixel_columns.h"
#include "velmora/data/point_series.h"
#include "velmora/data/ranges.h"
#include "velmora/data/resampler.h"

/// Full buckets, and what is left behind them.
struct VELBuckets {
  int64_t rest() const { return run.count - full * size; }
  int64_t first(int64_t bucket) const { return run.first + bucket * size; }
  int64_t last(int64_t bucket) const { return first(bucket) + size - 1; }

  VELPointRun run;
  int64_t size = 1;
  int64_t full = 0;
};

/// What one run of the resampler does.
struct VELReduction {
  VELResamplingMode mode = VELResamplingMode_None;  ///< never Auto; None where nothing can be reduced
  VELPointRun run;
  int64_t pointCount = 0;   ///< of the shortest column
  VELBuckets buckets;       ///< for evenly spaced data; of one point each where nothing is reduced
  VELPixelColumns columns;  ///< for uneven spacing
};

/// @param visibleRange is asked for uneven spacing only
VELReduction VELReductionOf(VELResamplingMode mode, const VELColumnView& x, int64_t pointCount,
                            const VELIndexRange& pointRange, const VELRange& visibleRange,
                            int32_t viewportWidth);

/// Where the points of an x and a y go.
struct VELPointBuffers {
  double* x;
  double* y;
  int32_t* index;
};

VELPointBuffers VELBuffersOf(const VELPointSeries& points);

/// The most points that a reduction of one y gives.
int64_t VELCapacityOf(const VELReduction& reduction);
/// Writes the points of one y, and answers how many.
int64_t VELReduce(const VELReduction& reduction, const VELColumnView& x, const VELColumnView& y,
                  const VELPointBuffers& out);

// Its ways, one for each kind of modes.

void VELCopyPoints(VELPointRun run, const VELColumnView& x, const VELColumnView& y,
                   const VELPointBuffers& out);
int64_t VELReduceBuckets(const VELReduction& reduction, const VELColumnView& x, const VELColumnView& y,
                         const VELPointBuffers& out);

/// The most points that one y column gives for a column of pixels.
constexpr int64_t kVELPointsPerPixelColumn = 4;
/// Writes the indices of what one y wants kept, in ascending order, and answers how many: per column of
/// pixels first, lowest, highest and last, each once; a run of NaN is one of them.
int64_t VELPickFromPixelColumns(const VELPixelColumns& columns, const VELColumnView& x,
                                const VELColumnView& y, int32_t* out);
/// The same for what either of two wants kept.
int64_t VELPickFromPixelColumns(const VELPixelColumns& columns, const VELColumnView& x,
                                const VELColumnView& y1, const VELColumnView& y2, int32_t* out);

/// The elements of a column at the indices.
void VELGather(const VELColumnView& column, std::span<const int32_t> indices, double* out);
