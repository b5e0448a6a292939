#include "velmora/axes/date_time_tick_provider.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "velmora/axes/axis_core.h"
#include "velmora/axes/date_grid.h"
#include "velmora/axes/date_time_formatting.h"
#include "velmora/axes/tick_math.h"
#include "velmora/axes/time_spans.h"
#include "velmora/data/saturate.h"

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
constexpr double kMonth = VELTimeSpans::SecInMonth, kYear = VELTimeSpans::SecInYear;
constexpr int32_t kJanuaryNext = 13;
// So near to a major tick a minor one counts as the same.
constexpr double kNear = 0.001;

// The first multiple of @p step after @p value.
int32_t multipleAfter(int32_t value, double step) {
  return VELSaturate<int32_t>(std::ceil((value + 1.0) / step) * step);
}

// Calls @p keep with each tick from the first at or after @p min on, until it says false.
template <class Keep>
void walk(VELDateGrid& grid, double min, Keep keep) {
  constexpr int64_t kMaxSteps = 2 * VELTickProvider::maxTicksPerPass;
  const double first = grid.firstIndex(min);
  if (!std::isfinite(first)) return;
  double last = -std::numeric_limits<double>::infinity();
  for (int64_t k = 0; k < kMaxSteps; ++k) {
    const double tick = grid.at(first + static_cast<double>(k));
    // Steps too small for doubles to tell apart do not count as ticks.
    if (tick <= last) continue;
    last = tick;
    if (!keep(tick)) return;
  }
}

// Names the axis for as long as its list is being made.
class Listing {
 public:
  Listing(const VELAxisCore*& listedAxis, const VELAxisCore& axis)
      : _listedAxis(listedAxis), _former(std::exchange(listedAxis, &axis)) {}
  Listing(const Listing&) = delete;
  Listing& operator=(const Listing&) = delete;
  ~Listing() { _listedAxis = _former; }

 private:
  const VELAxisCore*& _listedAxis;
  const VELAxisCore* _former;
};

}  // namespace

const VELCalendar& VELDateTimeTickProvider::calendar() const {
  const auto owner = axis();
  const VELAxisCore* asked = _listedAxis ? _listedAxis : owner.get();
  const auto* formatting = dynamic_cast<const VELDateTimeFormatting*>(asked);
  return formatting ? formatting->calendar() : *VELCalendar::current();
}

std::shared_ptr<VELArrayController> VELDateTimeTickProvider::getMajorTicksFromAxis(const VELAxisCore& axis) {
  const Listing listing(_listedAxis, axis);
  return VELTimeSpanTickProviderBase::getMajorTicksFromAxis(axis);
}

std::shared_ptr<VELArrayController> VELDateTimeTickProvider::getMinorTicksFromAxis(const VELAxisCore& axis) {
  const Listing listing(_listedAxis, axis);
  return VELTimeSpanTickProviderBase::getMinorTicksFromAxis(axis);
}

double VELDateTimeTickProvider::getTicks(const VELGenericType& value) const {
  return VELGenericDouble(value);
}

VELDate VELDateTimeTickProvider::p_VEL_newAlignedDateTime(int32_t year, int32_t month) const {
  VELDateComponents first;
  int64_t rolledYear = year;
  if (month >= kJanuaryNext) {
    const int32_t years = (month - kJanuaryNext) / 12;
    rolledYear += years + 1;
    month -= 12 + 12 * years;
  }
  first.year = VELSaturate<int32_t>(static_cast<double>(rolledYear));
  first.month = month;
  return calendar().dateFromComponents(first);
}

double VELDateTimeTickProvider::roundUp(double value, double delta) const {
  const auto date = calendar().componentsFromDate(VELDate(value));
  const auto aligned = [this](int32_t year, int32_t month) {
    return p_VEL_newAlignedDateTime(year, month).timeIntervalSince1970();
  };
  // Steps of the calendar from the longest on: first of the years, half-years and quarters, then of months.
  if (!date || !VELIsMultiple(delta, kMonth)) return std::ceil(value / delta) * delta;
  const bool isFirst = date->day == 1;
  if (VELIsMultiple(delta, kYear)) {
    const double years = std::trunc(delta / kYear);
    if (isFirst && date->month == 1 && VELIsMultiple(date->year, years)) return value;
    return aligned(multipleAfter(date->year, years), 1);
  }
  for (const int32_t part : {6, 3}) {
    if (!VELIsMultiple(delta, part * kMonth)) continue;
    if (isFirst && (date->month - 1) % part == 0) return value;
    return aligned(date->year, (date->month - 1) / part * part + part + 1);
  }
  if (isFirst) return value;
  return aligned(date->year, multipleAfter(date->month, std::trunc(delta / kMonth)));
}

double VELDateTimeTickProvider::addDelta(double value, double delta) const {
  if (VELIsMultiple(delta, kYear)) return value + std::trunc(delta / kYear) * kYear;
  if (!VELIsMultiple(delta, kMonth)) return value + delta;
  double months = std::trunc(delta / kMonth), years = 0.0;
  if (months >= kJanuaryNext) {
    years = std::trunc((months - kJanuaryNext) / 12.0) + 1.0;
    months -= 12.0 * years;
  }
  return value + years * kYear + months * kMonth;
}

bool VELDateTimeTickProvider::isAdditionValid(double value, double delta) const {
  return std::isfinite(value + delta);
}

bool VELDateTimeTickProvider::isDateDivisible(double value, double delta) const {
  const auto date = calendar().componentsFromDate(VELDate(value));
  if (date && date->day == 1) {
    if (std::fmod(delta, kYear) == 0.0 && date->month == 1) return true;
    if (std::fmod(delta, kMonth) == 0.0) return true;
  }
  return std::abs(roundUp(value, delta) - value) <= 0.001;
}

void VELDateTimeTickProvider::p_VEL_getMajorTicksWithRange(const VELRange& range, const VELAxisDelta& delta,
                                                           VELArrayController& ticks) {
  const double max = getTicks(range.max()), step = VELGenericDouble(delta.majorDelta);
  _months.setCalendar(calendar());
  VELDateGrid grid(step, _months);
  walk(grid, getTicks(range.min()), [&](double tick) {
    if (!(tick <= max) || !isAdditionValid(tick, step)) return false;
    ticks.append(tick);
    return ticks.count() < maxTicksPerPass;
  });
}

void VELDateTimeTickProvider::p_VEL_getMinorTicksWithRange(const VELRange& range, const VELAxisDelta& delta,
                                                           VELArrayController& ticks) {
  const double min = getTicks(range.min()), max = getTicks(range.max());
  const double step = VELGenericDouble(delta.minorDelta);
  // A fixed distance would swallow every minor beside a major where they are a millisecond apart.
  const double tolerance = std::min(kNear, step / 4.0);
  _months.setCalendar(calendar());
  VELDateGrid grid(step, _months), majors(VELGenericDouble(delta.majorDelta), _months);
  walk(grid, min, [&](double tick) {
    if (!(tick < max) || !isAdditionValid(tick, step)) return false;
    const bool isInside = std::abs(tick - min) > kEpsilon && std::abs(tick - max) > kEpsilon;
    if (isInside && !majors.isNear(tick, tolerance)) ticks.append(tick);
    return ticks.count() < maxTicksPerPass;
  });
}
