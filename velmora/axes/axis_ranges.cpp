// The ranges that an axis takes from the data of its series.
#include <cmath>
#include <limits>

#include "velmora/axes/axis_base.h"
#include "velmora/axes/axis_collection.h"
#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"

namespace {

// A range with finite ends in order. Asked before a conversion to doubles, which puts ends in order and
// would make an inverted, undefined range look like data; one integer value counts, whatever its range says.
bool hasExtent(const VELRangePtr& range) {
  if (!range) return false;
  const double min = range->minAsDouble(), max = range->maxAsDouble();
  return std::isfinite(min) && std::isfinite(max) && min <= max;
}

// Extents of several series, joined. A logarithmic axis cannot show both sides of zero: what lies above wins.
class JoinedExtent {
 public:
  explicit JoinedExtent(const VELAxisBase& axis) : _isLogarithmic(axis.isLogarithmicAxis()) {}

  void include(const VELRangePtr& range) {
    if (!hasExtent(range)) return;
    const VELRangePtr doubles = range->asDoubleRange();
    VELRangePtr& all = _isLogarithmic && doubles->maxAsDouble() < 0.0 ? _below : _above;
    all = all ? all->unionWith(*doubles) : doubles;
  }
  /// Null when nothing was included.
  const VELRangePtr& range() const { return _above ? _above : _below; }

 private:
  bool _isLogarithmic;
  VELRangePtr _above;  ///< of a linear axis everything
  VELRangePtr _below;
};

VELRangePtr undefinedRange() {
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  return VELMakeRecycled<VELDoubleRange>(none, none);
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

VELRangePtr VELAxisBase::seriesXRange(const VELAxisSeries& series) const { return series.getXRange(); }

VELRangePtr VELAxisBase::seriesYRange(const VELAxisSeries& series, const VELRange& xRange) const {
  return series.getYRange(xRange, false);
}

VELRangePtr VELAxisBase::getDataRange() const {
  const auto surface = parentSurface();
  if (!surface) return nullptr;
  JoinedExtent all(*this);
  if (isXAxis()) {
    forEachSeries(*surface, _axisId, &VELAxisSeries::xAxisId,
                  [&](const VELAxisSeries& series) { all.include(seriesXRange(series)); });
    return all.range();
  }
  forEachSeries(*surface, _axisId, &VELAxisSeries::yAxisId, [&](const VELAxisSeries& series) {
    const VELRangePtr xRange = series.getXRange();
    if (hasExtent(xRange)) all.include(seriesYRange(series, *xRange));
  });
  return all.range();
}

VELRangePtr VELAxisBase::getWindowedYRangeWithXRanges(const Ranges* xRanges) const {
  const auto surface = parentSurface();
  if (!surface) return undefinedRange();
  JoinedExtent all(*this);
  forEachSeries(*surface, _axisId, &VELAxisSeries::yAxisId, [&](const VELAxisSeries& series) {
    const VELRangePtr window = xWindow(*surface, series, xRanges);
    if (hasExtent(window)) all.include(seriesYRange(series, *window));
  });
  VELRangePtr range = all.range();
  if (!range) return undefinedRange();
  finishRange(range);
  return range;
}

VELRangePtr VELAxisBase::getMaximumRange(const Ranges* xRanges) const {
  VELRangePtr range;
  if (isXAxis()) {
    range = getDataRange();
    if (range) finishRange(range);
  } else {
    range = getWindowedYRangeWithXRanges(xRanges);
  }
  if (hasExtent(range)) return range->asDoubleRange();
  return (visibleRange() && visibleRange()->isDefined() ? visibleRange() : getDefaultNonZeroRange())
      ->asDoubleRange();
}

void VELAxisBase::finishRange(VELRangePtr& range) const {
  coerceZeroRange(*range);
  if (growBy()) range = grownRange(*range, growBy()->minAsDouble(), growBy()->maxAsDouble());
  // Fractions below zero may leave no width.
  coerceZeroRange(*range);
  p_VEL_tryApplyVisibleRangeLimit(*range);
}

VELRangePtr VELAxisBase::grownRange(const VELRange& range, double minFraction, double maxFraction) const {
  VELRangePtr grown = range.asDoubleRange();
  grown->growMinBy(minFraction, maxFraction);
  return grown;
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

bool VELAxisBase::trySetOrAnimateVisibleRange(const VELRangePtr& range, double duration) {
  if (!range) return false;
  const VELRangePtr own =
      isRangeOfValidType(*range) ? range : toVisibleRangeMin(range->minAsDouble(), range->maxAsDouble());
  if (!isValidRange(own)) return false;
  if (!animationController().animateTo(*own, duration)) setVisibleRange(own);
  return true;
}
