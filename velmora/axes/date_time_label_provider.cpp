#include "velmora/axes/date_time_label_provider.h"

#include <memory>

#include "velmora/axes/date_time_axis.h"
#include "velmora/axes/date_time_formatting.h"
#include "velmora/platform/exception.h"

namespace {

constexpr double kSecondsOfDay = 86400.0;
constexpr const char* kPlainPattern = "yyyy-MM-dd";

}  // namespace

std::string VELDateTimeLabelProvider::formatLabel(const VELGenericType& value) const {
  const auto axis = std::dynamic_pointer_cast<VELDateTimeAxis>(parentAxis());
  if (!axis)
    throw VELInternalInconsistencyException(
        "VELDateTimeLabelFormatter is only valid on instances of VELDateTimeAxis");
  const VELRangePtr& shown = axis->visibleRange();
  const bool isLong = shown && VELGenericDouble(shown->diff()) > kSecondsOfDay;
  return formatDate(value, isLong ? axis->textFormatting() : axis->subDayTextFormatting(), *axis);
}

std::string VELDateTimeLabelProvider::formatCursorLabel(const VELGenericType& value) const {
  const auto axis = std::dynamic_pointer_cast<VELDateTimeAxis>(parentAxis());
  if (!axis || axis->cursorTextFormatting().empty()) return formatLabel(value);
  return formatDate(value, axis->cursorTextFormatting(), *axis);
}

std::string VELDateTimeLabelProvider::formatDate(const VELGenericType& date, const std::string& pattern,
                                                 const VELDateTimeFormatting& formatting) const {
  const auto moment = VELGenericDate(date);
  if (!moment) return {};
  // Each costs nothing while it stays; a provider that two axes share follows the one that asks.
  _formatter.setTimeZone(formatting.timeZone());
  _formatter.setLocale(formatting.locale());
  applyPattern(pattern);
  return _formatter.stringFromDate(*moment);
}

void VELDateTimeLabelProvider::applyPattern(const std::string& pattern) const {
  // Tried once, not for each label.
  if (pattern == _refusedPattern) return _formatter.setPattern(kPlainPattern);
  try {
    _formatter.setPattern(pattern);
  } catch (const VELInvalidArgumentException&) {
    _refusedPattern = pattern;
    _formatter.setPattern(kPlainPattern);
  }
}
