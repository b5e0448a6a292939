// data/extremes.h: where a run of elements is lowest and highest.
//
// Internal. NaN is below and above nothing, so it is never an extreme; of equal extremes the last one counts.
// Elements are compared in their own type: 64-bit integers that the same double stands for still differ.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

/// Indices into the run; -1 for both when it holds nothing but NaN.
struct VELExtremes {
  int64_t minAt = -1;
  int64_t maxAt = -1;
  bool exist() const { return minAt >= 0; }
  bool operator==(const VELExtremes&) const = default;
};

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

/// The way for short runs, without a branch that noise would make the processor guess.
template <typename T>
VELExtremes VELFindExtremesOfShortRun(const T* values, int64_t count) {
  VELExtremes found;
  T lowest = VELHighest<T>();
  T highest = VELLowest<T>();
  for (int64_t i = 0; i < count; ++i) {
    const T value = values[i];
    found.minAt = value <= lowest ? i : found.minAt;
    found.maxAt = value >= highest ? i : found.maxAt;
    lowest = value < lowest ? value : lowest;
    highest = value > highest ? value : highest;
  }
  return found;
}

/// Index of the last element equal to the value; one exists.
template <typename T>
int64_t VELLastIndexOf(const T* values, int64_t count, T value) {
  int64_t i = count - 1;
  while (i > 0 && !(values[i] == value)) --i;
  return i;
}

/// The way for long runs: the two values first, in independent lanes and without their indices, then each
/// index by a search from the end.
template <typename T>
VELExtremes VELFindExtremesOfLongRun(const T* values, int64_t count) {
  constexpr size_t kLanes = 8;
  std::array<T, kLanes> low;
  std::array<T, kLanes> high;
  low.fill(VELHighest<T>());
  high.fill(VELLowest<T>());
  int64_t i = 0;
  for (; i + static_cast<int64_t>(kLanes) <= count; i += static_cast<int64_t>(kLanes)) {
    for (size_t lane = 0; lane < kLanes; ++lane) {
      const T value = values[i + static_cast<int64_t>(lane)];
      low[lane] = value < low[lane] ? value : low[lane];
      high[lane] = value > high[lane] ? value : high[lane];
    }
  }
  for (; i < count; ++i) {
    const T value = values[i];
    low[0] = value < low[0] ? value : low[0];
    high[0] = value > high[0] ? value : high[0];
  }
  T lowest = low[0];
  T highest = high[0];
  for (size_t lane = 1; lane < kLanes; ++lane) {
    lowest = low[lane] < lowest ? low[lane] : lowest;
    highest = high[lane] > highest ? high[lane] : highest;
  }
  // Untouched starts are the wrong way round: there was no number.
  if (!(lowest <= highest)) return {};
  return {VELLastIndexOf(values, count, lowest), VELLastIndexOf(values, count, highest)};
}

/// From this count on the long way is the faster one.
constexpr int64_t kVELLongRun = 48;

/// Both extremes of a run of any length.
template <typename T>
VELExtremes VELFindExtremes(const T* values, int64_t count) {
  return count < kVELLongRun ? VELFindExtremesOfShortRun(values, count)
                             : VELFindExtremesOfLongRun(values, count);
}
