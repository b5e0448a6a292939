#include "velmora/series/renderable_series_drawing_helper.h"

#include <cmath>
#include <cstdint>
#include <memory>
#include <span>

#include "velmora/axes/calculator_stage.h"
#include "velmora/data/array_controller.h"
#include "velmora/data/point_series.h"
#include "velmora/surface/render_pass_data.h"

namespace {

/// Screen points on their way to the context. They are kept from draw to draw, so that a steady frame
/// allocates nothing; above a million points the memory goes back at once.
class ScreenPoints {
 public:
  static ScreenPoints& instance() {
    static ScreenPoints points;
    return points;
  }

  void resize(int64_t count) {
    _along->setCount(count);
    _across->setCount(count);
  }
  void release() {
    constexpr int64_t kKeep = int64_t{1} << 20;
    for (const auto& column : {_along, _across})
      if (column->currentMaxSize() > kKeep) column->purge();
  }

  /// Coordinates along the X axis of the chart.
  VELArrayController& along() { return *_along; }
  /// Coordinates along its Y axis.
  VELArrayController& across() { return *_across; }

 private:
  std::shared_ptr<VELArrayController> _along = VELArrayController::initWithType(VELDataType_Double);
  std::shared_ptr<VELArrayController> _across = VELArrayController::initWithType(VELDataType_Double);
};

/// Index of the first point with a Y coordinate, or count.
template <class ToY>
size_t firstValid(std::span<const double> ys, const ToY& toY) {
  size_t i = 0;
  while (i < ys.size() && std::isnan(toY(ys[i]))) ++i;
  return i;
}

template <class ToX, class ToY>
void placeStraight(std::span<const double> xs, std::span<const double> ys, const ToX& toX, const ToY& toY,
                   double* along, double* across) {
  for (size_t i = 0; i < xs.size(); ++i) along[i] = toX(xs[i]);
  for (size_t i = 0; i < ys.size(); ++i) across[i] = toY(ys[i]);
}

// Every later point adds a corner: the new place along the X axis at the height of the point before.
template <class ToX, class ToY>
void placeSteps(std::span<const double> xs, std::span<const double> ys, const ToX& toX, const ToY& toY,
                double* along, double* across) {
  double height = toY(ys[0]);
  *along++ = toX(xs[0]);
  *across++ = height;
  for (size_t i = 1; i < xs.size(); ++i) {
    const double place = toX(xs[i]);
    *along++ = place;
    *across++ = height;
    height = toY(ys[i]);
    *along++ = place;
    *across++ = height;
  }
}

// Fills `points`; leaves them empty when nothing can be drawn.
template <class ToX, class ToY>
void place(std::span<const double> xs, std::span<const double> ys, bool isDigitalLine, const ToX& toX,
           const ToY& toY, ScreenPoints& points) {
  const size_t first = firstValid(ys, toY);
  if (first == ys.size()) return;
  xs = xs.subspan(first);
  ys = ys.subspan(first);
  const auto count = static_cast<int64_t>(xs.size());
  points.resize(isDigitalLine ? 2 * count - 1 : count);
  double* along = points.along().doubleData();
  double* across = points.across().doubleData();
  if (isDigitalLine)
    placeSteps(xs, ys, toX, toY, along, across);
  else
    placeStraight(xs, ys, toX, toY, along, across);
}

}  // namespace

void VELRenderableSeriesDrawingHelper::drawPolylineToContext(VELRenderContext2D& context,
                                                             const VELRenderPassData& data,
                                                             const VELPenPtr& pen, bool isDigitalLine, bool) {
  const auto& series = data.pointSeries();
  if (!series || !pen || !data.xCoordinateCalculator() || !data.yCoordinateCalculator()) return;
  auto xs = series->xSpan();
  auto ys = series->ySpan();
  if (xs.empty() || xs.size() != ys.size()) return;

  // Both mappings are chosen here, once; the loops below have them inlined.
  ScreenPoints& points = ScreenPoints::instance();
  points.resize(0);
  VELWithCalculatorStage(data.xCoordinateCalculator()->getCalculatorHelper(), [&](const auto& toX) {
    VELWithCalculatorStage(data.yCoordinateCalculator()->getCalculatorHelper(),
                           [&](const auto& toY) { place(xs, ys, isDigitalLine, toX, toY, points); });
  });
  if (points.along().isEmpty()) return;
  context.beginNewPrimitive();
  // On a vertical chart the X axis runs down the screen.
  if (data.isVerticalChart())
    context.drawPolylineWithBrush(pen, points.across(), points.along(), 0);
  else
    context.drawPolylineWithBrush(pen, points.along(), points.across(), 0);
  points.release();
}
