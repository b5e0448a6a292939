#include "velmora/axes/axis_drawing.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "velmora/axes/axis_base.h"
#include "velmora/axes/coordinate_calculator.h"
#include "velmora/axes/label_provider.h"
#include "velmora/platform/scoped_mark.h"
#include "velmora/rendering/render_context.h"

namespace {

// No text is readable at this size: majors closer than this share a label.
constexpr double kSmallestLabel = 8.0;
// A band at the end of the axis that is no wider than this is the rest of a pixel.
constexpr double kSmallestBand = 1.0;

// Smallest distance between neighbours, infinite for fewer than two.
double smallestGap(std::span<const float> coordinates) {
  double gap = std::numeric_limits<double>::infinity();
  for (size_t i = 1; i < coordinates.size(); ++i)
    gap = std::min(gap,
                   std::abs(static_cast<double>(coordinates[i]) - static_cast<double>(coordinates[i - 1])));
  return gap;
}

double widthOf(const VELPenPtr& pen) { return pen ? 2.0 * static_cast<double>(pen->strokeThickness()) : 1.0; }

// A line between two points given along and across the axis.
void drawAlong(VELRenderContext2D& context, const VELPenPtr& pen, bool horizontal, double along, double from,
               double to) {
  const auto a = static_cast<float>(along), f = static_cast<float>(from), t = static_cast<float>(to);
  if (horizontal)
    context.drawLineWithBrush(pen, a, f, a, t);
  else
    context.drawLineWithBrush(pen, f, a, t, a);
}

}  // namespace

void VELAxisDrawing::validate() {
  _isValid = _axis.parentSurface() && _axis.isVisibleRangeValid();
  if (!_isValid) clear();
}

void VELAxisDrawing::clear() {
  _isValid = false;
  _ticks.reset();
  _axis.axisPanel()->clear();
}

void VELAxisDrawing::prepare() {
  const auto surface = _axis.parentSurface();
  // A provider may ask for the very preparation that called it.
  if (!_isValid || !surface || _isPreparing) return;
  const VELScopedMark preparing(_isPreparing);
  if (const auto labels = _axis.labelProvider()) labels->onBeginAxisDraw();
  if (!_axis.currentCoordinateCalculator()) _axis.getCurrentCoordinateCalculator();

  const VELAxisPanel& panel = *_axis.axisPanel();
  _isHorizontal = _axis.isHorizontalAxis();
  _scale = surface->contentScale();
  _chartFrame = surface->chartFrame();
  _panelFrame = panel.frameInChart();
  _hasPanel = panel.superview() != nullptr;
  _offset = _axis.getAxisOffset();
  _size = _axis.getAxisSize();
  // Let go of the last pass' ticks first, so that their memory serves again.
  _ticks.reset();
  _ticks = _axis.CalculateTicks();
  const auto majors = _ticks->getMajorTicks();
  _firstMajor = majors.empty() ? 0 : _axis.p_VEL_getMajorTickIndex(majors.front());
  // What it was now: a provider may replace the range before the bands are drawn.
  _visibleMin = _axis.visibleRange() ? _axis.visibleRange()->minAsDouble() : 0.0;
  _visibleMax = _axis.visibleRange() ? _axis.visibleRange()->maxAsDouble() : 0.0;
  _showsMinors = smallestGap(_ticks->getMinorTickCoordinates()) >= _axis.style().minMinorSpacing();
  requestLabels();
  _axis.axisPanel()->updateWithAxis(_axis, _requests, surface->viewBounds());
}

int32_t VELAxisDrawing::majorIndex(size_t i) const {
  // Each major is one further than the one before it, also where steps are as uneven as months are. The first
  // number may be close to the largest one.
  return static_cast<int32_t>(static_cast<uint32_t>(_firstMajor) + static_cast<uint32_t>(i));
}

VELPixelGrid VELAxisDrawing::gridAlong(const VELRect& area) const {
  if (_isHorizontal) return {_scale, area.x, area.width};
  return {_scale, area.y, area.height};
}

VELPixelGrid VELAxisDrawing::gridAcross(const VELRect& area) const {
  if (_isHorizontal) return {_scale, area.y, area.height};
  return {_scale, area.x, area.width};
}

void VELAxisDrawing::requestLabels() {
  _requests.clear();
  const auto values = _ticks->getMajorTicks();
  const auto coordinates = _ticks->getMajorTickCoordinates();
  const VELPixelGrid grid = gridAlong(_panelFrame);
  const double width = widthOf(_axis.style().majorTickPen());
  // Majors too close for any text are passed over here, by index, so that a dense axis measures no more
  // labels than could stand beside it.
  const double stride = std::max(1.0, std::ceil(kSmallestLabel / smallestGap(coordinates)));
  const auto step = static_cast<int32_t>(std::bit_ceil(static_cast<uint32_t>(std::min(stride, 1e9))));
  for (size_t i = 0; i < values.size(); ++i) {
    const int32_t index = majorIndex(i);
    if (index % step != 0) continue;
    const double centre = static_cast<double>(coordinates[i]) - _offset;
    _requests.push_back({values[i], _hasPanel ? grid.snapLine(centre, width) : centre, index});
  }
}

void VELAxisDrawing::drawTicks(VELRenderContext2D& context) const {
  if (!_isValid || !_ticks || !_hasPanel) return;
  const VELAxisStyle& style = _axis.style();
  context.setDrawingArea(_panelFrame);
  drawBaseline(context, style.majorTickPen());
  if (style.drawMinorTicks() && _showsMinors)
    drawTickMarks(context, _ticks->getMinorTickCoordinates(), style.minorTickPen(), style.minorTickSize());
  if (style.drawMajorTicks())
    drawTickMarks(context, _ticks->getMajorTickCoordinates(), style.majorTickPen(), style.majorTickSize());
}

