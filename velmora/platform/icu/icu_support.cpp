#include "velmora/platform/icu/icu_support.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "velmora/platform/exception.h"

icu::Locale VELICULocale(const std::string& name) {
  icu::Locale locale = icu::Locale::createCanonical(name.c_str());
  int32_t count = 0;
  const icu::Locale* known = icu::Locale::getAvailableLocales(count);
  const auto sameLanguage = [&locale](const icu::Locale& candidate) {
    return std::string_view(candidate.getLanguage()) == locale.getLanguage();
  };
  // A country without data of its own is fine: the language's general habits serve.
  if (locale.isBogus() || std::none_of(known, known + count, sameLanguage))
    throw VELInvalidArgumentException("There is no locale \"" + name +
                                      "\"; language and place are written like \"en_US\"");
  return locale;
}

namespace {

/// Null when nobody knows the name. The zone that ICU makes then, and hands out by its own name, too, can be
/// told by that name alone.
std::unique_ptr<icu::TimeZone> knownZone(const icu::UnicodeString& name) {
  std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(name));
  icu::UnicodeString found;
  return zone && zone->getID(found) != icu::UnicodeString(UCAL_UNKNOWN_ZONE_ID) ? std::move(zone) : nullptr;
}

}  // namespace

std::unique_ptr<icu::TimeZone> VELICUTimeZone(const std::string& name) {
  std::unique_ptr<icu::TimeZone> zone = knownZone(icu::UnicodeString::fromUTF8(name));
  if (!zone)
    throw VELInvalidArgumentException("There is no time zone \"" + name +
                                      "\"; one is written like \"Europe/Berlin\"");
  return zone;
}

std::string VELICUCurrentTimeZone() {
  const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
  icu::UnicodeString name;
  if (zone) zone->getID(name);
  // A machine may name a zone that has no data here; then its clocks are unknown, not the application wrong.
  return knownZone(name) ? VELUtf8From(name) : "UTC";
}

std::unique_ptr<icu::GregorianCalendar> VELICUCalendar(const std::string& timeZone,
                                                       const icu::Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  auto calendar =
      std::make_unique<icu::GregorianCalendar>(VELICUTimeZone(timeZone).release(), locale, status);
  // One calendar for all times: days are counted alike before 1582.
  calendar->setGregorianChange(-std::numeric_limits<double>::max(), status);
  calendar->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
  if (U_FAILURE(status))
    throw VELInternalInconsistencyException(std::string("The calendar cannot be made: ") +
                                            u_errorName(status));
  return calendar;
}

UDate VELICUDate(double secondsSince1970) {
  constexpr double kFarthest = 5.0e6 * 31556952.0;
  return std::clamp(secondsSince1970, -kFarthest, kFarthest) * 1000.0;
}

std::string VELUtf8From(const icu::UnicodeString& text) {
  std::string result;
  text.toUTF8String(result);
  return result;
}
