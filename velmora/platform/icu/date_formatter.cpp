#include "velmora/platform/date_formatter.h"

#include <unicode/smpdtfmt.h>

#include <cmath>
#include <utility>

#include "velmora/platform/exception.h"
#include "velmora/platform/icu/icu_support.h"

struct VELDateFormatter::Engine {
  std::unique_ptr<icu::SimpleDateFormat> format;
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
    : _locale(locale), _engine(std::make_unique<Engine>()) {
  UErrorCode status = U_ZERO_ERROR;
  _engine->format =
      std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString(), VELICULocale(locale), status);
  if (U_FAILURE(status))
    throw VELInternalInconsistencyException(std::string("The date formatter cannot be made: ") +
                                            u_errorName(status));
  setTimeZone(timeZone);
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

void VELDateFormatter::setTimeZone(const std::string& timeZone) {
  _engine->format->adoptCalendar(VELICUCalendar(timeZone).release());
  _timeZone = timeZone;
}

std::string VELDateFormatter::stringFromDate(VELDate date) const {
  const double seconds = date.timeIntervalSince1970();
  if (!std::isfinite(seconds)) return {};
  icu::UnicodeString text;
  _engine->format->format(VELICUDate(seconds), text);
  return VELUtf8From(text);
}
