// data/columns.h: columns in and out of plain vectors, and the values that every table asks for, for tests.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/numbers.h"
#include "tests/support/reason_of.h"
#include "velmora/data/array_controller.h"

using Values = std::vector<double>;

constexpr auto kDouble = VELDataType_Double;
constexpr VELDataType kTypes[] = {VELDataType_Int16,   VELDataType_Int32, VELDataType_Int64,
                                  VELDataType_Byte,    VELDataType_Float, VELDataType_Double,
                                  VELDataType_DateTime};

inline VELArrayControllerPtr column(VELDataType type, const Values& values) {
  VELArrayControllerPtr result = VELArrayController::initWithType(type);
  for (const double value : values) result->append(value);
  return result;
}

/// The elements in logical order.
inline Values values(const VELArrayController& column) {
  Values result;
  for (int64_t i = 0; i < column.count(); ++i) result.push_back(VELGenericDouble(column.valueAt(i)));
  return result;
}

/// Whether two numbers are the same or both none.
inline bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

/// Whether the action is refused for the order of x.
template <typename Action>
bool raisesUnsorted(Action action) {
  return raisedBy(action) == "Operation exception: Data series can accepts only sorted data";
}
