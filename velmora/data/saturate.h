// data/saturate.h: how a floating value becomes an integer.
#pragma once

#include <concepts>
#include <limits>

/// Truncates toward zero; NaN gives 0, a value beyond the type its nearest end.
template <std::signed_integral Integer>
constexpr Integer VELSaturate(double value) {
  // Minus the minimum is a power of two and exact as a double; the maximum of 64 bits is not.
  constexpr double low = static_cast<double>(std::numeric_limits<Integer>::min());
  if (value >= -low) return std::numeric_limits<Integer>::max();
  if (value <= low) return std::numeric_limits<Integer>::min();
  return value == value ? static_cast<Integer>(value) : Integer{0};
}
