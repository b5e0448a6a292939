// The ranges that an axis takes from the data of its series.
#include <cmath>
#include <limits>

#include "velmora/axes/axis_base.h"
#include "velmora/axes/axis_collection.h"
#include "velmora/data/ranges.h"

namespace {

// A range with finite ends in order. Asked before a conversion to doubles, which puts ends in order and
// would make an inverted, undefined range look like data; one integer value counts, whatever its range says.
bool hasExtent(const VELRangePtr& range) {
  if (!range) return false;
  const double min = range->minAsDouble(), max = range->maxAsDouble();
  return std::isfinite(min) && std::isfinite(max) && min <= max;
}

void include(VELRangePtr& all, const VELRangePtr& range) {
  if (!hasExtent(range)) return;
  const VELRangePtr doubles = range->asDoubleRange();
  all = all ? all->unionWith(*doubles) : doubles;
}

VELRangePtr undefinedRange() {
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  return std::make_shared<VELDoubleRange>(none, none);
}

// Calls `use` with every series of the surface that is visible, has data, and hangs on an axis by `id`.
template <class Id, class Use>
void forEachSeries(const VELAxisSurface& surface, const std::string& axisId, Id id, Use use) {
  for (size_t i = 0; i < surface.axisSeriesCount(); ++i) {
    const VELAxisSeries* series = surface.axisSeriesAt(i);
    if (series && (series->*id)() == axisId && series->isVisible() && series->dataSeries()) use(*series);
  }
}

VELRangePtr xWindow(const VELAxisSurface& surface, const VELAxisSeries& series,
                    const VELAxisBase::Ranges* xRanges) {
  if (xRanges) {
    const auto given = xRanges->find(series.xAxisId());
    if (given != xRanges->end()) return given->second;
  }
  const auto axis = surface.xAxes() ? surface.xAxes()->getAxisById(series.xAxisId()) : nullptr;
  return axis ? axis->visibleRange() : nullptr;
}

}  // namespace

VELRangePtr VELAxisBase::getDataRange() const {
  const auto surface = parentSurface();
  if (!surface) return nullptr;
  VELRangePtr all;
  if (isXAxis()) {
    forEachSeries(*surface, _axisId, &VELAxisSeries::xAxisId,
                  [&all](const VELAxisSeries& series) { include(all, series.getXRange()); });
    return all;
  }
  forEachSeries(*surface, _axisId, &VELAxisSeries::yAxisId, [&all](const VELAxisSeries& series) {
    const VELRangePtr xRange = series.getXRange();
    if (hasExtent(xRange)) include(all, series.getYRange(*xRange, false));
  });
  return all;
}

VELRangePtr VELAxisBase::getWindowedYRangeWithXRanges(const Ranges* xRanges) const {
  const auto surface = parentSurface();
  VELRangePtr all;
  if (surface) {
    forEachSeries(*surface, _axisId, &VELAxisSeries::yAxisId, [&](const VELAxisSeries& series) {
      const VELRangePtr window = xWindow(*surface, series, xRanges);
      if (hasExtent(window)) include(all, series.getYRange(*window, isLogarithmicAxis()));
    });
  }
  if (!all) return undefinedRange();
  finishRange(all);
  return all;
}

VELRangePtr VELAxisBase::getMaximumRange() const {
  VELRangePtr range;
  if (isXAxis()) {
    range = getDataRange();
    if (range) finishRange(range);
  } else {
    range = getWindowedYRangeWithXRanges();
  }
  if (hasExtent(range)) return range->asDoubleRange();
  return (visibleRange() && visibleRange()->isDefined() ? visibleRange() : getDefaultNonZeroRange())
      ->asDoubleRange();
}

void VELAxisBase::finishRange(VELRangePtr& range) const {
  coerceZeroRange(*range);
  if (growBy())
    range = range->growMinBy(growBy()->min(), growBy()->max(), isLogarithmicAxis(), logarithmicBase());
  // Fractions below zero may leave no width.
  coerceZeroRange(*range);
  p_VEL_tryApplyVisibleRangeLimit(*range);
}

void VELAxisBase::coerceZeroRange(VELRange& range) const {
  if (range.isZero()) range.growMinBy(zeroRangeGrowBy(), zeroRangeGrowBy());
}

void VELAxisBase::p_VEL_tryApplyVisibleRangeLimit(VELRange& range) const {
  if (_visibleRangeLimit) range.clipTo(*_visibleRangeLimit);
}

void VELAxisBase::setVisibleRangeLimit(const VELRangePtr& limit) {
  _visibleRangeLimit = limit ? limit->clone() : nullptr;
  invalidateElement();
}

bool VELAxisBase::trySetOrAnimateVisibleRange(const VELRangePtr& range) {
  return trySetOrAnimateVisibleRange(range, animateVisibleRangeChanges() ? animatedChangeDuration() : 0.0);
}

bool VELAxisBase::trySetOrAnimateVisibleRange(const VELRangePtr& range, double) {
  if (!isValidRange(range)) return false;
  setVisibleRange(range);
  return true;
}