// Ticks of the innermost axis stand on the border of the chart; those further out need a line of their own.
void VELAxisDrawing::drawBaseline(VELRenderContext2D& context, const VELPenPtr& pen) const {
  const VELAxisAlignment side = _axis.effectiveAlignment();
  const double depth = _isHorizontal ? _panelFrame.height : _panelFrame.width;
  const double gap = side == VELAxisAlignment_Left    ? _chartFrame.x - _panelFrame.right()
                     : side == VELAxisAlignment_Right ? _panelFrame.x - _chartFrame.right()
                     : side == VELAxisAlignment_Top   ? _chartFrame.y - _panelFrame.bottom()
                                                      : _panelFrame.y - _chartFrame.bottom();
  if (!pen || gap < 1.0) return;
  const bool frameIsFar = side == VELAxisAlignment_Left || side == VELAxisAlignment_Top;
  const VELPixelGrid across = gridAcross(_panelFrame);
  // Inside the panel by half its width.
  const double inset = widthOf(pen) / 2.0;
  const double at = across.snapLine(frameIsFar ? depth - inset : inset, widthOf(pen));
  drawAlong(context, pen, !_isHorizontal, at, 0.0, _isHorizontal ? _panelFrame.width : _panelFrame.height);
}

void VELAxisDrawing::drawTickMarks(VELRenderContext2D& context, std::span<const float> coordinates,
                                   const VELPenPtr& pen, double size) const {
  if (!pen || !(size > 0.0)) return;
  const VELPixelGrid grid = gridAlong(_panelFrame);
  const VELPixelGrid across = gridAcross(_panelFrame);
  const VELAxisAlignment side = _axis.effectiveAlignment();
  // Left and top panels end at the chart frame, right and bottom panels begin there.
  const bool frameIsFar = side == VELAxisAlignment_Left || side == VELAxisAlignment_Top;
  const double from = frameIsFar ? across.length : 0.0;
  const double to = across.snapEdge(frameIsFar ? from - size : size);
  for (const float coordinate : coordinates) {
    const double along = grid.snapLine(static_cast<double>(coordinate) - _offset, widthOf(pen));
    drawAlong(context, pen, _isHorizontal, along, from, to);
  }
}

void VELAxisDrawing::prepareGrid(VELRenderContext2D& context) const {
  if (_isValid) context.setDrawingArea(_chartFrame);
}

void VELAxisDrawing::drawMinorGridLines(VELRenderContext2D& context) const {
  if (!_isValid || !_ticks || !_showsMinors || !_axis.style().drawMinorGridLines()) return;
  drawGridLines(context, _ticks->getMinorTickCoordinates(), _axis.style().minorGridLinePen());
}

void VELAxisDrawing::drawMajorGridLines(VELRenderContext2D& context) const {
  if (!_isValid || !_ticks || !_axis.style().drawMajorGridLines()) return;
  drawGridLines(context, _ticks->getMajorTickCoordinates(), _axis.style().majorGridLinePen());
}

void VELAxisDrawing::drawGridLines(VELRenderContext2D& context, std::span<const float> coordinates,
                                   const VELPenPtr& pen) const {
  if (!pen) return;
  const VELPixelGrid grid = gridAlong(_chartFrame);
  const double across = _isHorizontal ? _chartFrame.height : _chartFrame.width;
  for (const float coordinate : coordinates)
    drawAlong(context, pen, _isHorizontal, grid.snapLine(static_cast<double>(coordinate), widthOf(pen)), 0.0,
              across);
}

void VELAxisDrawing::drawBands(VELRenderContext2D& context) const {
  const auto& calculator = _axis.currentCoordinateCalculator();
  if (!_isValid || !_ticks || !calculator || !_axis.style().drawMajorBands()) return;
  const double step = VELGenericDouble(_axis.majorDelta());
  const auto values = _ticks->getMajorTicks();
  if (values.empty() || !(step > 0.0)) return;

  const double min = calculator->getCoordinateFrom(_visibleMin);
  const double max = calculator->getCoordinateFrom(_visibleMax);
  const double start = _offset, end = _offset + _size;
  const auto coordinates = _ticks->getMajorTickCoordinates();
  // A gap has the number of the major below it, whichever gaps are in sight: bands move with the data.
  const bool firstIsEven = majorIndex(0) % 2 == 0;
  double from = min < max ? start : end;
  if (!firstIsEven && std::abs(from - static_cast<double>(coordinates.front())) > kSmallestBand)
    drawBand(context, from, static_cast<double>(coordinates.front()));
  for (size_t i = 0; i < values.size(); ++i) {
    if (majorIndex(i) % 2 != 0) continue;
    from = static_cast<double>(coordinates[i]);
    const bool isLast = i + 1 == values.size();
    const double to = !isLast ? static_cast<double>(coordinates[i + 1]) : min < max ? end : start;
    if (!isLast || std::abs(to - from) > kSmallestBand) drawBand(context, from, to);
  }
}

void VELAxisDrawing::drawBand(VELRenderContext2D& context, double from, double to) const {
  const VELBrushPtr& brush = _axis.style().gridBandBrush();
  if (!brush) return;
  const VELPixelGrid grid = gridAlong(_chartFrame);
  const auto low = static_cast<float>(grid.snapEdge(std::min(from, to)));
  const auto high = static_cast<float>(grid.snapEdge(std::max(from, to)));
  if (!(low < high)) return;
  if (_isHorizontal)
    context.drawRectWithBrush(brush, low, 0.0f, high, static_cast<float>(_chartFrame.height));
  else
    context.drawRectWithBrush(brush, 0.0f, low, static_cast<float>(_chartFrame.width), high);
}
