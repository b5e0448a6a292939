#include "velmora/platform/number_formatter.h"

#include <unicode/numberformatter.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "velmora/platform/icu/icu_support.h"

namespace {
constexpr int32_t kMostDigits = 100;
}

struct VELNumberFormatter::Engine {
  icu::number::LocalizedNumberFormatter formatter;
};

VELNumberFormatter::VELNumberFormatter(const std::string& locale) : _locale(locale) {
  VELICULocale(locale);
  rebuild();
}

VELNumberFormatter::~VELNumberFormatter() = default;

void VELNumberFormatter::setMinimumFractionDigits(int32_t digits) {
  _minimumFractionDigits = std::clamp(digits, 0, kMostDigits);
  _maximumFractionDigits = std::max(_maximumFractionDigits, _minimumFractionDigits);
  rebuild();
}

void VELNumberFormatter::setMaximumFractionDigits(int32_t digits) {
  _maximumFractionDigits = std::clamp(digits, 0, kMostDigits);
  _minimumFractionDigits = std::min(_minimumFractionDigits, _maximumFractionDigits);
  rebuild();
}

void VELNumberFormatter::setUsesGrouping(bool usesGrouping) {
  _usesGrouping = usesGrouping;
  rebuild();
}

void VELNumberFormatter::rebuild() {
  using icu::number::Precision;
  _engine = std::make_unique<Engine>(
      Engine{icu::number::NumberFormatter::withLocale(VELICULocale(_locale))
                 .precision(Precision::minMaxFraction(_minimumFractionDigits, _maximumFractionDigits))
                 .grouping(_usesGrouping ? UNUM_GROUPING_AUTO : UNUM_GROUPING_OFF)});
}

std::string VELNumberFormatter::stringFromNumber(double number) const {
  // NaN has a sign bit, which means nothing and must not show.
  if (std::isnan(number)) number = std::numeric_limits<double>::quiet_NaN();
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString text = _engine->formatter.formatDouble(number, status).toString(status);
  return U_SUCCESS(status) ? VELUtf8From(text) : std::string();
}
