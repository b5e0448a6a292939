#include "velmora/data/number_span.h"

VELNumberSpan::VELNumberSpan(VELGenericType pointer, int64_t count) {
  constexpr VELDataType pointees[] = {VELDataType_Byte,  VELDataType_Int16, VELDataType_Int32,
                                      VELDataType_Int64, VELDataType_Float, VELDataType_Double};
  const bool isPointer = pointer.type >= VELDataType_CharPtr && pointer.type <= VELDataType_DoublePtr;
  if (!isPointer || pointer.data.object == nullptr || count < 1) return;
  _type = pointees[pointer.type - VELDataType_CharPtr];
  _data = pointer.data.object;
  _count = count;
}
