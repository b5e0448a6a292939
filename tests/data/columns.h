// data/columns.h: columns in and out of plain vectors, for tests.
#pragma once

#include <string>
#include <vector>

#include "velmora/data/array_controller.h"
#include "velmora/platform/exception.h"

using Values = std::vector<double>;

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
