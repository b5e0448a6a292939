// data/array_search.h: where in a column a value stands.
#pragma once

#include <cstdint>

#include "velmora/data/array_controller.h"

/// What a search sees of a column.
struct VELArraySearch {
  const void* data = nullptr;
  VELDataType type = VELDataType_None;
  int64_t count = 0;
  int64_t head = 0;  ///< physical index of the logically first element

  /// Logical index of @p value, or -1; see `VELArrayController::indexOf`.
  int64_t indexOf(VELGenericType value, bool isSorted, VELArraySearchMode mode) const;
};
