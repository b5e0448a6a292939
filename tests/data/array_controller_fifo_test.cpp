#include "velmora/data/array_controller_fifo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "tests/data/columns.h"
#include "velmora/data/category_array_controller.h"

namespace {

std::shared_ptr<VELArrayControllerFIFO> ring(int64_t capacity, int count) {
  auto result = VELArrayControllerFIFO::initWithType(VELDataType_Double, capacity);
  for (int i = 1; i <= count; ++i) result->append(i);
  return result;
}

Values physical(const VELArrayController& column) {
  return {column.doubles().begin(), column.doubles().end()};
}

}  // namespace

TEST(Fifo, AFullRingOverwritesItsOldestValueAndIsSearchedFromIt) {
  const auto full = ring(3, 5);
  EXPECT_EQ(values(*full), (Values{3, 4, 5}));
  EXPECT_EQ(physical(*full), (Values{4, 5, 3}));
  EXPECT_EQ(full->headIndex(), 2);
  full->setValue(30, 0);
  full->setValue(99, 3);
  full->setValue(99, -1);
  EXPECT_EQ(physical(*full), (Values{4, 5, 30}));
  full->setValue(3, 0);
  EXPECT_EQ(full->indexOf(4.0, true, VELArraySearchMode_Exact), 1);
  EXPECT_EQ(full->indexOf(3.0, false, VELArraySearchMode_Exact), 0);
  EXPECT_EQ(full->headIndex(), 2);
  EXPECT_EQ(full->indexOf(4.5, true, VELArraySearchMode_RoundUp), 2) << "normalised";
  EXPECT_EQ(full->headIndex(), 0);
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

TEST(Fifo, AClearedFifoStartsAtItsHeadAgain) {
  const auto cleared = ring(3, 5);
  cleared->clear();
  EXPECT_EQ(cleared->headIndex(), 0);
  cleared->append(7);
  EXPECT_EQ(values(*cleared), Values{7});
  cleared->purge();
  cleared->append(8);
  EXPECT_TRUE(cleared->isEmpty());
}

TEST(Fifo, BulkAppendsAndInsertsDoNothing) {
  const auto still = ring(3, 2);
  const double more[] = {8, 9};
  still->appendRange(std::span<const double>(more));
  still->appendRange(more, 2);
  still->insertValue(8, 0);
  still->insertRange(more, 0, 2);
  EXPECT_EQ(values(*still), (Values{1, 2}));
}

TEST(Fifo, ARingOfDatesTakesArraysOneByOne) {
  const auto dates = VELArrayControllerFIFO::initWithType(VELDataType_DateTime, 2);
  const VELArray list = {VELDate(1), VELDate(2), VELDate(3)};
  dates->append(&list);
  EXPECT_EQ(values(*dates), (Values{2, 3}));
  EXPECT_THROW(dates->append(4), VELInvalidArgumentException);
  const VELArray mixed = {VELDate(5), 6};
  EXPECT_THROW(dates->append(&mixed), VELInvalidArgumentException);
  EXPECT_EQ(values(*dates), (Values{3, 5}));
}

TEST(Fifo, CopiesAreInLogicalOrder) {
  const auto original = ring(3, 5);
  const auto category = VELCategoryArrayController::initWithType(VELDataType_DateTime);
  category->appendRange(Values{9, 8});
  const struct {
    VELArrayControllerPtr column;
    Values copied;
  } rows[] = {{original, {3, 4, 5}},
              {column(kDouble, {7, 6}), {7, 6}},
              {category, {9, 8}},  // the values, not their places
              {column(kDouble, {}), {}}};
  VELRawBuffer copy;
  for (const auto& row : rows) {
    int64_t count = -1;
    VELDataType type = VELDataType_None;
    row.column->copyToArray(copy, count, type);
    const auto* elements = static_cast<const double*>(copy.data());
    EXPECT_EQ(Values(elements, elements + count), row.copied);
    EXPECT_EQ(type, row.column->type());
  }
  const auto clone = original->clone();
  clone->append(6);
  EXPECT_EQ(values(*clone), (Values{4, 5, 6}));
}
