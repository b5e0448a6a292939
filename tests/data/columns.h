// data/columns.h: columns in and out of plain vectors, and the values that every table asks for, for tests.
#pragma once

#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "velmora/data/array_controller.h"
#include "velmora/platform/exception.h"

using Values = std::vector<double>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
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
  try {
    action();
  } catch (const VELException& raised) {
    return raised.name() == "Operation exception" &&
           raised.what() == std::string("Data series can accepts only sorted data");
  }
  return false;
}

/// The reason of the invalid-argument exception that the action raises; empty when it raises none.
template <typename Action>
std::string reasonOf(Action action) {
  try {
    action();
  } catch (const VELInvalidArgumentException& error) {
    return error.what();
  }
  return "";
}
