#include "velmora/axes/logarithmic_numeric_tick_provider.h"

#include <algorithm>
#include <cmath>

#include "velmora/axes/tick_math.h"

namespace {

// Of a step of exponents: nearer than this to an end, a tick is there.
constexpr double kNoise = 1e-10;
// What a walk takes at most: ticks too dense for doubles to tell apart do not count as ticks.
constexpr int64_t kMaxSteps = 2 * VELTickProvider::maxTicksPerPass;

double roundTo(double value, double parts) {
  const double rounded = std::round(value * parts) / parts;
  return std::isfinite(rounded) ? rounded : value;
}

// The base that has the same powers and is above 1; 0 where there is none.
double usefulBase(double base) {
  if (!(base > 0.0)) return 0.0;
  if (base < 1.0) base = 1.0 / base;
  return std::isfinite(base) && base > 1.0 ? base : 0.0;
}

bool isBelowZero(const VELRange& range) { return range.maxAsDouble() < 0.0; }

// Exponent of the first tick. It starts from the power at or below the minimum, so that a range within one
// decade keeps the ticks between its powers and minors have a tick to stand on.
double startExponent(double min, double base, double step) {
  double exponent = std::log(min) / std::log(base);
  const double nearest = roundTo(exponent, 1e5);
  if (nearest != std::floor(nearest)) exponent = std::floor(nearest);
  exponent = roundTo(exponent, 1e10);
  return VELIsMultiple(exponent, step) ? exponent : step * std::ceil(exponent / step);
}

void append(const std::vector<double>& magnitudes, bool negated, VELArrayController& ticks) {
  if (!negated) {
    ticks.appendRange(magnitudes);
    return;
  }
  std::for_each(magnitudes.rbegin(), magnitudes.rend(), [&ticks](double tick) { ticks.append(-tick); });
}

// Parts of the step above @p lower from the highest down, the step's own end excluded.
// @return false when the list is full
bool appendParts(double lower, double factor, double parts, std::vector<double>& ticks) {
  const auto first = std::ssize(ticks);
  for (int64_t k = 1; static_cast<double>(k) < parts - kNoise; ++k) {
    if (std::ssize(ticks) == VELTickProvider::maxTicksPerPass) return false;
    const double tick = lower + static_cast<double>(k) * (factor * lower);
    if (!(tick > 0.0) || !std::isfinite(tick)) break;
    ticks.push_back(tick);
  }
  std::reverse(ticks.begin() + first, ticks.end());
  return true;
}

}  // namespace

void VELLogarithmicNumericTickProvider::listPowers(const VELRange& range, double base, double majorDelta) {
  _powers.clear();
  double min = range.minAsDouble(), max = range.maxAsDouble();
  if (isBelowZero(range)) {
    std::swap(min, max);
    min = -min;
    max = -max;
  }
  if (!(base > 0.0) || !(min > 0.0) || !std::isfinite(max) || !(majorDelta > 0.0)) return;
  // The start counted in steps: each exponent is then one product, never a running sum.
  const double first = std::round(startExponent(min, base, majorDelta) / majorDelta);
  const double last = std::log(max) / std::log(base);
  if (!std::isfinite(first)) return;
  for (int64_t k = 0; k < kMaxSteps && std::ssize(_powers) < maxTicksPerPass; ++k) {
    const double exponent = VELRoundTo15Digits((first + static_cast<double>(k)) * majorDelta);
    if (!VELIsMultiple(exponent, majorDelta)) continue;
    // Logarithms lose no tick at the end of the range: that of 1000 is a hair below 3.
    if (!(exponent <= last + kNoise * majorDelta)) return;
    const double tick = std::min(std::pow(base, exponent), max);
    if (tick > (_powers.empty() ? 0.0 : _powers.back())) _powers.push_back(tick);
  }
}

std::shared_ptr<VELArrayController> VELLogarithmicNumericTickProvider::calculateMajorTicksWithRange(
    const VELRange& range, const VELAxisDelta& delta) {
  if (!p_VEL_isParamsValidRange(range, delta)) return nullptr;
  auto ticks = emptyList(_majorTicks, VELDataType_Double, 0);
  listPowers(range, usefulBase(_logarithmicBase), VELGenericDouble(delta.majorDelta));
  append(_powers, isBelowZero(range), *ticks);
  return ticks;
}

std::shared_ptr<VELArrayController> VELLogarithmicNumericTickProvider::calculateMinorTicksWithRange(
    const VELRange& range, const VELAxisDelta& delta) {
  if (!p_VEL_isParamsValidRange(range, delta)) return nullptr;
  auto ticks = emptyList(_minorTicks, VELDataType_Double, 0);
  const double base = usefulBase(_logarithmicBase), major = VELGenericDouble(delta.majorDelta);
  listPowers(range, base, major);
  if (_powers.empty()) return ticks;
  const double step = std::pow(base, major), factor = VELGenericDouble(delta.minorDelta);
  const double parts = (step - 1.0) / factor;
  if (!std::isfinite(parts)) return ticks;
  _minors.clear();
  bool hasRoom = appendParts(_powers.front() / step, factor, parts, _minors);
  for (size_t i = 0; hasRoom && i < _powers.size(); ++i)
    hasRoom = appendParts(_powers[i], factor, parts, _minors);
  append(_minors, isBelowZero(range), *ticks);
  return ticks;
}
