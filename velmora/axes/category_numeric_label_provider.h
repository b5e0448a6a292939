// axes/category_numeric_label_provider.h: the text of a numeric category.
#pragma once

#include <string>

#include "velmora/axes/numeric_label_provider.h"
#include "velmora/platform/export.h"

/// Texts of category numeric axes. Without categories every text is empty.
class VELMORA_API VELCategoryNumericLabelProvider : public VELNumericLabelProvider {
 public:
  /// @param value the category value of a tick, written as on a numeric axis
  std::string formatLabel(const VELGenericType& value) const override;
  /// @param value the index of a category, rounded to a whole one; one that does not exist has no text
  std::string formatCursorLabel(const VELGenericType& value) const override;
};
