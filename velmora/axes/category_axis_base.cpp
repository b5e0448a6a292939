#include "velmora/axes/category_axis_base.h"

#include <cmath>

#include "velmora/axes/delta_calculator.h"
#include "velmora/axes/tick_coordinates_provider.h"
#include "velmora/data/category_array_controller.h"
#include "velmora/data/data_series.h"
#include "velmora/data/ranges.h"
#include "velmora/data/recycled.h"

namespace {

constexpr double kHalfSlot = 0.5;

std::shared_ptr<VELCategoryArrayController> categoriesOf(const VELAxisSeries& series, bool isXAxis) {
  const auto data = series.dataSeries();
  if (!data) return nullptr;
  return std::dynamic_pointer_cast<VELCategoryArrayController>(isXAxis ? data->xValues() : data->yValues());
}

// First to last index, or what else stands on the axis, with the slots of both.
VELRangePtr wholeSlots(const VELRangePtr& places) {
  if (!places || !(places->minAsDouble() <= places->maxAsDouble())) return nullptr;
  return VELMakeRecycled<VELDoubleRange>(places->minAsDouble() - kHalfSlot,
                                         places->maxAsDouble() + kHalfSlot);
}

}  // namespace

VELCategoryAxisBase::VELCategoryAxisBase() {
  setTickCoordinatesProvider(std::make_shared<VELCategoryTickCoordinatesProvider>());
}

VELCategoryAxisBase::~VELCategoryAxisBase() = default;

std::shared_ptr<VELCategoryArrayController> VELCategoryAxisBase::categoryController() const {
  const auto surface = parentSurface();
  for (size_t i = 0; surface && i < surface->axisSeriesCount(); ++i) {
    const VELAxisSeries* series = surface->axisSeriesAt(i);
    if (!series || (isXAxis() ? series->xAxisId() : series->yAxisId()) != axisId()) continue;
    if (auto categories = categoriesOf(*series, isXAxis())) return categories;
  }
  return nullptr;
}

VELDeltaCalculator& VELCategoryAxisBase::getDeltaCalculator() const {
  return VELCategoryDeltaCalculator::instance();
}

VELRangePtr VELCategoryAxisBase::getDefaultNonZeroRange() const {
  return VELMakeRecycled<VELDoubleRange>(0, 10);
}

bool VELCategoryAxisBase::isRangeOfValidType(const VELRange& range) const {
  return range.rangeType() == VELRangeType_Numeric;
}

VELGenericType VELCategoryAxisBase::labelValue(double tick) const {
  const auto categories = categoryController();
  const double index = std::round(tick);
  if (!categories || !(index >= 0.0 && index < static_cast<double>(categories->count()))) return tick;
  return categories->getCategoryValueAtIndex(static_cast<int64_t>(index));
}

VELRangePtr VELCategoryAxisBase::seriesXRange(const VELAxisSeries& series) const {
  if (!categoriesOf(series, true)) return wholeSlots(series.getXRange());
  // The column says that it reaches to its count; the slots of its points lie half a step to the left.
  const auto count = static_cast<double>(series.dataSeries()->count());
  if (count == 0.0) return nullptr;
  return VELMakeRecycled<VELDoubleRange>(-kHalfSlot, count - kHalfSlot);
}

VELRangePtr VELCategoryAxisBase::seriesYRange(const VELAxisSeries& series, const VELRange& xRange) const {
  return wholeSlots(series.getYRange(xRange, false));
}
