// data/resampler.h: which points of a series are worth drawing.
//
// The points go into data/point_series.h. Units: data units for x and y; the viewport width is in points of
// the screen; indices count points of the data series, both ends of a range included.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>

#include "velmora/data/array_controller.h"
#include "velmora/data/ohlc_point_series.h"
#include "velmora/data/point_series.h"
#include "velmora/data/range.h"
#include "velmora/data/ranges.h"
#include "velmora/data/xyy_point_series.h"
#include "velmora/data/xyz_point_series.h"
#include "velmora/platform/export.h"

/// How many points are reduced to few. A bucket is a run of points of equal number.
enum VELResamplingMode : int32_t {
  VELResamplingMode_None = 0,                  ///< every point
  VELResamplingMode_MinMax = 1,                ///< minimum, then maximum of each bucket
  VELResamplingMode_Mid = 2,                   ///< middle between minimum and maximum of each bucket
  VELResamplingMode_Max = 3,                   ///< maximum of each bucket
  VELResamplingMode_Min = 4,                   ///< minimum of each bucket
  VELResamplingMode_MinMaxUnevenlySpaced = 5,  ///< first, minimum, maximum, last of each pixel column
  VELResamplingMode_Auto = 6,  ///< MinMax for even spacing, MinMaxUnevenlySpaced for sorted x, else None
};

/// Reduces the visible part of an x and a y column to what a viewport can show.
///
/// Always true: every extreme of y survives MinMax and MinMaxUnevenlySpaced; NaN is no extreme, and a bucket
/// of nothing but NaN gives NaN, so that a line breaks there; ranges are cut to the shorter column; where a
/// bucket would hold less than one point nothing is reduced.
///
/// Every operation takes the point series of the frame before as `last`: when nobody but the caller holds
/// it and nobody but itself its columns, it is refilled and returned, so that a steady frame allocates
/// nothing; else, and for null, a new one is made. The operations are virtual: a resampler of one's own may
/// replace each.
class VELMORA_API VELPointResampler {
 public:
  using PointSeriesPtr = std::shared_ptr<VELPointSeries>;

  VELPointResampler() = default;
  virtual ~VELPointResampler() = default;

  /// What the caller knows of the columns, to be set before each run.
  bool isFifoData() const { return _isFifoData; }
  void setIsFifoData(bool fifo) { _isFifoData = fifo; }
  bool isSortedData() const { return _isSortedData; }
  void setIsSortedData(bool sorted) { _isSortedData = sorted; }
  bool isEvenlySpacedData() const { return _isEvenlySpacedData; }
  void setIsEvenlySpacedData(bool evenly) { _isEvenlySpacedData = evenly; }

  /// True when the mode reduces and the range spans at least four points per point of width.
  static bool o_requiresReductionWithMode(VELResamplingMode mode, const VELIndexRange& pointRange,
                                          int32_t viewportWidth);

  /// The points to draw. Rings are put into logical order first.
  /// @param visibleRange the x range that the axis shows
  /// @throws VELInvalidArgumentException "Resampling mode has not been handled." for a mode that is none or
  ///         an operation that returned null
  virtual PointSeriesPtr o_executeMode(VELResamplingMode mode, VELArrayController& xColumn,
                                       VELArrayController& yColumn, const VELIndexRange& pointRange,
                                       const VELRange& visibleRange, int32_t viewportWidth,
                                       const PointSeriesPtr& last);

  // The same for points of more than one value, with the modes and errors of `o_executeMode`.

