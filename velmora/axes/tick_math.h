// axes/tick_math.h: whether a value is a multiple of a step, in floating point.
#pragma once

/// A value with 15 significant digits.
double VELRoundTo15Digits(double value);

/// Whether @p value, with 15 digits, is a whole number of steps. The tolerance covers the rounding of steps
/// and powers of ten that no double holds exactly (1e-9, 1e23), and is still less than a step of the 15th
/// digit.
bool VELIsMultiple(double value, double step);
