#include "velmora/axes/logarithmic_numeric_axis.h"

#include <cmath>
#include <limits>
#include <string>

#include "velmora/axes/axis_scale.h"
#include "velmora/axes/delta_calculator.h"
#include "velmora/axes/logarithmic_numeric_label_provider.h"
#include "velmora/axes/logarithmic_numeric_tick_provider.h"
#include "velmora/axes/number_format.h"
#include "velmora/data/data_series.h"
#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"
#include "velmora/platform/exception.h"

namespace {

bool isOnOneSideOfZero(const VELRange& range) {
  const double min = range.minAsDouble(), max = range.maxAsDouble();
  return (min > 0.0 && max > 0.0) || (min < 0.0 && max < 0.0);
}

bool isBelowZero(const VELRangePtr& range) { return range && range->maxAsDouble() < 0.0; }

// The least element above zero; infinite when there is none.
double leastAboveZero(const VELColumnView& column) {
  double least = std::numeric_limits<double>::infinity();
  if (column.count == 0) return least;
  VELVisitElements(column, [&](const auto* values) {
    for (int64_t i = 0; i < column.count; ++i) {
      const auto value = static_cast<double>(values[i]);
      if (value > 0.0 && value < least) least = value;
    }
  });
  return least;
}

}  // namespace

VELLogarithmicNumericAxis::VELLogarithmicNumericAxis() {
  setTickProvider(std::make_shared<VELLogarithmicNumericTickProvider>());
  setLabelProvider(std::make_shared<VELLogarithmicNumericLabelProvider>());
}

VELLogarithmicNumericAxis::~VELLogarithmicNumericAxis() = default;

void VELLogarithmicNumericAxis::setLogarithmicBase(double base) {
  if (!(base > 0.0) || std::isinf(base))
    throw VELInvalidArgumentException(VELFormatNumber(base, "%g") +
                                      " is not a valid base for VELLogarithmicNumericAxis");
  _logarithmicBase = base;
  invalidateElement();
}

VELDeltaCalculator& VELLogarithmicNumericAxis::getDeltaCalculator() const {
  // All logarithmic axes share one calculator: each sets its base on each request.
  auto& calculator = VELLogarithmicDeltaCalculator::instance();
  calculator.setLogarithmicBase(_logarithmicBase);
  return calculator;
}

void VELLogarithmicNumericAxis::bindTickProvider(VELTickProvider& provider) const {
  VELNumericAxis::bindTickProvider(provider);
  if (auto* logarithmic = dynamic_cast<VELLogarithmicNumericTickProvider*>(&provider))
    logarithmic->setLogarithmicBase(_logarithmicBase);
}

VELAxisParams VELLogarithmicNumericAxis::getAxisParams() const {
  VELAxisParams params = VELNumericAxis::getAxisParams();
  params.isLogarithmicAxis = true;
  params.logarithmicBase = _logarithmicBase;
  return params;
}

bool VELLogarithmicNumericAxis::isValidRange(const VELRangePtr& range) const {
  return VELNumericAxis::isValidRange(range) && isOnOneSideOfZero(*range);
}

bool VELLogarithmicNumericAxis::isVisibleRangeValid() const {
  if (!isValidRange(visibleRange()) || _logarithmicBase == 1.0) return false;
  const double min = visibleRange()->minAsDouble(), max = visibleRange()->maxAsDouble();
  // Not by a smallest difference: from 1e-20 to 1e-18 there are two whole powers.
  const VELAxisScale scale = VELAxisScale::forBound(true, min);
  const double span = scale.place(max) - scale.place(min);
  return span > 0.0 && std::isfinite(span);
}

void VELLogarithmicNumericAxis::coerceZeroRange(VELRange& range) const {
  const double min = range.minAsDouble(), max = range.maxAsDouble();
  if (max > min) return;
  range.setMinTo(min * (1.0 - zeroRangeGrowBy()), max * (1.0 + zeroRangeGrowBy()));
}

VELRangePtr VELLogarithmicNumericAxis::grownRange(const VELRange& range, double minFraction,
                                                  double maxFraction) const {
  const double min = range.minAsDouble(), max = range.maxAsDouble();
  const VELAxisScale scale = VELAxisScale::forBound(true, min);
  const double span = scale.place(max) - scale.place(min);
  auto grown = VELMakeRecycled<VELDoubleRange>();
  grown->setMinTo(scale.value(scale.place(min) - minFraction * span),
                  scale.value(scale.place(max) + maxFraction * span));
  return grown;
}

VELRangePtr VELLogarithmicNumericAxis::seriesXRange(const VELAxisSeries& series) const {
  VELRangePtr all = series.getXRange();
  if (!all || isOnOneSideOfZero(*all)) return all;
  const auto data = series.dataSeries();
  if (!data || !(all->maxAsDouble() > 0.0)) return nullptr;
  return VELMakeRecycled<VELDoubleRange>(leastAboveZero(data->xValues()->view()), all->maxAsDouble());
}

VELRangePtr VELLogarithmicNumericAxis::seriesYRange(const VELAxisSeries& series,
                                                    const VELRange& xRange) const {
  VELRangePtr above = series.getYRange(xRange, true);
  if (above && above->minAsDouble() > 0.0 && above->maxAsDouble() >= above->minAsDouble()) return above;
  const VELRangePtr all = series.getYRange(xRange, false);
  return isBelowZero(all) ? all : nullptr;
}
