#include "velmora/data/element_converter.h"

namespace {

constexpr int slotCount = VELDataType_DoublePtr + 1;

// Slot 8 is unassigned on purpose: no type has that number.
template <typename Target>
constexpr VELElementConverter<Target> converters[slotCount] = {
    nullptr,
    VELConvertElement<int16_t, Target>,
    VELConvertElement<int32_t, Target>,
    VELConvertElement<int64_t, Target>,
    VELConvertElement<int8_t, Target>,
    VELConvertElement<float, Target>,
    VELConvertElement<double, Target>,
    VELConvertElement<double, Target>,
    nullptr,
    VELConvertElement<int8_t, Target>,
    VELConvertElement<int16_t, Target>,
    VELConvertElement<int32_t, Target>,
    VELConvertElement<int64_t, Target>,
    VELConvertElement<float, Target>,
    VELConvertElement<double, Target>,
};

template <typename Target>
VELElementConverter<Target> converterFrom(VELDataType source) {
  return source >= 0 && source < slotCount ? converters<Target>[source] : nullptr;
}

}  // namespace

VELElementConverter<double> VEL_GetDoubleConverterFunction(VELDataType source) {
  return converterFrom<double>(source);
}
VELElementConverter<float> VEL_GetFloatConverterFunction(VELDataType source) {
  return converterFrom<float>(source);
}
VELElementConverter<int32_t> VEL_GetInt32ConverterFunction(VELDataType source) {
  return converterFrom<int32_t>(source);
}
VELElementConverter<int16_t> VEL_GetInt16ConverterFunction(VELDataType source) {
  return converterFrom<int16_t>(source);
}
VELElementConverter<int8_t> VEL_GetCharConverterFunction(VELDataType source) {
  return converterFrom<int8_t>(source);
}
VELElementConverter<int64_t> VEL_GetInt64ConverterFunction(VELDataType source) {
  return converterFrom<int64_t>(source);
}
VELElementConverter<VELGenericType> p_VEL_getGenericConverter(VELDataType source) {
  return source == VELDataType_DateTime ? nullptr : converterFrom<VELGenericType>(source);
}
