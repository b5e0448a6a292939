// axes/category_date_time_label_provider.h: the text of a category that is a moment.
#pragma once

#include <string>

#include "velmora/axes/date_time_label_provider.h"
#include "velmora/platform/export.h"

/// Texts of category date-time axes. Without categories every text is empty.
class VELMORA_API VELCategoryDateTimeLabelProvider : public VELDateTimeLabelProvider {
 public:
  /// @param value the category value of a tick, a date
  ///
  /// The pattern follows the first and the last category in view: `subDayTextFormatting` up to 86400 seconds
  /// apart, `textFormatting` within one calendar year, `subYearTextFormatting` fewer than ten years apart,
  /// else `decadesTextFormatting`.
  std::string formatLabel(const VELGenericType& value) const override;
  /// @param value the index of a category, rounded to a whole one; one that does not exist has no text.
  /// In the axis' `cursorTextFormatting`; without one in the pattern that was used last, so that a cursor
  /// reads like the labels.
  std::string formatCursorLabel(const VELGenericType& value) const override;
};