  /// Two values a point. Each bucket gives what it gives for one: MinMax the minima of both columns, then the
  /// maxima of both; the index is that of y1. Buckets are walked column by column, each column once, and give
  /// one x for both. For ascending x each pixel column gives the points that either
  /// column would give alone, at most 8 × width + 2 in all.
  virtual std::shared_ptr<VELXyyPointSeries> o_executeModeXyy(
      VELResamplingMode mode, VELArrayController& xColumn, VELArrayController& y1Column,
      VELArrayController& y2Column, const VELIndexRange& pointRange, const VELRange& visibleRange,
      int32_t viewportWidth, const PointSeriesPtr& last);
  /// Prices. In every mode that reduces, a bucket gives one point with x and index of its last one: its first
  /// open, highest high, lowest low and last close, NaN left out. What is left behind the last full bucket
  /// gives one more. For ascending x a bucket is a pixel column, with the nearest point outside on each side
  /// at most width + 2 in all.
  virtual std::shared_ptr<VELOhlcPointSeries> o_executeModeOhlc(
      VELResamplingMode mode, VELArrayController& xColumn, VELArrayController& openColumn,
      VELArrayController& highColumn, VELArrayController& lowColumn, VELArrayController& closeColumn,
      const VELIndexRange& pointRange, const VELRange& visibleRange, int32_t viewportWidth,
      const PointSeriesPtr& last);
  /// The points that x and y alone would give, with the z of each point's index.
  virtual std::shared_ptr<VELXyzPointSeries> o_executeModeXyz(
      VELResamplingMode mode, VELArrayController& xColumn, VELArrayController& yColumn,
      VELArrayController& zColumn, const VELIndexRange& pointRange, const VELRange& visibleRange,
      int32_t viewportWidth, const PointSeriesPtr& last);

  /// Every point of the range.
  virtual PointSeriesPtr o_resampleWithoutReduction(const VELIndexRange& pointRange,
                                                    const VELArrayController& xColumn,
                                                    const VELArrayController& yColumn,
                                                    const PointSeriesPtr& last);
  /// Two points per bucket, minimum before maximum whatever their order, both at the x of the bucket's last
  /// point; on ties the later point wins. A last, incomplete bucket gives a pair at the x of the column's
  /// last point, so that the line always reaches the end of the data.
  virtual PointSeriesPtr o_reducePointsMinMax(const VELIndexRange& pointRange,
                                              const VELArrayController& xColumn,
                                              const VELArrayController& yColumn, int32_t viewportWidth,
                                              const PointSeriesPtr& last);
  /// The maximum of each full bucket, at the x of its last point.
  virtual PointSeriesPtr o_reducePointsMax(const VELIndexRange& pointRange, const VELArrayController& xColumn,
                                           const VELArrayController& yColumn, int32_t viewportWidth,
                                           const PointSeriesPtr& last);
  /// The minimum of each full bucket, at the x of its last point.
  virtual PointSeriesPtr o_reducePointsMin(const VELIndexRange& pointRange, const VELArrayController& xColumn,
                                           const VELArrayController& yColumn, int32_t viewportWidth,
                                           const PointSeriesPtr& last);
  /// (maximum + minimum) / 2 of each full bucket, with x and index of its last point.
  virtual PointSeriesPtr o_reducePointsMid(const VELIndexRange& pointRange, const VELArrayController& xColumn,
                                           const VELArrayController& yColumn, int32_t viewportWidth,
                                           const PointSeriesPtr& last);
  /// For ascending x: the visible range, cut to the data, is parted into as many columns as the viewport is
  /// wide; each gives its first, minimum, maximum and last point in index order, each once. The nearest point
  /// outside on each side stays, a run of NaN gives one gap point. At most 4 × width + 2 points.
  virtual PointSeriesPtr o_reducePointsMinMaxUnevenlySpaced(
      const VELIndexRange& pointRange, const VELRange& visibleRange, const VELArrayController& xColumn,
      const VELArrayController& yColumn, int32_t viewportWidth, const PointSeriesPtr& last);

 private:
  /// What a mode comes down to for this data and range; None where no reduction is required. Raises what is
  /// no mode.
  VELResamplingMode p_VEL_resolvedMode(VELResamplingMode mode, const VELIndexRange& pointRange,
                                       int32_t viewportWidth) const;
  /// Puts rings into logical order.
  void p_VEL_normalize(std::initializer_list<VELArrayController*> columns) const;
  PointSeriesPtr p_VEL_reduce(VELResamplingMode mode, const VELIndexRange& pointRange,
                              const VELRange& visibleRange, const VELArrayController& xColumn,
                              const VELArrayController& yColumn, int32_t viewportWidth,
                              const PointSeriesPtr& last);

  bool _isFifoData = false;
  bool _isSortedData = false;
  bool _isEvenlySpacedData = false;
};
