#include "examples/plot/log_ticks.h"

#include <cmath>

#include "velmora/axes/nice_scale.h"

namespace {

constexpr double kFewPowers = 3.0;
constexpr double kHardlyAPower = 0.8;
constexpr int kMinorsPerMajor = 5;
constexpr int kMaxTicks = 10;

VELAxisDelta linearSteps(const VELRange& range) {
  VELNiceDoubleScale scale(range.minAsDouble(), range.maxAsDouble(), kMinorsPerMajor, kMaxTicks);
  scale.calculateDelta();
  return scale.tickSpacing();
}

bool isMajor(int mantissa, double powers) {
  return mantissa == 1 || (powers < kFewPowers && (mantissa == 2 || mantissa == 5));
}

// 1 to 9 times each power of ten that is in the range, majors or all others.
void list(const VELRange& range, double powers, bool majors, VELArrayController& ticks) {
  const double min = range.minAsDouble(), max = range.maxAsDouble();
  const int first = static_cast<int>(std::floor(std::log10(min))),
            last = static_cast<int>(std::log10(max)) + 1;
  for (int exponent = first; exponent <= last; ++exponent) {
    const double power = std::pow(10.0, std::abs(exponent));
    for (int mantissa = 1; mantissa <= 9; ++mantissa) {
      const double tick = exponent < 0 ? mantissa / power : mantissa * power;
      if (isMajor(mantissa, powers) == majors && tick >= min && tick <= max) ticks.append(tick);
    }
  }
}

}  // namespace

double powersBetween(double lowest, double highest) { return std::log10(highest / lowest); }

std::shared_ptr<VELArrayController> PlainLogTicks::calculateMajorTicksWithRange(const VELRange& range,
                                                                                const VELAxisDelta& delta) {
  const double powers = powersBetween(range.minAsDouble(), range.maxAsDouble());
  if (!(powers > 0.0 && powers < manyPowers))
    return VELLogarithmicNumericTickProvider::calculateMajorTicksWithRange(range, delta);
  if (powers < kHardlyAPower)
    return VELNumericTickProvider::calculateMajorTicksWithRange(range, linearSteps(range));
  auto ticks = emptyList(_majorTicks, VELDataType_Double);
  list(range, powers, true, *ticks);
  return ticks;
}

std::shared_ptr<VELArrayController> PlainLogTicks::calculateMinorTicksWithRange(const VELRange& range,
                                                                                const VELAxisDelta& delta) {
  const double powers = powersBetween(range.minAsDouble(), range.maxAsDouble());
  if (!(powers > 0.0 && powers < manyPowers))
    return VELLogarithmicNumericTickProvider::calculateMinorTicksWithRange(range, delta);
  if (powers < kHardlyAPower)
    return VELNumericTickProvider::calculateMinorTicksWithRange(range, linearSteps(range));
  auto ticks = emptyList(_minorTicks, VELDataType_Double);
  list(range, powers, false, *ticks);
  return ticks;
}
