#include "examples/plot/plot_series.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "velmora/velmora.h"

namespace {

// Where the palette goes on for the second axis, so that its lines differ from the first ones.
constexpr size_t kFirstSecondColor = 4;
// A line in the background is paler and thinner.
constexpr uint32_t kCalmColorPercent = 80;
constexpr double kCalmWidth = 2.0 / 3.0;

uint32_t calm(uint32_t color) {
  uint32_t result = color & 0xFF000000u;
  for (const uint32_t shift : {0u, 8u, 16u})
    result |= (255u - (255u - (color >> shift & 0xFFu)) * kCalmColorPercent / 100u) << shift;
  return result;
}

// Rows as far apart as the average, to a tenth: then buckets of rows are columns of the picture.
bool isEvenlySpaced(const std::vector<double>& xs) {
  if (xs.size() < 3) return true;
  const double step = (xs.back() - xs.front()) / static_cast<double>(xs.size() - 1);
  for (size_t i = 1; i < xs.size(); ++i)
    if (!(std::abs(xs[i] - xs[i - 1] - step) <= std::abs(step) * 0.1)) return false;
  return true;
}

bool isDate(PlotXKind kind) { return kind == PlotXKind::Date || kind == PlotXKind::CategoryDate; }
bool isCategory(PlotXKind kind) {
  return kind == PlotXKind::CategoryNumber || kind == PlotXKind::CategoryDate;
}

std::shared_ptr<VELXyDataSeries> makeColumns(PlotXKind xKind) {
  const VELDataType xType = isDate(xKind) ? VELDataType_DateTime : VELDataType_Double;
  if (isCategory(xKind)) return VELXyDataSeries::initWithCategoryXType(xType, VELDataType_Double);
  return std::make_shared<VELXyDataSeries>(xType, VELDataType_Double);
}

std::vector<VELDate> datesOf(const std::vector<double>& seconds) {
  std::vector<VELDate> dates;
  dates.reserve(seconds.size());
  for (const double one : seconds) dates.emplace_back(one);
  return dates;
}

}  // namespace

std::vector<uint32_t> lineColors(const PlotColumns& columns) {
  const VELVisualStyle& look = VELVisualStyle::standard();
  size_t first = 0;
  size_t second = std::max(kFirstSecondColor, columns.countOnFirstAxis());
  std::vector<uint32_t> colors;
  for (const PlotLine& line : columns.lines)
    colors.push_back(line.onSecondAxis ? calm(look.seriesColor(second++)) : look.seriesColor(first++));
  return colors;
}

std::shared_ptr<VELXyDataSeries> makeData(const PlotLine& line, PlotXKind xKind) {
  auto data = makeColumns(xKind);
  data->setSeriesName(line.name);
  data->setAcceptUnsortedData(true);
  if (isDate(xKind))
    data->appendRangeX(datesOf(line.x), line.y);
  else
    data->appendRangeX(line.x, line.y);
  const bool isEven = isCategory(xKind) || isEvenlySpaced(line.x);
  data->dataDistributionCalculator()->setDataIsEvenlySpaced(isEven);
  return data;
}

std::shared_ptr<VELXyDataSeries> makeRing(const PlotLine& line, PlotXKind xKind, bool isEven,
                                          int32_t capacity) {
  const VELDataType xType = isDate(xKind) ? VELDataType_DateTime : VELDataType_Double;
  auto data = VELXyDataSeries::initFifoWithXType(xType, VELDataType_Double, capacity);
  data->setSeriesName(line.name);
  data->setAcceptUnsortedData(true);
  data->dataDistributionCalculator()->setDataIsEvenlySpaced(isEven);
  return data;
}

std::shared_ptr<VELFastLineRenderableSeries> makeSeries(const PlotLine& line,
                                                        const std::shared_ptr<VELXyDataSeries>& data,
                                                        uint32_t colorCode, const PlotOptions& options) {
  auto series = std::make_shared<VELFastLineRenderableSeries>();
  const double width = VELVisualStyle::standard().seriesLineWidth * (line.onSecondAxis ? kCalmWidth : 1.0);
  series->style()->setLinePen(VELPen2D::solid(colorCode, static_cast<float>(width / 2.0)));
  series->style()->setIsDigitalLine(options.digital);
  // Any file may be unsorted: Auto draws such data point by point.
  series->setResamplingMode(options.resampling ? VELResamplingMode_Auto : VELResamplingMode_None);
  if (line.onSecondAxis) series->setYAxisId(kSecondAxisId);
  series->setDataSeries(data);
  return series;
}
