// surface/chart_with_axes.h: a chart with two axes and lines to put on them.
#pragma once

#include <memory>
#include <utility>

#include "tests/support/recording_chart.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/series/fast_line_renderable_series.h"

/// A line of one colour through (0, 0), (1, 1), (2, 0), (3, 1) …
inline std::shared_ptr<VELFastLineRenderableSeries> makeSeries(uint32_t colorCode, int count = 10) {
  auto data = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  for (int i = 0; i < count; ++i) data->appendX(i, i % 2);
  auto series = std::make_shared<VELFastLineRenderableSeries>();
  series->style()->setLinePen(VELPen2D::solid(colorCode, 1.0f));
  series->setDataSeries(data);
  return series;
}

/// A chart with an X axis at the bottom and a Y axis on the right.
struct ChartWithAxes : RecordingChart {
  ChartWithAxes() {
    surface->attachAxis(x, true);
    surface->attachAxis(y, false);
  }
  std::shared_ptr<VELNumericAxis> x = std::make_shared<VELNumericAxis>();
  std::shared_ptr<VELNumericAxis> y = std::make_shared<VELNumericAxis>();
};

inline std::pair<double, double> boundsOf(const VELAxisCore& axis) {
  return {VELGenericDouble(axis.visibleRange()->min()), VELGenericDouble(axis.visibleRange()->max())};
}

/// One refresh. @return the error code of the pass
inline uint32_t runPass(RecordingChart& chart) {
  chart.tick();
  return chart.surface->lastErrorCode();
}
