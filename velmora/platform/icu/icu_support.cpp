#include "velmora/platform/icu/icu_support.h"

#include <algorithm>
#include <limits>

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

std::unique_ptr<icu::TimeZone> VELICUTimeZone(const std::string& name) {
  std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
  if (!zone || *zone == icu::TimeZone::getUnknown())
    throw VELInvalidArgumentException("There is no time zone \"" + name +
                                      "\"; one is written like \"Europe/Berlin\"");
  return zone;
}

std::unique_ptr<icu::GregorianCalendar> VELICUCalendar(const std::string& timeZone) {
  UErrorCode status = U_ZERO_ERROR;
  auto calendar = std::make_unique<icu::GregorianCalendar>(VELICUTimeZone(timeZone).release(),
                                                           icu::Locale::getRoot(), status);
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
