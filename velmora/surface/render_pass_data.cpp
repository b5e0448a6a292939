#include "velmora/surface/render_pass_data.h"

#include <utility>

VELRenderPassData::VELRenderPassData(std::shared_ptr<VELIndexRange> pointRange,
                                     std::shared_ptr<VELPointSeries> pointSeries,
                                     const std::weak_ptr<VELDataSeries>& dataSeries,
                                     const std::weak_ptr<VELRenderableSeries>& renderableSeries,
                                     std::shared_ptr<VELCoordinateCalculator> yCalculator,
                                     std::shared_ptr<VELCoordinateCalculator> xCalculator)
    : _pointRange(std::move(pointRange)),
      _pointSeries(std::move(pointSeries)),
      _yCoordinateCalculator(std::move(yCalculator)),
      _xCoordinateCalculator(std::move(xCalculator)),
      _dataSeries(dataSeries),
      _renderableSeries(renderableSeries) {}

bool VELRenderPassData::isVerticalChart() const {
  return !(_xCoordinateCalculator && _xCoordinateCalculator->isHorizontalAxisCalculator());
}
