#include "velmora/series/screen_points.h"

#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "velmora/axes/calculator_stage.h"
#include "velmora/data/point_series.h"
#include "velmora/surface/render_pass_data.h"

namespace {

using Column = std::shared_ptr<VELArrayController>;
using ColumnPair = std::pair<Column, Column>;

/// Pairs of columns that nobody uses. One of more than a million points is not kept.
std::vector<ColumnPair>& idlePairs() {
  static std::vector<ColumnPair> pairs;
  return pairs;
}

ColumnPair borrow() {
  auto& pairs = idlePairs();
  if (pairs.empty())
    return {VELArrayController::initWithType(VELDataType_Double),
            VELArrayController::initWithType(VELDataType_Double)};
  ColumnPair pair = std::move(pairs.back());
  pairs.pop_back();
  pair.first->setCount(0);
  pair.second->setCount(0);
  return pair;
}

void giveBack(ColumnPair pair) {
  constexpr int64_t kKeep = int64_t{1} << 20;
  for (const auto& column : {pair.first, pair.second})
    if (column->currentMaxSize() > kKeep) column->purge();
  idlePairs().push_back(std::move(pair));
}

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

// Every later point adds a corner: the new place along the X axis at the height of the point before. On a
// vertical chart it is the same corner; only what is screen x and screen y changes.
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

// Fills the columns; leaves them empty when nothing can be drawn.
template <class ToX, class ToY>
void place(std::span<const double> xs, std::span<const double> ys, VELScreenPointsForm form, const ToX& toX,
           const ToY& toY, VELArrayController& along, VELArrayController& across) {
  const size_t first = form == VELScreenPointsForm_All ? 0 : firstValid(ys, toY);
  if (first == ys.size()) return;
  xs = xs.subspan(first);
  ys = ys.subspan(first);
  const auto points = static_cast<int64_t>(xs.size());
  const int64_t count = form == VELScreenPointsForm_Steps ? 2 * points - 1 : points;
  along.setCount(count);
  across.setCount(count);
  if (form == VELScreenPointsForm_Steps)
    placeSteps(xs, ys, toX, toY, along.doubleData(), across.doubleData());
  else
    placeStraight(xs, ys, toX, toY, along.doubleData(), across.doubleData());
}

}  // namespace

VELScreenPoints::VELScreenPoints(const VELRenderPassData& data, VELScreenPointsForm form)
    : _isVertical(data.isVerticalChart()) {
  ColumnPair pair = borrow();
  _along = std::move(pair.first);
  _across = std::move(pair.second);
  const auto& series = data.pointSeries();
  if (!series || !data.xCoordinateCalculator() || !data.yCoordinateCalculator()) return;
  const auto xs = series->xSpan();
  const auto ys = series->ySpan();
  if (xs.empty() || xs.size() != ys.size()) return;
  // Both mappings are chosen here, once; the loops have them inlined.
  VELWithCalculatorStage(data.xCoordinateCalculator()->getCalculatorHelper(), [&](const auto& toX) {
    VELWithCalculatorStage(data.yCoordinateCalculator()->getCalculatorHelper(),
                           [&](const auto& toY) { place(xs, ys, form, toX, toY, *_along, *_across); });
  });
}

VELScreenPoints::~VELScreenPoints() { giveBack({std::move(_along), std::move(_across)}); }
