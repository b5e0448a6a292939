#include "examples/plot/plot.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "examples/plot/failure.h"
#include "examples/plot/legend.h"
#include "examples/plot/plot_axes.h"
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
  return Legend::create(entries, options.size.width - 2.0 * VELVisualStyle::standard().padding);
}

void addLines(VELChartSurface& surface, const PlotColumns& columns, const PlotOptions& options) {
  const std::vector<uint32_t> colors = lineColors(columns);
  const PlotAxes axes = addAxes(surface, columns, colors, options);
  // What the chart is about is drawn last, over the second axis' lines.
  for (const bool second : {true, false})
    for (size_t i = 0; i < columns.lines.size(); ++i)
      if (columns.lines[i].onSecondAxis == second)
        surface.attachRenderableSeries(makeSeries(columns.lines[i], columns.xKind, colors[i], options));
  formatDates(*axes.x, columns);
}

void writePicture(const VELBitmap& picture, const PlotOptions& options) {
  std::error_code ignored;
  if (std::filesystem::equivalent(options.file, options.out, ignored))
    throw PlotFailure("The picture '" + options.out.string() +
                      "' would overwrite the data; give another name with --out.");
  if (const auto reason = picture.writePng(options.out.string())) throw PlotFailure(*reason);
}

void plot(const PlotOptions& options) {
  const PlotColumns columns = choosePlotColumns(readCsv(options.file), options);
  for (const std::string& note : {columns.gapNote, columns.logNote})
    if (!note.empty()) std::cerr << "velmora-plot: " << note << '\n';
  const VELBitmap picture = drawPlot(columns, options);
  writePicture(picture, options);
  std::cout << "Wrote " << options.out.string() << " (" << picture.width() << " x " << picture.height()
            << " pixels).\n";
}

}  // namespace

VELBitmap drawPlot(const PlotColumns& columns, const PlotOptions& options) {
  if (!VELTextEngine::instance().hasFonts())
    throw PlotFailure(
        "There is no font on this machine to label the chart; install one, such as the package "
        "fonts-dejavu-core.");
  std::string failure;
  const auto host = VELOffscreenHost::create(options.size, options.scale, &failure);
  if (!host) throw PlotFailure(failure);
  const VELVisualStyle& look = VELVisualStyle::standard();
  host->setBackgroundColor(VELColor::fromColorCode(look.background));

  const auto view =
      VELChartSurfaceView::initWithFrame({0.0, 0.0, options.size.width, options.size.height}, *host);
  if (!view)
    throw PlotFailure("OpenGL ES refused to draw; install its drivers, the package libgl1-mesa-dri.");
  VELChartSurface& surface = *view->surface();
  surface.setChartTitle(options.title);
  addLines(surface, columns, options);
  const auto legend = makeLegend(columns, lineColors(columns), options);

  const double legendHeight = legend->frame().height;
  view->setFrame({0.0, 0.0, options.size.width, options.size.height - legendHeight});
  legend->setFrame(legend->frame().offsetBy(look.padding, options.size.height - legendHeight));
  host->rootView()->addSubview(view);
  host->rootView()->addSubview(legend);
  host->settle(0.0);
  return host->picture();
}

int runPlot(int argc, const char* const* argv) {
  try {
    if (const auto options = parseOptions(argc, argv)) plot(*options);
    return 0;
  } catch (const PlotFailure& failure) {
    std::cerr << "velmora-plot: " << failure.what() << '\n';
  } catch (const std::bad_alloc&) {
    std::cerr << "velmora-plot: There is not enough memory for this file; give a smaller one.\n";
  } catch (const std::exception& error) {
    std::cerr << "velmora-plot: " << error.what() << '\n';
  }
  return 2;
}
