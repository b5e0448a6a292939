#include "velmora/surface/render_pass_data.h"

#include <limits>
#include <utility>

#include "velmora/data/data_series.h"
#include "velmora/surface/renderable_series.h"

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

std::shared_ptr<VELRange> VELRenderPassData::xDataRange() const {
  const auto data = dataSeries();
  return data ? data->getXRange() : nullptr;
}

std::shared_ptr<VELRange> VELRenderPassData::yDataRange() const {
  const auto data = dataSeries();
  return data ? data->getYRange() : nullptr;
}

double VELRenderPassData::zeroLineY() const {
  const auto series = renderableSeries();
  return series ? series->zeroLineY() : std::numeric_limits<double>::quiet_NaN();
}
