// data/extremes.h: where a run of elements is lowest and highest.
//
// Internal. NaN is below and above nothing, so it is never an extreme; of equal extremes the last one counts.
// Elements are compared as doubles, which only 64-bit integers need to be told: for every other type the order
// is the same.
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

template <typename T>
using VELExtremeKey = std::conditional_t<std::is_same_v<T, int64_t>, double, T>;

/// What every number, infinite ones too, is not above.
template <typename Key>
constexpr Key VELHighestKey() {
  if constexpr (std::is_floating_point_v<Key>) return std::numeric_limits<Key>::infinity();
  return std::numeric_limits<Key>::max();
}

template <typename Key>
constexpr Key VELLowestKey() {
  if constexpr (std::is_floating_point_v<Key>) return -std::numeric_limits<Key>::infinity();
  return std::numeric_limits<Key>::lowest();
}

/// The plain way, and the oracle of the fast one.
template <typename T>
VELExtremes VELFindExtremesPlain(const T* values, int64_t count) {
  using Key = VELExtremeKey<T>;
  VELExtremes found;
  Key lowest = VELHighestKey<Key>();
  Key highest = VELLowestKey<Key>();
  for (int64_t i = 0; i < count; ++i) {
    const Key key = static_cast<Key>(values[i]);
    if (key <= lowest) {
      lowest = key;
      found.minAt = i;
    }
    if (key >= highest) {
      highest = key;
      found.maxAt = i;
    }
  }
  return found;
}

/// Index of the last element equal to the key; one exists.
template <typename T>
int64_t VELLastIndexOf(const T* values, int64_t count, VELExtremeKey<T> key) {
  int64_t i = count - 1;
  while (i > 0 && !(static_cast<VELExtremeKey<T>>(values[i]) == key)) --i;
  return i;
}

/// `VELFindExtremesPlain` for long runs: the two values first, in independent lanes without a branch and without
/// their indices, then each index by a search from the end.
template <typename T>
VELExtremes VELFindExtremes(const T* values, int64_t count) {
  using Key = VELExtremeKey<T>;
  constexpr size_t kLanes = 8;
  constexpr int64_t kShortRun = 32;
  if (count < kShortRun) return VELFindExtremesPlain(values, count);
  std::array<Key, kLanes> low;
  std::array<Key, kLanes> high;
  low.fill(VELHighestKey<Key>());
  high.fill(VELLowestKey<Key>());
  int64_t i = 0;
  for (; i + static_cast<int64_t>(kLanes) <= count; i += static_cast<int64_t>(kLanes)) {
    for (size_t lane = 0; lane < kLanes; ++lane) {
      const Key key = static_cast<Key>(values[i + static_cast<int64_t>(lane)]);
      low[lane] = key < low[lane] ? key : low[lane];
      high[lane] = key > high[lane] ? key : high[lane];
    }
  }
  for (; i < count; ++i) {
    const Key key = static_cast<Key>(values[i]);
    low[0] = key < low[0] ? key : low[0];
    high[0] = key > high[0] ? key : high[0];
  }
  Key lowest = low[0];
  Key highest = high[0];
  for (size_t lane = 1; lane < kLanes; ++lane) {
    lowest = low[lane] < lowest ? low[lane] : lowest;
    highest = high[lane] > highest ? high[lane] : highest;
  }
  // Untouched starts are the wrong way round: there was no number.
  if (!(lowest <= highest)) return {};
  return {VELLastIndexOf(values, count, lowest), VELLastIndexOf(values, count, highest)};
}
