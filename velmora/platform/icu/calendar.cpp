#include "velmora/platform/calendar.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "velmora/platform/exception.h"
#include "velmora/platform/icu/icu_support.h"

struct VELCalendar::Engine {
  std::unique_ptr<icu::GregorianCalendar> calendar;
};

namespace {

constexpr int32_t kFarthestYear = 5'000'000;
constexpr int32_t kFarthestPart = 100'000'000;
constexpr double kLastFraction = 1.0 - 0x1p-47;  // 59 and it are the last number below 60

int32_t part(int32_t value) { return std::clamp(value, -kFarthestPart, kFarthestPart); }

int32_t mondayFirst(int32_t icuWeekday) { return icuWeekday == UCAL_SUNDAY ? 7 : icuWeekday - 1; }

}  // namespace

VELCalendar::VELCalendar(const std::string& timeZone)
    : _timeZone(timeZone), _engine(std::make_unique<Engine>(Engine{VELICUCalendar(timeZone)})) {}

VELCalendar::~VELCalendar() = default;

const std::shared_ptr<const VELCalendar>& VELCalendar::current() {
  static const std::shared_ptr<const VELCalendar> calendar =
      std::make_shared<const VELCalendar>(VELICUCurrentTimeZone());
  return calendar;
}

std::optional<VELDateComponents> VELCalendar::componentsFromDate(VELDate date) const {
  if (!std::isfinite(date.timeIntervalSince1970())) return std::nullopt;
  // ICU knows milliseconds only; the fraction of the second passes by it.
  const double seconds = VELICUDate(date.timeIntervalSince1970()) / 1000.0;
  const double whole = std::floor(seconds);
  icu::GregorianCalendar& calendar = *_engine->calendar;
  UErrorCode status = U_ZERO_ERROR;
  calendar.setTime(whole * 1000.0, status);
  const auto field = [&](UCalendarDateFields name) { return calendar.get(name, status); };
  VELDateComponents components;
  components.year = field(UCAL_EXTENDED_YEAR);
  components.month = field(UCAL_MONTH) + 1;
  components.day = field(UCAL_DATE);
  components.hour = field(UCAL_HOUR_OF_DAY);
  components.minute = field(UCAL_MINUTE);
  components.second = field(UCAL_SECOND) + std::min(seconds - whole, kLastFraction);
  components.weekday = mondayFirst(field(UCAL_DAY_OF_WEEK));
  components.dayOfYear = field(UCAL_DAY_OF_YEAR);
  if (U_FAILURE(status)) return std::nullopt;
  return components;
}

VELDate VELCalendar::dateFromComponents(const VELDateComponents& components) const {
  icu::GregorianCalendar& calendar = *_engine->calendar;
  calendar.clear();
  calendar.set(UCAL_EXTENDED_YEAR, std::clamp(components.year, -kFarthestYear, kFarthestYear));
  calendar.set(UCAL_MONTH, part(components.month) - 1);
  calendar.set(UCAL_DATE, part(components.day));
  calendar.set(UCAL_HOUR_OF_DAY, part(components.hour));
  calendar.set(UCAL_MINUTE, part(components.minute));
  UErrorCode status = U_ZERO_ERROR;
  const UDate minutes = calendar.getTime(status);
  if (U_FAILURE(status)) return VELDate(std::numeric_limits<double>::quiet_NaN());
  const double second = std::isfinite(components.second) ? components.second : 0.0;
  return VELDate(minutes / 1000.0 + second);
}
