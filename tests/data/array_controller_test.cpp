#include "velmora/data/array_controller.h"

#include <array>
#include <cstring>
#include <tuple>

#include "tests/data/columns.h"
#include "velmora/data/array_controller_fifo.h"

namespace {

constexpr const char* onlyDates =
    "Array Controller of DateTime type accepts VELGenericType with Double, DateTime or NSArray with DateTime";
constexpr const char* noDates =
    "VELGenericType with DateTime data can be to ArrayController only of type DateTime";

std::pair<double, double> rangeOf(const VELArrayController& column) {
  std::pair<double, double> range;
  column.getRangeMin(range.first, range.second);
  return range;
}

}  // namespace

TEST(ArrayController, OnlyNumericTagsMakeAColumn) {
  for (int tag = -1; tag < 20; ++tag) {
    const bool stores = tag >= VELDataType_Int16 && tag <= VELDataType_DateTime;
    const auto type = static_cast<VELDataType>(tag);
    EXPECT_EQ(VELArrayController::initWithType(type) != nullptr, stores) << tag;
    EXPECT_EQ(VELArrayControllerFIFO::initWithType(type, 3) != nullptr, stores) << tag;
  }
  EXPECT_EQ(VELArrayControllerFIFO::initWithType(kDouble, -1), nullptr);
}

TEST(ArrayController, GrowthDoublesFromSixtyFour) {
  const auto grown = VELArrayController::initWithType(VELDataType_Double, -5);
  for (int i = 0; i < 64; ++i) grown->append(i);
  EXPECT_EQ(grown->currentMaxSize(), 64);
  grown->append(64);
  EXPECT_EQ(grown->currentMaxSize(), 128);
  grown->setCount(130);
  EXPECT_EQ(grown->doubles()[64], 64.0);
  grown->clear();
  EXPECT_EQ(grown->currentMaxSize(), 130);
  grown->purge();
  EXPECT_TRUE(grown->currentMaxSize() == 0 && !grown->data());
  grown->append(1);
  grown->setCount(-3);
  EXPECT_TRUE(grown->isEmpty());
  EXPECT_THROW(grown->setCount(INT64_MAX), std::bad_alloc);
  EXPECT_EQ(grown->currentMaxSize(), 64);
  // The array finds the first capacity made already: twice 64 + 100.
  const VELArray dates(100, VELDate(1));
  const auto dated = VELArrayController::initWithType(VELDataType_DateTime);
  dated->append(&dates);
  EXPECT_EQ(dated->currentMaxSize(), 328);
}

// Three ways in must store the same bytes: one by one, from a pointer, from a span.
TEST(ArrayController, BulkAppendsStoreWhatSingleAppendsStore) {
  const auto check = [](auto sample) {
    using T = decltype(sample);
    std::vector<T> source(150);
    for (size_t i = 0; i < 150; ++i) source[i] = static_cast<T>(static_cast<int>(i) * 37 % 251 - 120);
    source.insert(source.end(), {std::numeric_limits<T>::max(), std::numeric_limits<T>::lowest()});
    if constexpr (std::is_floating_point_v<T>)
      source.insert(source.end(), {T(0.9), T(-2.7), T(1e30), -T(kInf), T(kNaN)});
    for (const VELDataType type : kTypes) {
      // To dates numbers are seconds; only a pointer tells its tag, and must be one of doubles.
      const bool seconds = type == VELDataType_DateTime;
      const bool takesPointer = !seconds || std::is_same_v<T, double>;
      const auto single = VELArrayController::initWithType(type);
      const auto pointer = VELArrayController::initWithType(type);
      const auto span = VELArrayController::initWithType(type);
      for (const T value : source)
        single->append(seconds ? VELGenericType(static_cast<double>(value)) : VELGenericType(value));
      span->appendRange(source);
      if (takesPointer) pointer->appendRange(source.data(), static_cast<int64_t>(source.size()));
      const auto bytes = static_cast<size_t>(single->count() * single->dataTypeSize());
      for (const auto& other : {span, takesPointer ? pointer : span}) {
        ASSERT_EQ(other->count(), single->count());
        EXPECT_EQ(other->currentMaxSize(), single->currentMaxSize());
        EXPECT_EQ(std::memcmp(single->data(), other->data(), bytes), 0) << type;
      }
    }
  };
  std::apply([&](auto... sample) { (check(sample), ...); },
             std::tuple<int8_t, int16_t, int32_t, int64_t, float, double>());
}

