#include "velmora/data/array_controller_fifo.h"

#include <deque>

#include "tests/data/columns.h"
#include "velmora/data/category_array_controller.h"

namespace {

std::shared_ptr<VELArrayControllerFIFO> ring(int64_t capacity, int count) {
  auto result = VELArrayControllerFIFO::initWithType(kDouble, capacity);
  for (int i = 1; i <= count; ++i) result->append(i);
  return result;
}

Values physical(const VELArrayController& column) {
  return {column.doubles().begin(), column.doubles().end()};
}

}  // namespace

TEST(Fifo, AFullRingOverwritesItsOldestValueAndIsSearchedFromIt) {
  const auto full = ring(3, 5);
  EXPECT_EQ(full->headIndex(), 2);
  full->setValue(30, 0);
  for (const int64_t outside : {3, -1}) full->setValue(99, outside);
  EXPECT_EQ(physical(*full), (Values{4, 5, 30}));
  full->setValue(3, 0);
  EXPECT_EQ(full->indexOf(4.0, true, VELArraySearchMode_Exact), 1);
  EXPECT_EQ(full->indexOf(3.0, false, VELArraySearchMode_Exact), 0);
  EXPECT_EQ(full->headIndex(), 2);
  EXPECT_EQ(full->indexOf(4.5, true, VELArraySearchMode_RoundUp), 2) << "normalised";
  EXPECT_EQ(physical(*full), (Values{3, 4, 5}));
  full->removeValue(4.0);
  EXPECT_EQ(values(*full), (Values{3, 5}));
}

TEST(Fifo, ItAlwaysHoldsTheNewestValuesInOrder) {
  for (int64_t capacity = 0; capacity < 6; ++capacity) {
    const auto tested = ring(capacity, 0);
    std::deque<double> expected;
    for (int i = 0; i < 40; ++i) {
      tested->append(i);
      expected.push_back(i);
      if (std::ssize(expected) > capacity) expected.pop_front();
      if (i % 11 == 5) tested->normalizeIndices();
      if (i % 17 == 9 && expected.size() > 2) {
        tested->removeAt(1);
        expected.erase(expected.begin() + 1);
      }
      if (i == 20) tested->setCount(100);
      if (i == 30) {
        tested->reverse();
        std::reverse(expected.begin(), expected.end());
      }
      ASSERT_EQ(values(*tested), Values(expected.begin(), expected.end())) << capacity << " after " << i;
      ASSERT_EQ(tested->currentMaxSize(), capacity);
    }
  }
}

TEST(Fifo, TheFirstNaNEndsARingOfFloatsInLogicalOrder) {
  const auto ring = VELArrayControllerFIFO::initWithType(VELDataType_Float, 3);
  for (const double value : {1.0, 2.0, kNaN, 4.0, 5.0}) ring->append(value);
  double min = 0, max = 0;
  ring->getRangeMin(min, max);
  EXPECT_GT(min, max) << "4 and 5 stand before it in memory only";
}

TEST(Fifo, AClearedFifoStartsAtItsHeadAgainAndTakesNoBulk) {
  const auto cleared = ring(3, 5);
  cleared->clear();
  EXPECT_EQ(cleared->headIndex(), 0);
  cleared->append(7);
  const double more[] = {8, 9};
  cleared->appendRange(std::span<const double>(more));
  cleared->appendRange(more, 2);
  cleared->insertValue(8, 0);
  cleared->insertRange(more, 0, 2);
  EXPECT_EQ(values(*cleared), Values{7});
  cleared->purge();
  cleared->append(8);
  EXPECT_TRUE(cleared->isEmpty());
}

TEST(Fifo, ARingOfDatesTakesArraysOneByOne) {
  const auto dates = VELArrayControllerFIFO::initWithType(VELDataType_DateTime, 2);
  const VELArray list = {VELDate(1), VELDate(2), VELDate(3)}, mixed = {VELDate(5), 6};
  dates->append(&list);
  for (const VELGenericType refused : {VELGenericType(4), VELGenericType(&mixed)})
    EXPECT_THROW(dates->append(refused), VELInvalidArgumentException);
  EXPECT_EQ(values(*dates), (Values{3, 5}));
}

TEST(Fifo, CopiesAreInLogicalOrder) {
  const auto category = VELCategoryArrayController::initWithType(VELDataType_DateTime);
  category->appendRange(Values{9, 8});
  const std::pair<VELArrayControllerPtr, Values> rows[] = {
      {ring(3, 5), {3, 4, 5}},
      {column(kDouble, {7, 6}), {7, 6}},
      {category, {9, 8}},  // the values, not their places
      {column(kDouble, {}), {}}};
  VELRawBuffer copy;
  for (const auto& [source, copied] : rows) {
    int64_t count = -1;
    VELDataType type = VELDataType_None;
    source->copyToArray(copy, count, type);
    const auto* elements = static_cast<const double*>(copy.data());
    EXPECT_EQ(Values(elements, elements + count), copied);
    EXPECT_EQ(type, source->type());
  }
}
