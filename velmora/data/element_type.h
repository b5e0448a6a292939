// data/element_type.h: from a storage tag to the C++ type of its elements, once and before the loop.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "velmora/data/generic_type.h"

/// Carries an element type into a generic lambda: `using T = typename decltype(element)::type`.
template <typename T>
struct VELElement {
  using type = T;
};

/// Calls @p visitor with the `VELElement` of a storage type 1 to 7 (dates are doubles); any other tag is
/// taken as Double, callers ask `VELIsNumericType` before.
template <typename Visitor>
decltype(auto) VELVisitElementType(VELDataType type, Visitor&& visitor) {
  switch (type) {
    case VELDataType_Int16:
      return std::forward<Visitor>(visitor)(VELElement<int16_t>{});
    case VELDataType_Int32:
      return std::forward<Visitor>(visitor)(VELElement<int32_t>{});
    case VELDataType_Int64:
      return std::forward<Visitor>(visitor)(VELElement<int64_t>{});
    case VELDataType_Byte:
      return std::forward<Visitor>(visitor)(VELElement<int8_t>{});
    case VELDataType_Float:
      return std::forward<Visitor>(visitor)(VELElement<float>{});
    default:
      return std::forward<Visitor>(visitor)(VELElement<double>{});
  }
}

/// The scalar tag of a C++ element type.
template <typename T>
constexpr VELDataType VELElementTypeOf() {
  if constexpr (std::is_same_v<T, int16_t>) return VELDataType_Int16;
  if constexpr (std::is_same_v<T, int32_t>) return VELDataType_Int32;
  if constexpr (std::is_same_v<T, int64_t>) return VELDataType_Int64;
  if constexpr (std::is_same_v<T, int8_t>) return VELDataType_Byte;
  if constexpr (std::is_same_v<T, float>) return VELDataType_Float;
  if constexpr (std::is_same_v<T, double>) return VELDataType_Double;
  return VELDataType_None;
}

/// Whether a column of storage type @p type holds elements of C++ type T; dates are doubles.
template <typename T>
constexpr bool VELStoresElement(VELDataType type) {
  const VELDataType own = VELElementTypeOf<T>();
  return own != VELDataType_None &&
         (type == own || (own == VELDataType_Double && type == VELDataType_DateTime));
}

/// Bytes of one element of a storage type 1 to 7; 0 for any other tag.
constexpr int32_t VELElementSize(VELDataType type) {
  constexpr int32_t sizes[] = {0, 2, 4, 8, 1, 4, 8, 8};
  return VELIsNumericType(type) ? sizes[type] : 0;
}
