#include "velmora/axes/date_grid.h"

#include <cmath>
#include <limits>

#include "velmora/axes/tick_math.h"
#include "velmora/axes/time_spans.h"

namespace {

// Months of a step, 0 where it is none of whole months or longer than the calendar.
int64_t monthsOf(double delta) {
  if (!VELIsMultiple(delta, VELTimeSpans::SecInMonth)) return 0;
  const double months = std::round(delta / VELTimeSpans::SecInMonth);
  return months >= 1.0 && months <= VELMonthStarts::farthestMonth ? static_cast<int64_t>(months) : 0;
}

}  // namespace

VELDateGrid::VELDateGrid(double delta, VELMonthStarts& months)
    : _factor(delta), _monthsPerStep(monthsOf(delta)), _months(months) {
  // Tenths and hundredths of a second divide exactly where their product would not.
  const double inverse = std::round(1.0 / delta);
  if (!(delta < 1.0) || !(std::abs(inverse * delta - 1.0) < 1e-15)) return;
  _factor = 1.0;
  _divisor = inverse;
}

double VELDateGrid::firstIndex(double moment) {
  const double unit = _monthsPerStep == 0 ? moment / _factor * _divisor
                                          : static_cast<double>(_months.monthOf(moment)) /
                                                static_cast<double>(_monthsPerStep);
  // Both neighbours are tried, since a quotient may be a hair off.
  double index = std::ceil(unit) - 1.0;
  if (!std::isfinite(index)) return index;
  for (int i = 0; i < 2 && at(index) < moment; ++i) ++index;
  return index;
}

double VELDateGrid::at(double index) {
  if (_monthsPerStep == 0) return index * _factor / _divisor;
  const double month = index * static_cast<double>(_monthsPerStep);
  if (month > static_cast<double>(VELMonthStarts::farthestMonth))
    return std::numeric_limits<double>::infinity();
  if (month < -static_cast<double>(VELMonthStarts::farthestMonth))
    return -std::numeric_limits<double>::infinity();
  return _months.startOf(static_cast<int64_t>(month));
}

bool VELDateGrid::isNear(double moment, double tolerance) {
  if (_monthsPerStep == 0) {
    const double index = std::round(moment / _factor * _divisor);
    return std::abs(at(index) - moment) <= tolerance;
  }
  const int64_t month = _months.monthOf(moment + tolerance);
  return month % _monthsPerStep == 0 && std::abs(_months.startOf(month) - moment) <= tolerance;
}
