// support/numbers.h: the numbers that every table asks for.
#pragma once

#include <limits>

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
