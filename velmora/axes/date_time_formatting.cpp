#include "velmora/axes/date_time_formatting.h"

#include <utility>

#include "velmora/platform/locale.h"

VELDateTimeFormatting::VELDateTimeFormatting()
    : _subDayTextFormatting("hh:mm:ss"),
      _subYearTextFormatting("dd MMM yyyy"),
      _decadesTextFormatting("yyyy"),
      _calendar(VELCalendar::current()),
      _locale(VELCurrentLocale()) {}

VELDateTimeFormatting::~VELDateTimeFormatting() = default;

void VELDateTimeFormatting::setSubDayTextFormatting(std::string pattern) {
  _subDayTextFormatting = std::move(pattern);
  formattingChanged();
}

void VELDateTimeFormatting::setSubYearTextFormatting(std::string pattern) {
  _subYearTextFormatting = std::move(pattern);
  formattingChanged();
}

void VELDateTimeFormatting::setDecadesTextFormatting(std::string pattern) {
  _decadesTextFormatting = std::move(pattern);
  formattingChanged();
}

void VELDateTimeFormatting::setTimeZone(const std::string& name) {
  _calendar = name.empty() ? VELCalendar::current() : std::make_shared<const VELCalendar>(name);
  formattingChanged();
}

void VELDateTimeFormatting::setLocale(const std::string& name) {
  _locale = name.empty() ? VELCurrentLocale() : VELKnownLocale(name);
  formattingChanged();
}
