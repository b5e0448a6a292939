#include "velmora/axes/category_numeric_label_provider.h"

#include "velmora/axes/category_lookup.h"
#include "velmora/data/category_array_controller.h"

std::string VELCategoryNumericLabelProvider::formatLabel(const VELGenericType& value) const {
  if (value.type == VELDataType_None || !VELCategoriesOf(parentAxis())) return {};
  return VELNumericLabelProvider::formatLabel(value);
}

std::string VELCategoryNumericLabelProvider::formatCursorLabel(const VELGenericType& value) const {
  const auto categories = VELCategoriesOf(parentAxis());
  const VELGenericType category = categories ? VELCategoryAtIndex(*categories, value) : VELGenericType();
  if (category.type == VELDataType_None) return {};
  return VELNumericLabelProvider::formatCursorLabel(category);
}
