#include "velmora/data/generic_type.h"

#include <array>

#include "tests/data/columns.h"
#include "velmora/data/element_converter.h"
#include "velmora/data/element_type.h"

namespace {

VELGenericType tagged(VELDataType type, const void* object) {
  return VEL_constructGenericTypeWithInfo(&object, type);
}

struct Row {
  const char* name;
  VELGenericType value;
  int8_t asChar;
  int16_t asShort;
  int32_t asInt;
  int64_t asLong;
  double asDouble;
};

const Row rows[] = {
    {"low 8 bits of 300", int32_t{300}, 44, 300, 300, 300, 300.0},
    {"low bits of a long", int64_t{0x1234567890}, -112, 0x7890, 0x34567890, 0x1234567890, 0x1234567890p0},
    {"truncated toward zero", -2.7, -2, -2, -2, -2, -2.7},
    {"saturates", 1e300, 127, 32767, INT32_MAX, INT64_MAX, 1e300},
    {"saturates below", -kInf, -128, -32768, INT32_MIN, INT64_MIN, -kInf},
    {"2^63 is beyond", 0x1p63, 127, 32767, INT32_MAX, INT64_MAX, 0x1p63},
    {"NaN", kNaN, 0, 0, 0, 0, kNaN},
    {"unsigned takes the wider type", 0xFFFFFFFFU, -1, -1, -1, 0xFFFFFFFF, 4294967295.0},
    {"a huge unsigned saturates", UINT64_MAX, -1, -1, -1, INT64_MAX, 0x1p63},
    {"no number", VELGenericType(), 0, 0, 0, 0, kNaN},
    {"a pointer is no number", tagged(VELDataType_Object, &kNaN), 0, 0, 0, 0, kNaN},
};

}  // namespace

TEST(GenericType, EveryTagReadsAsEveryNumber) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(VELGenericChar(row.value), row.asChar);
    EXPECT_EQ(VELGenericShort(row.value), row.asShort);
    EXPECT_EQ(VELGenericInt(row.value), row.asInt);
    EXPECT_EQ(VELGenericLong(row.value), row.asLong);
    EXPECT_TRUE(same(VELGenericDouble(row.value), row.asDouble));
    EXPECT_TRUE(same(VELGenericFloat(row.value), static_cast<float>(row.asDouble)));
  }
}

// Integers meet dates in whole seconds and each other exactly; the distance of two infinities is no number.
TEST(GenericType, ComparisonFollowsTheTagsInTheirOrder) {
  const int64_t big = (int64_t{1} << 53) + 1;
  const VELGenericType object = tagged(VELDataType_Object, &big);
  const VELGenericType list = tagged(VELDataType_Array, &big);
  const VELDate date(5.9);
  const struct {
    VELGenericType a, b;
    int32_t expected;
  } cases[] = {
      {3, 3.0, 1},    {date, 5, 0},    {big, big - 1, 3}, {int16_t{5}, date, 1}, {1.0, 1.0 + 0x1p-52, 1},
      {{}, {}, 1},    {6.0, date, 3},  {big, 0x1p53, 1},  {object, list, 0},     {1.0, 1.0 + 0x1p-51, 2},
      {-0.0, 0.0, 1}, {kNaN, kNaN, 0}, {kInf, kInf, 0},   {object, object, 1}};
  for (const auto& row : cases) {
    EXPECT_EQ(VELGenericCompare(row.a, row.b), row.expected)
        << VELGenericDescription(row.a) << " with " << VELGenericDescription(row.b);
  }
}

TEST(ElementConverter, EveryElementReadsAsItsGenericValueWould) {
  for (int tag = VELDataType_Int16; tag <= VELDataType_DoublePtr; ++tag) {
    const auto type = static_cast<VELDataType>(tag);
    if (tag == 8) continue;
    const auto scalar =
        static_cast<VELDataType>(tag < 8 ? tag : std::array{4, 1, 2, 3, 5, 6}[static_cast<size_t>(tag - 9)]);
    VELVisitElementType(scalar, [&](auto element) {
      using T = typename decltype(element)::type;
      for (const double number : {0.0, -2.7, 100.0, -129.0, 1e30, kNaN}) {
        T stored{};
        if constexpr (std::is_integral_v<T>) stored = VELSaturate<T>(number);
        if constexpr (!std::is_integral_v<T>) stored = static_cast<T>(number);
        const VELGenericType value = stored;
        EXPECT_EQ(VEL_GetCharConverterFunction(type)(&stored), VELGenericChar(value));
        EXPECT_EQ(VEL_GetInt16ConverterFunction(type)(&stored), VELGenericShort(value));
        EXPECT_EQ(VEL_GetInt32ConverterFunction(type)(&stored), VELGenericInt(value));
        EXPECT_EQ(VEL_GetInt64ConverterFunction(type)(&stored), VELGenericLong(value));
        EXPECT_TRUE(same(VEL_GetDoubleConverterFunction(type)(&stored), VELGenericDouble(value)));
        EXPECT_TRUE(same(VEL_GetFloatConverterFunction(type)(&stored), VELGenericFloat(value)));
      }
    });
  }
  for (const int tag : {-1, 0, 8, 15, 16, 1000}) {
    EXPECT_EQ(VEL_GetInt32ConverterFunction(static_cast<VELDataType>(tag)), nullptr);
  }
}
