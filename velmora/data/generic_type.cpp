#include "velmora/data/generic_type.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <type_traits>

#include "velmora/data/saturate.h"
#include "velmora/data/value_order.h"

namespace {

template <typename T>
T readAs(const void* value) {
  T result;
  std::memcpy(&result, value, sizeof result);
  return result;
}

template <typename T>
VELGenericType construct(const void* value) {
  return readAs<T>(value);
}

VELGenericType constructBytes(const void* value) { return readAs<const int8_t*>(value); }

VELGenericType constructObject(const void* value) {
  const auto& reference = *static_cast<const VELObjectReference*>(value);
  if (const auto* date = std::get_if<VELDate>(&reference)) return *date;
  if (const auto* array = std::get_if<const VELArray*>(&reference)) return *array;
  VELGenericType result;
  result.type = VELDataType_Object;
  result.data.object = std::get<const void*>(reference);
  return result;
}

struct Encoding {
  std::string_view letters;
  VELGenericType (*read)(const void*);
};

constexpr Encoding encodings[] = {
    {"s", construct<int16_t>},
    {"i", construct<int32_t>},
    {"q", construct<int64_t>},
    {"c", construct<int8_t>},
    {"f", construct<float>},
    {"d", construct<double>},
    {"*", constructBytes},
    {"^c", constructBytes},
    {"^s", construct<const int16_t*>},
    {"^i", construct<const int32_t*>},
    {"^q", construct<const int64_t*>},
    {"^f", construct<const float*>},
    {"^d", construct<const double*>},
    {"@", constructObject},
};

template <typename Target>
Target fromFloating(double value) {
  if constexpr (std::is_integral_v<Target>) {
    return VELSaturate<Target>(value);
  } else {
    return static_cast<Target>(value);
  }
}

template <typename Target>
Target readNumber(const VELGenericType& value) {
  switch (value.type) {
    case VELDataType_Int16:
      return static_cast<Target>(value.data.int16Value);
    case VELDataType_Int32:
      return static_cast<Target>(value.data.int32Value);
    case VELDataType_Int64:
      return static_cast<Target>(value.data.int64Value);
    case VELDataType_Byte:
      return static_cast<Target>(value.data.byteValue);
    case VELDataType_Float:
      return fromFloating<Target>(static_cast<double>(value.data.floatValue));
    case VELDataType_Double:
    case VELDataType_DateTime:
      return fromFloating<Target>(value.data.doubleValue);
    default:
      break;
  }
  // Without a number an integer has no better answer than 0.
  if constexpr (std::is_integral_v<Target>)
    return 0;
  else
    return std::numeric_limits<Target>::quiet_NaN();
}

const char* typeName(VELDataType type) {
  constexpr const char* names[] = {"None",     "Int16",    "Int32",     "Int64",   "Byte",     "Float",
                                   "Double",   "DateTime", "None",      "CharPtr", "Int16Ptr", "Int32Ptr",
                                   "Int64Ptr", "FloatPtr", "DoublePtr", "Array",   "Object"};
  return type >= VELDataType_None && type <= VELDataType_Object ? names[type] : "None";
}

}  // namespace

VELGenericType VEL_constructGenericType(const void* value, std::string_view encoding) {
  // Only the first letter counts, and the second after "^": what follows belongs to the pointee.
  const std::string_view letters = encoding.substr(0, encoding.starts_with('^') ? 2 : 1);
  for (const Encoding& known : encodings) {
    if (known.letters == letters) return known.read(value);
  }
  return {};
}

VELGenericType VEL_constructGenericTypeWithInfo(const void* value, VELDataType type) {
  VELGenericType result;
  switch (type) {
    case VELDataType_Int16:
      result = construct<int16_t>(value);
      break;
    case VELDataType_Int32:
      result = construct<int32_t>(value);
      break;
    case VELDataType_Byte:
      result = construct<int8_t>(value);
      break;
    case VELDataType_Float:
      result = construct<float>(value);
      break;
    case VELDataType_DateTime:
      result = construct<VELDate>(value);
      break;
    default:
      result = construct<int64_t>(value);
      break;
  }
  result.type = type;
  return result;
}

int8_t VELGenericChar(VELGenericType value) { return readNumber<int8_t>(value); }
int16_t VELGenericShort(VELGenericType value) { return readNumber<int16_t>(value); }
int32_t VELGenericInt(VELGenericType value) { return readNumber<int32_t>(value); }
int64_t VELGenericLong(VELGenericType value) { return readNumber<int64_t>(value); }
float VELGenericFloat(VELGenericType value) { return readNumber<float>(value); }
double VELGenericDouble(VELGenericType value) { return readNumber<double>(value); }

std::optional<VELDate> VELGenericDate(VELGenericType value) {
  if (value.type == VELDataType_Int64 || value.type == VELDataType_Byte) return std::nullopt;
  const double seconds = VELGenericDouble(value);
  if (std::isnan(seconds)) return std::nullopt;
  return VELDate(seconds);
}

const VELArray* VELGenericArray(VELGenericType value) {
  return value.type == VELDataType_Array ? static_cast<const VELArray*>(value.data.object) : nullptr;
}
const int8_t* VELGenericCharPtr(VELGenericType value) {
  return value.type == VELDataType_CharPtr ? value.data.bytePointer : nullptr;
}
const int16_t* VELGenericShortPtr(VELGenericType value) {
  return value.type == VELDataType_Int16Ptr ? value.data.int16Pointer : nullptr;
}
const int32_t* VELGenericIntPtr(VELGenericType value) {
  return value.type == VELDataType_Int32Ptr ? value.data.int32Pointer : nullptr;
}
const int64_t* VELGenericLongPtr(VELGenericType value) {
  return value.type == VELDataType_Int64Ptr ? value.data.int64Pointer : nullptr;
}
const float* VELGenericFloatPtr(VELGenericType value) {
  return value.type == VELDataType_FloatPtr ? value.data.floatPointer : nullptr;
}
const double* VELGenericDoublePtr(VELGenericType value) {
  return value.type == VELDataType_DoublePtr ? value.data.doublePointer : nullptr;
}

VELGenericCompareResult VELGenericCompare(VELGenericType a, VELGenericType b) {
  if (!VELIsNumericType(a.type) || !VELIsNumericType(b.type)) {
    const bool same = a.type == b.type && std::bit_cast<uint64_t>(a.data) == std::bit_cast<uint64_t>(b.data);
    return same ? VELGenericCompareResult_Equal : VELGenericCompareResult_NotComparable;
  }
  if (!VELIsComparable(a.type, b.type)) return VELGenericCompareResult_NotComparable;
  if (VELIsExactOrder(a.type, b.type)) return VELExactOrder::compare(VELGenericLong(a), VELGenericLong(b));
  return VELDoubleOrder::compare(VELGenericDouble(a), VELGenericDouble(b));
}

std::string VELGenericDescription(VELGenericType value) {
  std::string text = typeName(value.type);
  char number[40] = "";
  if (value.type >= VELDataType_Int16 && value.type <= VELDataType_Byte) {
    std::snprintf(number, sizeof number, " %lld", static_cast<long long>(VELGenericLong(value)));
  } else if (VELIsNumericType(value.type)) {
    std::snprintf(number, sizeof number, " %.17g", VELGenericDouble(value));
  } else if (value.type != VELDataType_None) {
    std::snprintf(number, sizeof number, " %p", value.data.object);
  }
  return text + number;
}
