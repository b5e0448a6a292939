#include "velmora/data/array_controller.h"

#include <cstring>
#include <tuple>

#include "tests/data/columns.h"

namespace {

std::pair<double, double> rangeOf(const VELArrayController& column) {
  std::pair<double, double> range;
  column.getRangeMin(range.first, range.second);
  return range;
}

}  // namespace

TEST(ArrayController, GrowthDoublesFromSixtyFour) {
  const auto grown = VELArrayController::initWithType(VELDataType_Double, -5);
  for (int i = 0; i < 64; ++i) grown->append(i);
  EXPECT_EQ(grown->currentMaxSize(), 64);
  grown->append(64);
  EXPECT_EQ(grown->currentMaxSize(), 128);
  grown->setCount(-3);
  EXPECT_TRUE(grown->isEmpty());
  EXPECT_THROW(grown->setCount(INT64_MAX), std::bad_alloc);
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
  edited->insertRange(inserted, 0, -2);
  edited->insertRange(static_cast<const double*>(nullptr), 0, 2);
  EXPECT_EQ(edited->count(), 7);
  edited->removeRangeFrom(0, 2);
  edited->removeAt(3);
  edited->removeValue(2.0);
  edited->reverse();
  EXPECT_EQ(values(*edited), (Values{9, 1, -8}));
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
