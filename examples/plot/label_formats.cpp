#include "examples/plot/label_formats.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "velmora/data/generic_type.h"

namespace {

constexpr double kMillion = 1e6;
constexpr double kDay = 86400.0;
// The shortest of each: steps of months and years may be averages.
constexpr double kMonth = 28.0 * kDay;
constexpr double kYear = 365.0 * kDay;

// Digits in which labels a twentieth of the range apart still differ; 0 for a range without width.
double digitsFor(double lowest, double highest) {
  const double largest = std::max(std::abs(lowest), std::abs(highest));
  const double step = (highest - lowest) / 20.0;
  return step > 0.0 ? std::ceil(std::log10(largest / step)) + 1.0 : 0.0;
}

struct StepPattern {
  double step;  ///< seconds, at least
  const char* pattern;
};

constexpr std::array<StepPattern, 3> kTimes = {{{60.0, "HH:mm"}, {1.0, "HH:mm:ss"}, {0.0, "HH:mm:ss.SSS"}}};

std::string timePattern(double step) {
  const auto* found = std::find_if(kTimes.begin(), kTimes.end() - 1,
                                   [step](const StepPattern& one) { return step >= one.step; });
  return found->pattern;
}

DatePatterns patternsWithinDays(const VELDateComponents& first, const VELDateComponents& last, double step) {
  const bool sameYear = first.year == last.year;
  if (step >= kDay) return sameYear ? DatePatterns{"d MMM", "yyyy"} : DatePatterns{"d MMM yyyy", ""};
  const std::string time = timePattern(step);
  if (sameYear && first.dayOfYear == last.dayOfYear) return {time, "d MMM yyyy"};
  return sameYear ? DatePatterns{"d MMM " + time, "yyyy"} : DatePatterns{"d MMM yyyy " + time, ""};
}

}  // namespace

std::string numberFormat(double lowest, double highest) {
  const double digits = digitsFor(lowest, highest);
  if (!(digits > 6.0)) return {};
  return "%." + std::to_string(static_cast<int>(std::min(digits, 16.0))) + "g";
}

bool readInMillions(double lowest, double highest) {
  const double largest = std::max(std::abs(lowest), std::abs(highest));
  const double digits = digitsFor(lowest, highest);
  return largest >= kMillion && largest < 1e4 * kMillion && digits > 0.0 && digits <= 4.0;
}

std::string MillionsLabelProvider::formatLabel(const VELGenericType& value) const {
  const double number = VELGenericDouble(value);
  return number == 0.0 ? "0" : formatTex(number / kMillion, "%.6gM");
}

DatePatterns datePatterns(double first, double last, double step, bool onWholeUnits,
                          const VELCalendar& calendar) {
  if (step >= kYear) return {onWholeUnits ? "yyyy" : "MMM yyyy", ""};
  if (step >= kMonth && onWholeUnits) return {"MMM yyyy", ""};
  const auto begin = calendar.componentsFromDate(VELDate(first));
  // Midnight at the end still belongs to the day.
  const auto end = calendar.componentsFromDate(VELDate(std::max(first, last - 1e-3)));
  if (!begin || !end) return {"d MMM yyyy", ""};
  return patternsWithinDays(*begin, *end, step);
}