TEST(ArrayController, DateColumnsTakeDatesAndSecondsOnly) {
  const auto dates = column(VELDataType_DateTime, {1.5});
  dates->append(VELDate(2));
  const VELArray list = {VELDate(3), VELDate(4)};
  dates->append(&list);
  dates->appendRange(VELGenericType(&list), 2);
  const std::array more = {VELDate(5)};
  dates->appendRange(std::span<const VELDate>(more));
  EXPECT_EQ(dates->valueAt(0).type, VELDataType_DateTime);
  EXPECT_EQ(dates->doubleData(), dates->data());
  EXPECT_TRUE(!dates->dateTimeData() && dates->floats().empty());
  const float number = 1;
  for (const VELGenericType wrong :
       {VELGenericType(1), VELGenericType(1.0F), VELGenericType(), VELGenericType(&number)}) {
    EXPECT_EQ(reasonOf([&] { dates->append(wrong); }), onlyDates);
  }
  EXPECT_EQ(reasonOf([&] { dates->appendRange(VELGenericType(&number), 1); }), onlyDates);
  EXPECT_EQ(reasonOf([&] { dates->insertValue(1, 0); }), onlyDates);
  const VELArray mixed = {VELDate(6), 7.0, VELDate(8)};
  EXPECT_EQ(reasonOf([&] { dates->append(&mixed); }), "Invalide data in array. Only NSDate allowed");
  EXPECT_EQ(values(*dates), (Values{1.5, 2, 3, 4, 3, 4, 5, 6}));

  const auto numbers = column(VELDataType_Double, {1});
  EXPECT_EQ(reasonOf([&] { numbers->append(VELDate(2)); }), noDates);
  EXPECT_EQ(reasonOf([&] { numbers->appendRange(std::span<const VELDate>(more)); }), noDates);
  for (const VELGenericType ignored : {VELGenericType(), VELGenericType(&list), VELGenericType(&number)}) {
    numbers->append(ignored);
    numbers->insertValue(ignored, 0);
    numbers->appendRange(VELGenericType(1.0), 1);
  }
  EXPECT_EQ(values(*numbers), Values{1});
}

TEST(ArrayController, EditsMoveTheTailAndIgnoreWhatIsOutside) {
  const auto edited = column(VELDataType_Int16, {0, 1, 2, 3});
  const double inserted[] = {7.9, -8.9};
  edited->insertValue(9, 4);
  edited->insertRange(inserted, 1, 2);
  EXPECT_EQ(values(*edited), (Values{0, 7, -8, 1, 2, 3, 9}));
  for (const int64_t outside : {int64_t{-1}, int64_t{8}, INT64_MAX}) {
    edited->setValue(5, outside);
    edited->insertValue(5, outside);
    edited->insertRange(inserted, outside, 2);
    edited->removeRangeFrom(outside, 2);
    edited->removeRangeFrom(2, outside);
    EXPECT_EQ(edited->valueAt(outside).type, VELDataType_None);
  }
  edited->setValue(5, 7);
  edited->insertRange(inserted, 0, -2);
  edited->insertRange(static_cast<const double*>(nullptr), 0, 2);
  EXPECT_EQ(edited->count(), 7);
  edited->setValue(-4.5, 2);
  edited->removeRangeFrom(0, 2);
  edited->removeAt(3);
  for (int time = 0; time < 2; ++time) edited->removeValue(2.0);
  edited->reverse();
  EXPECT_EQ(values(*edited), (Values{9, 1, -4}));
}

TEST(ArrayController, AColumnMayAppendItself) {
  const auto own = column(VELDataType_Double, {1, 2, 3});
  for (int i = 0; i < 6; ++i) own->appendRange(own->doubles());
  own->insertRange(own->doubles().data() + 1, 0, 2);
  EXPECT_EQ(own->currentMaxSize(), 256);
  const Values all = values(*own);
  EXPECT_EQ(Values(all.begin(), all.begin() + 4), (Values{2, 3, 1, 2}));
  EXPECT_EQ(Values(all.begin() + 191, all.end()), (Values{1, 2, 3}));
}

// A float column ends at its first NaN, a double column skips it.
TEST(ArrayController, TheRangeOfAColumnFollowsItsType) {
  constexpr auto kFloat = VELDataType_Float;
  constexpr double floatMax = std::numeric_limits<float>::max();
  constexpr double doubleMax = std::numeric_limits<double>::max();
  const struct {
    VELDataType type;
    Values values;
    double min, max;
  } cases[] = {{kDouble, {1, kNaN, 5}, 1, 5},
               {kDouble, {}, doubleMax, -doubleMax},
               {kDouble, {kNaN}, doubleMax, -doubleMax},
               {kDouble, {kInf, kNaN}, kInf, kInf},
               {kFloat, {1, kNaN, 5}, 1, 1},
               {kFloat, {kNaN, 5}, floatMax, -floatMax},
               {kFloat, {-kInf}, -kInf, -kInf},
               {VELDataType_DateTime, {kNaN, 3}, 3, 3},
               {VELDataType_Byte, {}, 127, -128},
               {VELDataType_Int64, {1e30, -1e30}, -0x1p63, 0x1p63}};
  for (const auto& row : cases)
    EXPECT_EQ(rangeOf(*column(row.type, row.values)), std::pair(row.min, row.max)) << row.type;
}

TEST(ArrayController, TheFastRangeEqualsThePlainLoopAtEveryLength) {
  const auto data = VELArrayController::initWithType(VELDataType_Double);
  double min = std::numeric_limits<double>::max();
  double max = -min;
  for (int i = 0; i < 90; ++i) {
    // Swings widely at first, so that every lane meets smaller values after its largest.
    const double value = i % 7 == 3 ? kNaN : i * 7919 % 1000 * (90 - i) - 9000.0;
    data->append(value);
    if (value < min) min = value;
    if (value > max) max = value;
    EXPECT_EQ(rangeOf(*data), std::pair(min, max)) << i;
  }
}
