// data/column_view.h: what a reader of numbers sees of a column.
#pragma once

#include <cstdint>

#include "velmora/data/element_type.h"
#include "velmora/data/generic_type.h"

/// Elements of one type in the order of the buffer; valid until the column changes. Not owned.
struct VELColumnView {
  VELDataType type = VELDataType_None;  ///< Int16 to DateTime
  const void* data = nullptr;           ///< null where there is no element
  int64_t count = 0;
};

/// Calls @p visitor with the elements as a `const T*`, T being their type.
template <typename Visitor>
decltype(auto) VELVisitElements(const VELColumnView& column, Visitor&& visitor) {
  return VELVisitElementType(column.type, [&](auto element) -> decltype(auto) {
    using T = typename decltype(element)::type;
    return visitor(static_cast<const T*>(column.data));
  });
}
