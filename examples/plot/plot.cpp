#include "examples/plot/plot.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <iostream>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <system_error>
#include <vector>

#include "examples/plot/failure.h"
#include "examples/plot/legend.h"
#include "velmora/velmora.h"

namespace {

constexpr double kGrowY = 0.05;

// Rows as far apart as the average, to a tenth: then buckets of rows are columns of the picture.
bool isEvenlySpaced(const std::vector<double>& xs) {
  if (xs.size() < 3) return true;
  const double step = (xs.back() - xs.front()) / static_cast<double>(xs.size() - 1);
  for (size_t i = 1; i < xs.size(); ++i)
    if (!(std::abs(xs[i] - xs[i - 1] - step) <= std::abs(step) * 0.1)) return false;
  return true;
}

std::shared_ptr<VELXyDataSeries> makeData(const PlotLine& line) {
  auto data = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  data->setSeriesName(line.name);
  data->setAcceptUnsortedData(true);
  data->appendRangeX(std::span<const double>(line.x), std::span<const double>(line.y));
  data->dataDistributionCalculator()->setDataIsEvenlySpaced(isEvenlySpaced(line.x));
  return data;
}

std::shared_ptr<VELFastLineRenderableSeries> makeSeries(const PlotLine& line, uint32_t colorCode,
                                                        const PlotOptions& options) {
  auto series = std::make_shared<VELFastLineRenderableSeries>();
  const double width = VELVisualStyle::standard().seriesLineWidth;
  series->style()->setLinePen(VELPen2D::solid(colorCode, static_cast<float>(width / 2.0)));
  series->style()->setIsDigitalLine(options.digital);
  // Any file may be unsorted: Auto draws such data point by point.
  series->setResamplingMode(options.resampling ? VELResamplingMode_Auto : VELResamplingMode_None);
  series->setDataSeries(makeData(line));
  return series;
}

// Neighbouring ticks must read differently: "%g" shows six digits, numbers far from zero may need more.
std::string formatFor(double lowest, double highest) {
  const double largest = std::max(std::abs(lowest), std::abs(highest));
  const double step = (highest - lowest) / 20.0;
  if (!(step > 0.0)) return {};
  const double digits = std::ceil(std::log10(largest / step)) + 1.0;
  if (!(digits > 6.0)) return {};
  return "%." + std::to_string(static_cast<int>(std::min(digits, 16.0))) + "g";
}

std::string formatFor(const PlotColumns& columns, std::vector<double> PlotLine::*values) {
  double lowest = std::numeric_limits<double>::infinity(), highest = -lowest;
  for (const PlotLine& line : columns.lines)
    for (const double value : line.*values) {
      if (value < lowest) lowest = value;
      if (value > highest) highest = value;
    }
  return formatFor(lowest, highest);
}

void addAxes(VELChartSurface& surface, const PlotColumns& columns) {
  auto x = std::make_shared<VELNumericAxis>();
  x->setAxisTitle(columns.xName);
  x->setTextFormatting(formatFor(columns, &PlotLine::x));
  surface.attachAxis(x, true);

  auto y = std::make_shared<VELNumericAxis>();
  y->setAxisAlignment(VELAxisAlignment_Left);
  y->setGrowBy(std::make_shared<VELDoubleRange>(kGrowY, kGrowY));
  y->setTextFormatting(formatFor(columns, &PlotLine::y));
  if (columns.lines.size() == 1) y->setAxisTitle(columns.lines.front().name);
  surface.attachAxis(y, false);
}

std::shared_ptr<Legend> addSeries(VELChartSurface& surface, const PlotColumns& columns,
                                  const PlotOptions& options) {
  const VELVisualStyle& look = VELVisualStyle::standard();
  std::vector<LegendEntry> entries;
  for (size_t i = 0; i < columns.lines.size(); ++i) {
    surface.attachRenderableSeries(makeSeries(columns.lines[i], look.seriesColor(i), options));
    entries.push_back({columns.lines[i].name, look.seriesColor(i)});
  }
  // One line is named by its axis.
  if (entries.size() == 1) entries.clear();
  return Legend::create(entries, options.size.width - 2.0 * look.padding);
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
  if (!columns.gapNote.empty()) std::cerr << "velmora-plot: " << columns.gapNote << '\n';
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
  addAxes(surface, columns);
  const auto legend = addSeries(surface, columns, options);

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
