// series/renderable_series_base.h: when a series draws, and the geometry that all kinds share.
//
// Units: points on screen for coordinates and widths, data units for values.
#pragma once

#include <limits>
#include <memory>
#include <string>

#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"
#include "velmora/surface/renderable_series.h"

/// The base of all series. Make series with `std::make_shared`.
class VELMORA_API VELRenderableSeriesBase : public VELRenderableSeries,
                                            public std::enable_shared_from_this<VELRenderableSeriesBase> {
 public:
  VELRenderableSeriesBase();
  ~VELRenderableSeriesBase() override;
  VELRenderableSeriesBase(const VELRenderableSeriesBase&) = delete;
  VELRenderableSeriesBase& operator=(const VELRenderableSeriesBase&) = delete;

  void onDrawWithContext(VELRenderContext2D& context,
                         const std::shared_ptr<const VELRenderPassData>& data) override;
  bool isValidForDrawing() const override;
  void onParentSurfaceViewportSizeChanged() override {}
  /// @throws VELInternalInconsistencyException: every kind of series overrides it
  void internalDrawWithContext(VELRenderContext2D& context, const VELRenderPassData& data) override;
  /// None here.
  std::shared_ptr<VELHitTestProvider> hitTestProvider() const override { return nullptr; }
  /// Name, colour and place, and the values as the axes of the last pass write them for a cursor.
  std::shared_ptr<VELSeriesInfo> toSeriesInfoWithHitTest(const VELHitTestInfo& hitTest) const override;
  /// Transparent black here.
  VELColor seriesColor() const override { return VELColor::fromColorCode(0); }
  void prepareForDrawing() override {}

  double getYZeroCoord() const override;
  double getChartRotationAngle(const VELRenderPassData& data) const override;
  float getDatapointWidthFrom(const VELPointSeries& points, double amount,
                              const VELCoordinateCalculator& calculator, double widthFraction) const override;
  void iterationInRenderPassData(const VELRenderPassData& data,
                                 const std::function<void(double, double, int32_t)>& block) const override;

  /// Null without data.
  VELRangePtr getXRange() const override;
  using VELRenderableSeries::getYRange;
  /// The Y range of the data inside an X range. Null without data.
  /// @param positive only values above zero count, for logarithmic axes
  VELRangePtr getYRange(const VELRange& xRange, bool positive) const override;

  void invalidateElement() override { invalidateParentSurface(); }
  void invalidateParentSurface() override;

  std::shared_ptr<VELDataSeries> dataSeries() const override { return _dataSeries; }
  void setDataSeries(const std::shared_ptr<VELDataSeries>& dataSeries) override;
  VELResamplingMode resamplingMode() const override { return _resamplingMode; }
  void setResamplingMode(VELResamplingMode mode) override;
  bool isVisible() const override { return _isVisible; }
  /// Shows at the next redraw that something else asks for; meant.
  void setIsVisible(bool visible) override { _isVisible = visible; }
  bool isSelected() const override { return _isSelected; }
  void setIsSelected(bool selected) override { _isSelected = selected; }
  /// Data value of the zero line; NaN for none.
  double zeroLineY() const override { return _zeroLineY; }
  void setZeroLineY(double value) override { _zeroLineY = value; }
  std::shared_ptr<VELPaletteProvider> paletteProvider() const override { return _paletteProvider; }
  void setPaletteProvider(const std::shared_ptr<VELPaletteProvider>& palette) override;
  std::shared_ptr<VELAxisBase> xAxis() const override { return _xAxis; }
  void setXAxis(const std::shared_ptr<VELAxisBase>& axis) override { _xAxis = axis; }
  std::shared_ptr<VELAxisBase> yAxis() const override { return _yAxis; }
  void setYAxis(const std::shared_ptr<VELAxisBase>& axis) override { _yAxis = axis; }
  const std::string& xAxisId() const override { return _xAxisId; }
  void setXAxisId(std::string id) override { setAxisId(_xAxisId, std::move(id)); }
  const std::string& yAxisId() const override { return _yAxisId; }
  void setYAxisId(std::string id) override { setAxisId(_yAxisId, std::move(id)); }
  std::shared_ptr<VELChartSurface> parentSurface() const override { return _parentSurface.lock(); }
  void setParentSurface(const std::weak_ptr<VELChartSurface>& surface) override;
  std::shared_ptr<const VELRenderPassData> currentRenderPassData() const override {
    return _currentRenderPassData;
  }

 protected:
  /// Viewport size of the last drawn pass, in points.
  const VELSize& lastViewportSize() const { return _lastViewportSize; }

 private:
  void setAxisId(std::string& field, std::string id);

  VELSize _lastViewportSize;
  bool _isVisible = true;
  bool _isSelected = false;
  VELResamplingMode _resamplingMode = VELResamplingMode_None;
  std::shared_ptr<VELDataSeries> _dataSeries;
  std::shared_ptr<VELAxisBase> _xAxis;
  std::shared_ptr<VELAxisBase> _yAxis;
  std::string _xAxisId;
  std::string _yAxisId;
  std::weak_ptr<VELChartSurface> _parentSurface;
  std::shared_ptr<const VELRenderPassData> _currentRenderPassData;
  double _zeroLineY = std::numeric_limits<double>::quiet_NaN();
  std::shared_ptr<VELPaletteProvider> _paletteProvider;
};
