#include "velmora/platform/date_formatter.h"

#include <unicode/smpdtfmt.h>

#include <cmath>
#include <utility>

#include "velmora/platform/exception.h"
#include "velmora/platform/icu/icu_support.h"

struct VELDateFormatter::Engine {
  std::unique_ptr<icu::SimpleDateFormat> format;
  // Given to each call: left alone, the format copies its own one for every date.
  std::unique_ptr<icu::GregorianCalendar> calendar;

  Engine(const std::string& pattern, const std::string& locale, const std::string& timeZone) {
    const icu::Locale place = VELICULocale(locale);
    calendar = VELICUCalendar(timeZone, place);
    UErrorCode status = U_ZERO_ERROR;
    format = std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString::fromUTF8(pattern), place, status);
    if (U_FAILURE(status))
      throw VELInternalInconsistencyException(std::string("The date formatter cannot be made: ") +
                                              u_errorName(status));
    // Also in places that count years in another calendar.
    format->adoptCalendar(calendar->clone());
  }
};

namespace {

/// A letter that means nothing is found only by formatting something.
bool isUsable(const icu::SimpleDateFormat& format) {
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString text;
  format.format(UDate{0.0}, text, nullptr, status);
  return U_SUCCESS(status) != 0;
}

}  // namespace

VELDateFormatter::VELDateFormatter(const std::string& pattern, const std::string& locale,
                                   const std::string& timeZone)
    : _locale(locale), _timeZone(timeZone), _engine(std::make_unique<Engine>("", locale, timeZone)) {
  setPattern(pattern);
}

VELDateFormatter::~VELDateFormatter() = default;

void VELDateFormatter::setPattern(const std::string& pattern) {
  if (pattern == _pattern) return;
  _engine->format->applyPattern(icu::UnicodeString::fromUTF8(pattern));
  if (!isUsable(*_engine->format)) {
    _engine->format->applyPattern(icu::UnicodeString::fromUTF8(_pattern));
    throw VELInvalidArgumentException("\"" + pattern +
                                      "\" is no date pattern; one is written like \"yyyy-MM-dd\"");
  }
  _pattern = pattern;
}

void VELDateFormatter::setLocale(const std::string& locale) {
  if (locale == _locale) return;
  _engine = std::make_unique<Engine>(_pattern, locale, _timeZone);
  _locale = locale;
}

void VELDateFormatter::setTimeZone(const std::string& timeZone) {
  if (timeZone == _timeZone) return;
  _engine->calendar->adoptTimeZone(VELICUTimeZone(timeZone).release());
  _engine->format->setTimeZone(_engine->calendar->getTimeZone());
  _timeZone = timeZone;
}

std::string VELDateFormatter::stringFromDate(VELDate date) const {
  const double seconds = date.timeIntervalSince1970();
  if (!std::isfinite(seconds)) return {};
  UErrorCode status = U_ZERO_ERROR;
  _engine->calendar->setTime(VELICUDate(seconds), status);
  icu::UnicodeString text;
  icu::FieldPosition nowhere(icu::FieldPosition::DONT_CARE);
  _engine->format->format(*_engine->calendar, text, nowhere);
  return VELUtf8From(text);
}
