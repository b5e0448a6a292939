#include "examples/plot/plot_axes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "examples/plot/label_formats.h"
#include "examples/plot/legend.h"
#include "examples/plot/log_ticks.h"
#include "examples/plot/plot_series.h"
#include "velmora/velmora.h"

namespace {

constexpr double kGrowY = 0.05;
constexpr double kDay = 86400.0;

struct Extent {
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -std::numeric_limits<double>::infinity();

  void add(double value) {
    if (value < lowest) lowest = value;
    if (value > highest) highest = value;
  }
};

Extent extentOfX(const PlotColumns& columns) {
  Extent extent;
  for (const PlotLine& line : columns.lines)
    for (const double value : line.x) extent.add(value);
  return extent;
}

Extent extentOfY(const PlotColumns& columns, bool onSecondAxis) {
  Extent extent;
  for (const PlotLine& line : columns.lines) {
    if (line.onSecondAxis != onSecondAxis) continue;
    for (const double value : line.y) extent.add(value);
  }
  return extent;
}

template <class Axis>
std::shared_ptr<VELAxisBase> makeDateAxis(const PlotOptions& options) {
  auto axis = std::make_shared<Axis>();
  if (!options.timeZone.empty()) axis->setTimeZone(options.timeZone);
  if (!options.locale.empty()) axis->setLocale(options.locale);
  return axis;
}

// Labels of numbers from a smallest to a largest one.
void formatNumbers(VELAxisBase& axis, const Extent& extent) {
  if (readInMillions(extent.lowest, extent.highest))
    axis.setLabelProvider(std::make_shared<MillionsLabelProvider>());
  else
    axis.setTextFormatting(numberFormat(extent.lowest, extent.highest));
}

std::shared_ptr<VELAxisBase> makeLogarithmicAxis(const Extent& extent) {
  auto axis = std::make_shared<VELLogarithmicNumericAxis>();
  if (!(powersBetween(extent.lowest, extent.highest) < PlainLogTicks::manyPowers)) return axis;
  axis->setTickProvider(std::make_shared<PlainLogTicks>());
  axis->setLabelProvider(std::make_shared<VELNumericLabelProvider>());
  formatNumbers(*axis, extent);
  return axis;
}

std::shared_ptr<VELAxisBase> makeNumberAxis(bool isLogarithmic, const Extent& extent) {
  if (isLogarithmic) return makeLogarithmicAxis(extent);
  auto axis = std::make_shared<VELNumericAxis>();
  formatNumbers(*axis, extent);
  return axis;
}

std::shared_ptr<VELAxisBase> makeX(const PlotColumns& columns, const PlotOptions& options) {
  if (columns.xKind == PlotXKind::Date) return makeDateAxis<VELDateTimeAxis>(options);
  if (columns.xKind == PlotXKind::CategoryDate) return makeDateAxis<VELCategoryDateTimeAxis>(options);
  const Extent extent = extentOfX(columns);
  if (columns.xKind == PlotXKind::Number) return makeNumberAxis(options.logX, extent);
  auto axis = std::make_shared<VELCategoryNumericAxis>();
  axis->setTextFormatting(numberFormat(extent.lowest, extent.highest));
  return axis;
}

std::string titleOf(const PlotColumns& columns, bool onSecondAxis) {
  std::string title;
  for (const PlotLine& line : columns.lines)
    if (line.onSecondAxis == onSecondAxis) title += (title.empty() ? "" : ", ") + line.name;
  return shortenedName(title);
}

// Text needs more contrast than a line.
uint32_t textColor(uint32_t lineColor) {
  constexpr uint32_t kDarker = 60;  // percent
  uint32_t color = lineColor & 0xFF000000u;
  for (const uint32_t shift : {0u, 8u, 16u})
    color |= ((lineColor >> shift & 0xFFu) * kDarker / 100u) << shift;
  return color;
}

void colorLike(VELAxisStyle& style, uint32_t lineColor) {
  style.titleStyle().setColorCode(textColor(lineColor));
  style.labelStyle().setColorCode(textColor(lineColor));
  style.setMajorTickPen(
      VELPen2D::solid(lineColor, static_cast<float>(VELVisualStyle::standard().tickWidth / 2.0)));
}

std::shared_ptr<VELAxisBase> makeY(const PlotColumns& columns, const std::vector<uint32_t>& colors,
                                   bool isSecond, bool isLogarithmic) {
  auto axis = makeNumberAxis(isLogarithmic, extentOfY(columns, isSecond));
  axis->setGrowBy(std::make_shared<VELDoubleRange>(kGrowY, kGrowY));
  const size_t count =
      isSecond ? columns.lines.size() - columns.countOnFirstAxis() : columns.countOnFirstAxis();
  if (count == 1 || columns.hasSecondAxis()) axis->setAxisTitle(titleOf(columns, isSecond));
  const auto line = std::find_if(columns.lines.begin(), columns.lines.end(),
                                 [isSecond](const PlotLine& one) { return one.onSecondAxis == isSecond; });
  if (count == 1 && columns.hasSecondAxis())
    colorLike(axis->style(), colors[static_cast<size_t>(line - columns.lines.begin())]);
  return axis;
}

// Two grids in one chart would belong to nothing.
void hideGrid(VELAxisStyle& style) {
  style.setDrawMajorGridLines(false);
  style.setDrawMinorGridLines(false);
  style.setDrawMajorBands(false);
}

// Seconds that the dates are whole multiples of: what a label between them must be able to say.
double resolutionOf(const PlotColumns& columns) {
  const auto areMultiplesOf = [&columns](double unit) {
    const auto isMultiple = [unit](double value) { return std::fmod(value, unit) == 0.0; };
    const std::vector<double>& dates = columns.lines.front().x;
    return std::all_of(dates.begin(), dates.end(), isMultiple);
  };
  for (const double unit : {60.0, 1.0})
    if (areMultiplesOf(unit)) return unit;
  return 0.0;
}

DatePatterns patternsFor(VELDateTimeAxis& axis, const PlotColumns&) {
  const VELRangePtr range = axis.getMaximumRange();
  axis.trySetOrAnimateVisibleRange(axis.toVisibleRangeMin(range->min(), range->max()));
  axis.calculateDelta();
  return datePatterns(range->minAsDouble(), range->maxAsDouble(), VELGenericDouble(axis.majorDelta()), true,
                      axis.calendar());
}

DatePatterns patternsFor(VELCategoryDateTimeAxis& axis, const PlotColumns& columns) {
  const Extent extent = extentOfX(columns);
  double step = (extent.highest - extent.lowest) / axis.getMaxAutoTicks();
  if (!(step > 0.0)) step = kDay;
  if (step < kDay) step = std::min(step, resolutionOf(columns));
  return datePatterns(extent.lowest, extent.highest, step, false, axis.calendar());
}

template <class Axis>
bool formatDatesOf(VELAxisBase& x, const PlotColumns& columns) {
  auto* const axis = dynamic_cast<Axis*>(&x);
  if (!axis) return false;
  const DatePatterns patterns = patternsFor(*axis, columns);
  axis->setTextFormatting(patterns.label);
  axis->setSubDayTextFormatting(patterns.label);
  axis->setSubYearTextFormatting(patterns.label);
  axis->setDecadesTextFormatting(patterns.label);
  if (patterns.context.empty()) return true;
  const VELDateFormatter context(patterns.context, axis->locale(), axis->timeZone());
  const VELDate first(extentOfX(columns).lowest);
  axis->setAxisTitle(axis->axisTitle() + " (" + context.stringFromDate(first) + ")");
  return true;
}

}  // namespace

