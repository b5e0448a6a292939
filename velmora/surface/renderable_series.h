// surface/renderable_series.h: what the surface and the render pass ask of a series.
//
// Units: data units for ranges, points on screen for coordinates and widths.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "velmora/axes/axis_surface.h"
#include "velmora/data/data_series.h"
#include "velmora/data/resampler.h"
#include "velmora/platform/color.h"
#include "velmora/platform/export.h"
#include "velmora/platform/invalidatable_element.h"
#include "velmora/rendering/render_context.h"

class VELAxisBase;
class VELChartSurface;
class VELCoordinateCalculator;
class VELHitTestProvider;
class VELPaletteProvider;
class VELPointSeries;
class VELRenderPassData;
class VELSeriesInfo;
struct VELHitTestInfo;

/// A drawn series: how one data series looks on its two axes.
class VELMORA_API VELRenderableSeries : public VELAxisSeries, public VELInvalidatableElement {
 public:
  /// Draws the series for one pass; the record is not kept past the pass that follows.
  virtual void onDrawWithContext(VELRenderContext2D& context,
                                 const std::shared_ptr<const VELRenderPassData>& data) = 0;
  /// Data with values, visible, and a point series in the current pass.
  virtual bool isValidForDrawing() const = 0;
  virtual void onParentSurfaceViewportSizeChanged() = 0;
  virtual void internalDrawWithContext(VELRenderContext2D& context, const VELRenderPassData& data) = 0;
  /// The series shows this data from now on and redraws when it changes. Held strongly; null shows nothing.
  virtual void setDataSeries(const std::shared_ptr<VELDataSeries>& dataSeries) = 0;
  using VELAxisSeries::getYRange;
  /// Y extent of the data inside an X range, values of either sign. Null without data.
  VELRangePtr getYRange(const VELRange& xRange) const { return getYRange(xRange, false); }
  /// Screen coordinate of the zero line in points, NaN without one.
  virtual double getYZeroCoord() const = 0;
  /// Rotation of the chart in radians.
  virtual double getChartRotationAngle(const VELRenderPassData& data) const = 0;
  virtual void invalidateParentSurface() = 0;
  virtual void setResamplingMode(VELResamplingMode mode) = 0;
  /// Width of one point in screen points: the narrowest gap between neighbours times a fraction.
  /// @param amount not used; the gap alone decides
  /// @throws VELInvalidArgumentException for a fraction outside 0 to 1
  virtual float getDatapointWidthFrom(const VELPointSeries& points, double amount,
                                      const VELCoordinateCalculator& calculator,
                                      double widthFraction) const = 0;
  /// Finds points of the series under a finger; null for a kind of series that cannot be touched.
  virtual std::shared_ptr<VELHitTestProvider> hitTestProvider() const = 0;
  /// What tooltips and cursors show of a hit test of this series. Never null.
  virtual std::shared_ptr<VELSeriesInfo> toSeriesInfoWithHitTest(const VELHitTestInfo& hitTest) const = 0;
  /// The one colour by which a legend tells the series.
  virtual VELColor seriesColor() const = 0;
  virtual void prepareForDrawing() = 0;
  /// Calls @p block with screen x, screen y and data index of every point of a pass, in order.
  virtual void iterationInRenderPassData(const VELRenderPassData& data,
                                         const std::function<void(double, double, int32_t)>& block) const = 0;

  virtual bool isSelected() const = 0;
  virtual void setIsSelected(bool selected) = 0;
  virtual void setIsVisible(bool visible) = 0;
  virtual VELResamplingMode resamplingMode() const = 0;
  virtual std::shared_ptr<VELAxisBase> xAxis() const = 0;
  virtual void setXAxis(const std::shared_ptr<VELAxisBase>& axis) = 0;
  virtual std::shared_ptr<VELAxisBase> yAxis() const = 0;
  virtual void setYAxis(const std::shared_ptr<VELAxisBase>& axis) = 0;
  /// Another id redraws the chart.
  virtual void setXAxisId(std::string id) = 0;
  virtual void setYAxisId(std::string id) = 0;
  virtual std::shared_ptr<VELChartSurface> parentSurface() const = 0;
  /// Held weakly; another surface, or none, makes the series forget what it drew last.
  virtual void setParentSurface(const std::weak_ptr<VELChartSurface>& surface) = 0;
  virtual std::shared_ptr<const VELRenderPassData> currentRenderPassData() const = 0;
  virtual double zeroLineY() const = 0;
  virtual void setZeroLineY(double value) = 0;
  /// Held strongly; null for none.
  virtual std::shared_ptr<VELPaletteProvider> paletteProvider() const = 0;
  virtual void setPaletteProvider(const std::shared_ptr<VELPaletteProvider>& palette) = 0;
};
