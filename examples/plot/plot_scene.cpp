#include "examples/plot/plot_scene.h"

#include <algorithm>
#include <cstdint>

#include "examples/plot/failure.h"
#include "examples/plot/live_labels.h"
#include "examples/plot/plot_series.h"
#include "velmora/velmora.h"

namespace {

std::shared_ptr<Legend> makeLegend(const PlotColumns& columns, const std::vector<uint32_t>& colors,
                                   const PlotOptions& options) {
  std::vector<LegendEntry> entries;
  const std::string side = options.vertical ? " (top)" : " (right)";
  for (size_t i = 0; i < columns.lines.size(); ++i)
    entries.push_back(
        {shortenedName(columns.lines[i].name) + (columns.lines[i].onSecondAxis ? side : ""), colors[i]});
  // A line that is alone on its axis is named by it.
  const size_t axes = columns.hasSecondAxis() ? 2 : 1;
  if (entries.size() == axes) entries.clear();
  return std::make_shared<Legend>(entries);
}

// What the chart is about is drawn last, over the second axis' lines.
void addLines(VELChartSurface& surface, const PlotColumns& columns, PlotScene::Data data,
              const std::vector<uint32_t>& colors, const PlotOptions& options) {
  for (const bool second : {true, false})
    for (size_t i = 0; i < columns.lines.size(); ++i)
      if (columns.lines[i].onSecondAxis == second)
        surface.attachRenderableSeries(makeSeries(columns.lines[i], data[i], colors[i], options));
}

void assertFonts() {
  if (!VELTextEngine::instance().hasFonts())
    throw PlotFailure(
        "There is no font on this machine to label the chart; install one, such as the package "
        "fonts-dejavu-core.");
}

}  // namespace

std::shared_ptr<PlotScene> PlotScene::make(VELHost& host, const PlotColumns& columns, Data data,
                                           const PlotOptions& options, bool isFollowing) {
  assertFonts();
  auto scene = std::make_shared<PlotScene>();
  scene->setFrame(host.rootView()->bounds());
  scene->_chart = VELChartSurfaceView::initWithFrame(scene->bounds(), host);
  if (!scene->_chart)
    throw PlotFailure("OpenGL ES refused to draw; install its drivers, the package libgl1-mesa-dri.");
  VELChartSurface& surface = *scene->_chart->surface();
  surface.setChartTitle(options.title);
  const std::vector<uint32_t> colors = lineColors(columns);
  scene->_xName = columns.xName;
  scene->_axes = addAxes(surface, columns, colors, options);
  addLines(surface, columns, data, colors, options);
  if (isFollowing)
    makeLive(scene->_axes);
  else
    formatDates(*scene->_axes.x, columns);
  scene->_legend = makeLegend(columns, colors, options);
  scene->addSubview(scene->_chart);
  scene->addSubview(scene->_legend);
  host.rootView()->addSubview(scene);
  return scene;
}

std::shared_ptr<PlotScene> PlotScene::create(VELHost& host, const PlotColumns& columns,
                                             const PlotOptions& options) {
  std::vector<std::shared_ptr<VELXyDataSeries>> data;
  for (const PlotLine& line : columns.lines) data.push_back(makeData(line, columns.xKind));
  return make(host, columns, data, options, false);
}

std::shared_ptr<PlotScene> PlotScene::createFollowing(VELHost& host, const PlotColumns& columns, Data data,
                                                      const PlotOptions& options) {
  return make(host, columns, data, options, true);
}

void PlotScene::layoutSubviews() {
  const double padding = VELVisualStyle::standard().padding;
  const VELSize size = bounds().size();
  const double legendWidth = std::max(0.0, size.width - 2.0 * padding);
  const double legendHeight = _legend->fillWidth(legendWidth);
  const double chartHeight = std::max(0.0, size.height - legendHeight);
  _chart->setFrame({0.0, 0.0, size.width, chartHeight});
  _legend->setFrame({padding, chartHeight, legendWidth, legendHeight});
}

void PlotScene::updateTitles() { updateLiveTitle(*_axes.x, _xName); }
