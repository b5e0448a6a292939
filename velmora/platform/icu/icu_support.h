// platform/icu/icu_support.h: names of places and time zones, looked up; dates within what the calendar
// holds.
#pragma once

#include <unicode/gregocal.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <memory>
#include <string>

/// @throws VELInvalidArgumentException naming a locale whose language is unknown
icu::Locale VELICULocale(const std::string& name);
/// @throws VELInvalidArgumentException naming an unknown time zone
std::unique_ptr<icu::TimeZone> VELICUTimeZone(const std::string& name);
/// Name of the process' time zone; "UTC" where nobody knows it.
std::string VELICUCurrentTimeZone();
/// The Gregorian calendar, for all years; the locale says on which day a week begins.
/// @throws VELInvalidArgumentException naming an unknown time zone
std::unique_ptr<icu::GregorianCalendar> VELICUCalendar(const std::string& timeZone,
                                                       const icu::Locale& locale = icu::Locale::getRoot());
/// Milliseconds since 1970, within five million years.
UDate VELICUDate(double secondsSince1970);

std::string VELUtf8From(const icu::UnicodeString& text);
