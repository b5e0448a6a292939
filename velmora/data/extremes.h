// data/extremes.h: where a run of elements is lowest and highest.
//
// Internal. NaN is below and above nothing, so it is never an extreme; of equal extremes the last one counts.
// Elements are compared in their own type: 64-bit integers that the same double stands for still differ.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "velmora/data/extent.h"

/// Indices into the run; -1 for both when it holds nothing but NaN.
struct VELExtremes {
  int64_t minAt = -1;
  int64_t maxAt = -1;
  bool exist() const { return minAt >= 0; }
  bool operator==(const VELExtremes&) const = default;
};

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

/// The way for long runs: the two values first, then the index of each by a search from the end.
template <typename T>
VELExtremes VELFindExtremesOfLongRun(const T* values, int64_t count) {
  VELExtent<T> found;
  VELFoldExtent(std::span<const T>(values, static_cast<size_t>(count)), found);
  if (!found.exists()) return {};
  return {VELLastIndexOf(values, count, found.low), VELLastIndexOf(values, count, found.high)};
}

/// From this count on the long way is the faster one.
constexpr int64_t kVELLongRun = 48;

/// Both extremes of a run of any length.
template <typename T>
VELExtremes VELFindExtremes(const T* values, int64_t count) {
  return count < kVELLongRun ? VELFindExtremesOfShortRun(values, count)
                             : VELFindExtremesOfLongRun(values, count);
}
