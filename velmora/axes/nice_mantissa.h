// axes/nice_mantissa.h: the mantissas that a person finds natural: 1, 2 and 5.
#pragma once

/// The nearest of 1, 2, 5 and 10 to a mantissa of 1 to 10.
constexpr double VELNearestNice(double mantissa) {
  if (mantissa < 1.5) return 1.0;
  if (mantissa < 3.0) return 2.0;
  return mantissa < 7.0 ? 5.0 : 10.0;
}

/// The first of 1, 2, 5 and 10 that is not below a mantissa of 1 to 10.
constexpr double VELNextNice(double mantissa) {
  if (mantissa <= 1.0) return 1.0;
  if (mantissa <= 2.0) return 2.0;
  return mantissa <= 5.0 ? 5.0 : 10.0;
}
