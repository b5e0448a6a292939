// data/extent.h: the lowest and the highest of many elements, without where they are.
//
// Internal. NaN is below and above nothing, so it is left out.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <span>
#include <type_traits>

/// What every number, infinite ones too, is not above.
template <typename T>
constexpr T VELHighest() {
  if constexpr (std::is_floating_point_v<T>) return std::numeric_limits<T>::infinity();
  return std::numeric_limits<T>::max();
}

template <typename T>
constexpr T VELLowest() {
  if constexpr (std::is_floating_point_v<T>) return -std::numeric_limits<T>::infinity();
  return std::numeric_limits<T>::lowest();
}

/// Bounds that grow; the wrong way round until an element came.
template <typename T>
struct VELExtent {
  T low = VELHighest<T>();
  T high = VELLowest<T>();
  bool exists() const { return low <= high; }
};

/// Takes elements in; of those above 0 only, when @p OnlyPositive.
///
/// Its plain form is `for (T v : values) { if (v < low) low = v; if (v > high) high = v; }`. Independent
/// lanes let the compiler use vectors, which it must not do by itself here: it may not reorder floating
/// comparisons.
template <bool OnlyPositive = false, typename T>
void VELFoldExtent(std::span<const T> values, VELExtent<T>& extent) {
  constexpr size_t kLanes = 8;
  std::array<T, kLanes> low;
  std::array<T, kLanes> high;
  low.fill(extent.low);
  high.fill(OnlyPositive ? std::max(extent.high, T{0}) : extent.high);
  const auto fold = [&low, &high](size_t lane, T value) {
    // A choice between two values, no `&&`: that would be a branch, which noise makes the processor guess.
    const T candidate = !OnlyPositive || value > T{0} ? value : VELHighest<T>();
    low[lane] = candidate < low[lane] ? candidate : low[lane];
    high[lane] = value > high[lane] ? value : high[lane];
  };
  const size_t whole = values.size() - values.size() % kLanes;
  for (size_t i = 0; i < whole; i += kLanes) {
    for (size_t lane = 0; lane < kLanes; ++lane) fold(lane, values[i + lane]);
  }
  for (const T value : values.subspan(whole)) fold(0, value);
  // Above is only what was taken in: without one, low is still above high.
  extent.low = *std::min_element(low.begin(), low.end());
  extent.high = *std::max_element(high.begin(), high.end());
}
