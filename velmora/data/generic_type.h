// data/generic_type.h: the tagged value that carries every number, date and pointer across the library's
// border.
//
// Values are converted only when they are read; no read-out fails. Elements in bulk are
// data/element_converter.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "velmora/platform/date.h"
#include "velmora/platform/export.h"

/// What a generic value holds. The numbers are fixed: converter tables are indexed by them.
enum VELDataType : int32_t {
  VELDataType_None = 0,
  VELDataType_Int16 = 1,
  VELDataType_Int32 = 2,
  VELDataType_Int64 = 3,
  VELDataType_Byte = 4,
  VELDataType_Float = 5,
  VELDataType_Double = 6,
  VELDataType_DateTime = 7,  ///< seconds since 1970-01-01 00:00 UTC in a double
  // 8 is unassigned on purpose; every converter table has an empty slot there.
  VELDataType_CharPtr = 9,
  VELDataType_Int16Ptr = 10,
  VELDataType_Int32Ptr = 11,
  VELDataType_Int64Ptr = 12,
  VELDataType_FloatPtr = 13,
  VELDataType_DoublePtr = 14,
  VELDataType_Array = 15,
  VELDataType_Object = 16,
};

/// Dates count as numeric everywhere: they are doubles of seconds.
constexpr bool VELIsNumericType(VELDataType type) {
  return type >= VELDataType_Int16 && type <= VELDataType_DateTime;
}

struct VELGenericType;

/// The array object that a generic value may refer to.
using VELArray = std::vector<VELGenericType>;

/// The eight bytes of a generic value; its `type` says which member is valid.
union VELGenericData {
  int8_t byteValue;
  int16_t int16Value;
  int32_t int32Value;
  int64_t int64Value;
  float floatValue;
  double doubleValue;
  const void* object;
  const int8_t* bytePointer;
  const int16_t* int16Pointer;
  const int32_t* int32Pointer;
  const int64_t* int64Pointer;
  const float* floatPointer;
  const double* doublePointer;

  /// All eight bytes are zero, so that values may be compared bit by bit whatever their width.
  constexpr VELGenericData() : int64Value(0) {}
};
static_assert(sizeof(VELGenericData) == 8);

/// A number, a date, a pointer to numbers or a reference to an object, with its type tag.
///
/// Always true: a plain 16-byte copy; what it points to is neither owned nor kept alive.
/// C++ numbers, dates and pointers to numbers convert implicitly; unsigned numbers take the next wider signed
/// type, the widest one saturates.
struct VELMORA_API VELGenericType {
  VELDataType type = VELDataType_None;
  VELGenericData data;

  constexpr VELGenericType() = default;
  VELGenericType(int8_t value) : type(VELDataType_Byte) { data.byteValue = value; }
  VELGenericType(char value) : VELGenericType(static_cast<int8_t>(value)) {}
  VELGenericType(int16_t value) : type(VELDataType_Int16) { data.int16Value = value; }
  VELGenericType(int32_t value) : type(VELDataType_Int32) { data.int32Value = value; }
  VELGenericType(long value) : type(VELDataType_Int64) { data.int64Value = value; }
  VELGenericType(long long value) : type(VELDataType_Int64) { data.int64Value = value; }
  VELGenericType(uint8_t value) : VELGenericType(static_cast<int16_t>(value)) {}
  VELGenericType(uint16_t value) : VELGenericType(static_cast<int32_t>(value)) {}
  VELGenericType(unsigned int value) : VELGenericType(static_cast<int64_t>(value)) {}
  VELGenericType(unsigned long value) : VELGenericType(static_cast<unsigned long long>(value)) {}
  VELGenericType(unsigned long long value)
      : VELGenericType(static_cast<int64_t>(value > INT64_MAX ? INT64_MAX : value)) {}
  VELGenericType(float value) : type(VELDataType_Float) { data.floatValue = value; }
  VELGenericType(double value) : type(VELDataType_Double) { data.doubleValue = value; }
  VELGenericType(VELDate value) : type(VELDataType_DateTime) {
    data.doubleValue = value.timeIntervalSince1970();
  }
  VELGenericType(const int8_t* value) : type(VELDataType_CharPtr) { data.bytePointer = value; }
  VELGenericType(const int16_t* value) : type(VELDataType_Int16Ptr) { data.int16Pointer = value; }
  VELGenericType(const int32_t* value) : type(VELDataType_Int32Ptr) { data.int32Pointer = value; }
  VELGenericType(const int64_t* value) : type(VELDataType_Int64Ptr) { data.int64Pointer = value; }
  VELGenericType(const float* value) : type(VELDataType_FloatPtr) { data.floatPointer = value; }
  VELGenericType(const double* value) : type(VELDataType_DoublePtr) { data.doublePointer = value; }
  VELGenericType(const VELArray* value) : type(VELDataType_Array) { data.object = value; }
  /// Bytes only when meant: a string literal must not become a column by accident.
  explicit VELGenericType(const char* value) : type(VELDataType_CharPtr) { data.object = value; }
  /// A truth value is no number here; the same overload keeps other pointers from turning into 1.
  VELGenericType(bool value) = delete;
};
static_assert(sizeof(VELGenericType) == 16);

