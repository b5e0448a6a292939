// data/element_converter.h: reading one stored element as another type, by a function chosen before the loop.
#pragma once

#include <cstdint>
#include <type_traits>

#include "velmora/data/generic_type.h"
#include "velmora/data/saturate.h"

/// Reads one element; floating values become integers as `VELSaturate` says, wider integers keep their low
/// bits.
template <typename Target>
using VELElementConverter = Target (*)(const void*);

template <typename Source, typename Target>
Target VELConvertElement(const void* element) {
  const Source value = *static_cast<const Source*>(element);
  if constexpr (std::is_floating_point_v<Source> && std::is_integral_v<Target>) {
    return VELSaturate<Target>(static_cast<double>(value));
  } else {
    return static_cast<Target>(value);
  }
}

// The named forms: VEL_ConvertFloatPtrToDouble, VEL_ConvertInt64PtrToInt32 …
#define VEL_CONVERTER(SourceName, Source, TargetName, Target)                     \
  inline Target VEL_Convert##SourceName##PtrTo##TargetName(const void* element) { \
    return VELConvertElement<Source, Target>(element);                            \
  }
#define VEL_CONVERTERS_TO(TargetName, Target)       \
  VEL_CONVERTER(Float, float, TargetName, Target)   \
  VEL_CONVERTER(Double, double, TargetName, Target) \
  VEL_CONVERTER(Char, int8_t, TargetName, Target)   \
  VEL_CONVERTER(Int16, int16_t, TargetName, Target) \
  VEL_CONVERTER(Int32, int32_t, TargetName, Target) \
  VEL_CONVERTER(Int64, int64_t, TargetName, Target)
VEL_CONVERTERS_TO(Float, float)
VEL_CONVERTERS_TO(Double, double)
VEL_CONVERTERS_TO(Char, int8_t)
VEL_CONVERTERS_TO(Int16, int16_t)
VEL_CONVERTERS_TO(Int32, int32_t)
VEL_CONVERTERS_TO(Int64, int64_t)
#undef VEL_CONVERTERS_TO
#undef VEL_CONVERTER

// The converter from a source tag 1 to 7 or 9 to 14 (a pointer tag reads elements of its pointee); null for
// others.
VELMORA_API VELElementConverter<double> VEL_GetDoubleConverterFunction(VELDataType source);
VELMORA_API VELElementConverter<float> VEL_GetFloatConverterFunction(VELDataType source);
VELMORA_API VELElementConverter<int32_t> VEL_GetInt32ConverterFunction(VELDataType source);
VELMORA_API VELElementConverter<int16_t> VEL_GetInt16ConverterFunction(VELDataType source);
VELMORA_API VELElementConverter<int8_t> VEL_GetCharConverterFunction(VELDataType source);
VELMORA_API VELElementConverter<int64_t> VEL_GetInt64ConverterFunction(VELDataType source);
/// Reads one element and tags it with its scalar tag; null also for DateTime, on purpose: the table knows
/// numbers, what a date column means its owner knows.
VELMORA_API VELElementConverter<VELGenericType> p_VEL_getGenericConverter(VELDataType source);
