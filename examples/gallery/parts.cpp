#include "examples/gallery/parts.h"

double RandomWalk::next() {
  _state = _state * 1664525u + 1013904223u;
  _value += (static_cast<double>(_state >> 8) / static_cast<double>(1u << 24) - 0.5) * 2.0 * _step;
  return _value;
}

std::shared_ptr<VELXyDataSeries> makeWalk(double first, double step, int count, uint32_t seed,
                                          VELDataType xType) {
  auto data = std::make_shared<VELXyDataSeries>(xType, VELDataType_Double);
  RandomWalk walk(seed, 50.0);
  for (int i = 0; i < count; ++i) data->appendX(first + i * step, walk.next());
  return data;
}

std::shared_ptr<VELFastLineRenderableSeries> addLine(VELChartSurface& surface,
                                                     const std::shared_ptr<VELDataSeries>& data, size_t color,
                                                     const std::string& xAxisId, const std::string& yAxisId) {
  const VELVisualStyle& look = VELVisualStyle::standard();
  auto line = std::make_shared<VELFastLineRenderableSeries>();
  line->style()->setLinePen(
      VELPen2D::solid(look.seriesColor(color), static_cast<float>(look.seriesLineWidth / 2.0)));
  line->setXAxisId(xAxisId);
  line->setYAxisId(yAxisId);
  line->setDataSeries(data);
  surface.attachRenderableSeries(line);
  return line;
}

void hideGrid(VELAxisBase& axis) {
  axis.style().setDrawMajorGridLines(false);
  axis.style().setDrawMinorGridLines(false);
  axis.style().setDrawMajorBands(false);
}

void tint(VELAxisBase& axis, size_t color) {
  const uint32_t code = VELVisualStyle::standard().seriesColor(color);
  axis.style().labelStyle().setColorCode(code);
  axis.style().titleStyle().setColorCode(code);
  hideGrid(axis);
}
