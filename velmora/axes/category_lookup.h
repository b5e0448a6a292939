// axes/category_lookup.h: the category that a place on a category axis stands for.
#pragma once

#include <memory>

#include "velmora/data/generic_type.h"

class VELAxisCore;
class VELCategoryArrayController;

/// The categories of an axis; null for an axis without any, or one that is no category axis.
std::shared_ptr<VELCategoryArrayController> VELCategoriesOf(const std::shared_ptr<VELAxisCore>& axis);

/// The category at an index, which is rounded to a whole one; tag None where there is none.
VELGenericType VELCategoryAtIndex(const VELCategoryArrayController& categories, const VELGenericType& index);
