#include "velmora/axes/category_lookup.h"

#include <cmath>

#include "velmora/axes/category_axis_base.h"
#include "velmora/data/category_array_controller.h"

std::shared_ptr<VELCategoryArrayController> VELCategoriesOf(const std::shared_ptr<VELAxisCore>& axis) {
  const auto* categoryAxis = dynamic_cast<const VELCategoryAxisBase*>(axis.get());
  auto categories = categoryAxis ? categoryAxis->categoryController() : nullptr;
  return categories && categories->count() > 0 ? categories : nullptr;
}

VELGenericType VELCategoryAtIndex(const VELCategoryArrayController& categories, const VELGenericType& index) {
  const double whole = std::round(VELGenericDouble(index));
  // In doubles first: what no integer holds is no index either.
  if (!(whole >= 0.0) || !(whole < static_cast<double>(categories.count()))) return {};
  return categories.getCategoryValueAtIndex(static_cast<int64_t>(whole));
}
