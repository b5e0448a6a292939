// surface/render_pass_data.h: what one series needs to draw itself in one pass.
#pragma once

#include <memory>

#include "velmora/axes/coordinate_calculator.h"
#include "velmora/data/point_series.h"
#include "velmora/data/ranges.h"
#include "velmora/platform/export.h"
#include "velmora/rendering/brush_pass_data.h"

class VELDataSeries;
class VELRenderableSeries;

/// The record of one series in one pass; never changed after construction.
///
/// Point range, point series and calculators are held strongly, series and data weakly.
class VELMORA_API VELRenderPassData : public VELBrushPassData {
 public:
  /// @param pointRange the index range that was resampled; null without a data series
  /// @param pointSeries the resampled points; null without a data series or with nothing visible
  VELRenderPassData(std::shared_ptr<VELIndexRange> pointRange, std::shared_ptr<VELPointSeries> pointSeries,
                    const std::weak_ptr<VELDataSeries>& dataSeries,
                    const std::weak_ptr<VELRenderableSeries>& renderableSeries,
                    std::shared_ptr<VELCoordinateCalculator> yCalculator,
                    std::shared_ptr<VELCoordinateCalculator> xCalculator);

  const std::shared_ptr<VELIndexRange>& pointRange() const { return _pointRange; }
  const std::shared_ptr<VELPointSeries>& pointSeries() const { return _pointSeries; }
  std::shared_ptr<VELDataSeries> dataSeries() const { return _dataSeries.lock(); }
  std::shared_ptr<VELRenderableSeries> renderableSeries() const { return _renderableSeries.lock(); }
  const std::shared_ptr<VELCoordinateCalculator>& xCoordinateCalculator() const override {
    return _xCoordinateCalculator;
  }
  const std::shared_ptr<VELCoordinateCalculator>& yCoordinateCalculator() const override {
    return _yCoordinateCalculator;
  }
  /// True when there is no horizontal X calculator.
  bool isVerticalChart() const override;
  std::shared_ptr<VELRange> xDataRange() const override;
  std::shared_ptr<VELRange> yDataRange() const override;
  double zeroLineY() const override;

 private:
  std::shared_ptr<VELIndexRange> _pointRange;
  std::shared_ptr<VELPointSeries> _pointSeries;
  std::shared_ptr<VELCoordinateCalculator> _yCoordinateCalculator;
  std::shared_ptr<VELCoordinateCalculator> _xCoordinateCalculator;
  std::weak_ptr<VELDataSeries> _dataSeries;
  std::weak_ptr<VELRenderableSeries> _renderableSeries;
};
