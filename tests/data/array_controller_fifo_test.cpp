#include "velmora/data/array_controller_fifo.h"

#include <deque>

#include "tests/data/columns.h"

namespace {

std::shared_ptr<VELArrayControllerFIFO> ring(int64_t capacity, int count) {
  auto result = VELArrayControllerFIFO::initWithType(kDouble, capacity);
  for (int i = 1; i <= count; ++i) result->append(i);
  return result;
}

}  // namespace

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

TEST(Fifo, AClearedFifoStartsAtItsHeadAgainAndTakesNoBulk) {
  const auto cleared = ring(3, 5);
  cleared->clear();
  EXPECT_EQ(cleared->headIndex(), 0);
  cleared->append(7);
  const double more[] = {8, 9};
  cleared->appendRange(std::span<const double>(more));
  cleared->insertRange(more, 0, 2);
  EXPECT_EQ(values(*cleared), Values{7});
}