PlotAxes addAxes(VELChartSurface& surface, const PlotColumns& columns, const std::vector<uint32_t>& colors,
                 const PlotOptions& options) {
  PlotAxes axes;
  axes.x = makeX(columns, options);
  axes.x->setAxisTitle(columns.xName);
  axes.x->setAxisAlignment(options.vertical ? VELAxisAlignment_Left : VELAxisAlignment_Bottom);
  axes.x->setFlipCoordinates(options.flipX);
  surface.attachAxis(axes.x, true);

  axes.y = makeY(columns, colors, false, options.logY);
  axes.y->setAxisAlignment(options.vertical ? VELAxisAlignment_Bottom : VELAxisAlignment_Left);
  // Y axes grow to the left in a vertical chart; people read numbers to the right.
  axes.y->setFlipCoordinates(options.flipY != options.vertical);
  surface.attachAxis(axes.y, false);
  if (!columns.hasSecondAxis()) return axes;

  axes.y2 = makeY(columns, colors, true, false);
  axes.y2->setAxisId(kSecondAxisId);
  axes.y2->setFlipCoordinates(options.vertical);
  axes.y2->setAxisAlignment(options.vertical ? VELAxisAlignment_Top : VELAxisAlignment_Right);
  hideGrid(axes.y2->style());
  surface.attachAxis(axes.y2, false);
  return axes;
}

void formatDates(VELAxisBase& x, const PlotColumns& columns) {
  if (!formatDatesOf<VELDateTimeAxis>(x, columns)) formatDatesOf<VELCategoryDateTimeAxis>(x, columns);
}
