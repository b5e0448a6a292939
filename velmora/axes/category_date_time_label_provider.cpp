#include "velmora/axes/category_date_time_label_provider.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <optional>

#include "velmora/axes/axis_core.h"
#include "velmora/axes/category_lookup.h"
#include "velmora/axes/date_time_formatting.h"
#include "velmora/data/category_array_controller.h"

namespace {

constexpr double kSecondsOfDay = 86400.0;
constexpr int32_t kYearsOfDecade = 10;

VELDate categoryAt(const VELCategoryArrayController& categories, const VELGenericType& index) {
  const int64_t last = categories.count() - 1;
  const int64_t existing = std::clamp<int64_t>(VELGenericLong(index), 0, last);
  return VELDate(VELGenericDouble(categories.getCategoryValueAtIndex(existing)));
}

/// Whole calendar years from one date to another; 0 where either is none.
int32_t yearsApart(const VELCalendar& calendar, VELDate first, VELDate last) {
  const auto from = calendar.componentsFromDate(first), to = calendar.componentsFromDate(last);
  return from && to ? std::abs(to->year - from->year) : 0;
}

const std::string& patternFor(const VELAxisCore& axis, const VELDateTimeFormatting& formatting,
                              const VELCategoryArrayController& categories) {
  const VELRangePtr& shown = axis.visibleRange();
  const VELDate first = categoryAt(categories, shown ? shown->min() : VELGenericType(0));
  const VELDate last = categoryAt(categories, shown ? shown->max() : VELGenericType(0));
  const double seconds = last.timeIntervalSince1970() - first.timeIntervalSince1970();
  if (!(std::abs(seconds) > kSecondsOfDay)) return formatting.subDayTextFormatting();
  const int32_t years = yearsApart(formatting.calendar(), first, last);
  if (years == 0) return axis.textFormatting();
  return years < kYearsOfDecade ? formatting.subYearTextFormatting() : formatting.decadesTextFormatting();
}

}  // namespace

std::string VELCategoryDateTimeLabelProvider::formatLabel(const VELGenericType& value) const {
  const auto axis = parentAxis();
  const auto* formatting = dynamic_cast<const VELDateTimeFormatting*>(axis.get());
  const auto categories = VELCategoriesOf(axis);
  if (!formatting || !categories) return {};
  return formatDate(value, patternFor(*axis, *formatting, *categories), *formatting);
}

std::string VELCategoryDateTimeLabelProvider::formatCursorLabel(const VELGenericType& value) const {
  const auto axis = parentAxis();
  const auto* formatting = dynamic_cast<const VELDateTimeFormatting*>(axis.get());
  const auto categories = VELCategoriesOf(axis);
  if (!formatting || !categories) return {};
  const std::string& pattern = axis->cursorTextFormatting();
  return formatDate(VELCategoryAtIndex(*categories, value), pattern.empty() ? lastPattern() : pattern,
                    *formatting);
}