/// What an object reference may be: a date, an array, or anything else.
using VELObjectReference = std::variant<VELDate, const VELArray*, const void*>;

/// A value read through @p value, whose pointee the one- or two-letter type encoding names:
/// "s" "i" "q" "c" "f" "d" the numbers, "*" and "^c" "^s" "^i" "^q" "^f" "^d" the pointers, "@" a
/// `VELObjectReference`. Any other encoding gives tag None.
VELMORA_API VELGenericType VEL_constructGenericType(const void* value, std::string_view encoding);

/// A value of the given tag read through @p value: as many bytes as the tag's scalar has, a `VELDate` for
/// DateTime, eight bytes as they are for every other tag.
VELMORA_API VELGenericType VEL_constructGenericTypeWithInfo(const void* value, VELDataType type);

// Read-outs. Integers keep their low bits when narrowed; floating values are truncated toward zero and
// saturate, NaN gives 0. A tag without a number gives 0, NaN, nothing or null.
VELMORA_API int8_t VELGenericChar(VELGenericType value);
VELMORA_API int16_t VELGenericShort(VELGenericType value);
VELMORA_API int32_t VELGenericInt(VELGenericType value);
VELMORA_API int64_t VELGenericLong(VELGenericType value);
VELMORA_API float VELGenericFloat(VELGenericType value);
VELMORA_API double VELGenericDouble(VELGenericType value);
/// The moment that many seconds after 1970; nothing for NaN, and on purpose for Int64 and Byte values too:
/// those are counters, not seconds.
VELMORA_API std::optional<VELDate> VELGenericDate(VELGenericType value);
VELMORA_API const VELArray* VELGenericArray(VELGenericType value);
VELMORA_API const int8_t* VELGenericCharPtr(VELGenericType value);
VELMORA_API const int16_t* VELGenericShortPtr(VELGenericType value);
VELMORA_API const int32_t* VELGenericIntPtr(VELGenericType value);
VELMORA_API const int64_t* VELGenericLongPtr(VELGenericType value);
VELMORA_API const float* VELGenericFloatPtr(VELGenericType value);
VELMORA_API const double* VELGenericDoublePtr(VELGenericType value);

enum VELGenericCompareResult : int32_t {
  VELGenericCompareResult_NotComparable = 0,
  VELGenericCompareResult_Equal = 1,
  VELGenericCompareResult_Less = 2,     ///< the first is below the second
  VELGenericCompareResult_Greater = 3,  ///< the first is above the second
};

/// The order of two values: integers exactly, floating values equal within 2.220446049250313e-16, pointers
/// and objects only equal or not. NaN is comparable with nothing, a date only with dates and doubles; an
/// integer meets a date in whole seconds on purpose.
VELMORA_API VELGenericCompareResult VELGenericCompare(VELGenericType a, VELGenericType b);

/// For messages and debuggers, such as "Double 2.5".
VELMORA_API std::string VELGenericDescription(VELGenericType value);
