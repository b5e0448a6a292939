#include "velmora/data/distribution_calculator.h"

#include "tests/data/columns.h"

namespace {

enum Event { Append, Update, Insert };

struct Row {
  Event event;
  Values values;
  int64_t index, count;
  bool sorted;
};

void tell(VELDataDistributionCalculatorBase& calculator, const Row& row, bool accepts) {
  const auto x = column(kDouble, row.values);
  if (row.event == Append) calculator.onAppendValueInArrayController(*x, row.count, accepts);
  if (row.event == Update) calculator.onUpdateValueInArrayController(*x, row.index, accepts);
  if (row.event == Insert) calculator.onInsertValueInArrayController(*x, row.index, row.count, accepts);
}

}  // namespace

// Of 9, 1, 2 with one new value the older fault is not its business.
TEST(DistributionCalculator, EachEventLooksAtWhatItBroughtAndItsNeighbours) {
  constexpr int64_t far = INT64_MAX;
  const Row rows[] = {{Append, {1, 2, 2, 3}, 0, 4, true},  {Append, {1, 2, 1}, 0, 1, false},
                      {Append, {9, 1, 2}, 0, 1, true},     {Append, {9, 1, 2}, 0, 2, false},
                      {Append, {2, kNaN, 1}, 0, 3, true},  {Append, {1, 0}, 0, 0, true},
                      {Append, {1, 0}, 0, 99, false},      {Update, {1, 5, 3}, 1, 0, false},
                      {Update, {5, 1, 3}, 1, 0, false},    {Update, {1, 2, 0}, 0, 0, true},
                      {Update, {0, 2, 1}, 2, 0, false},    {Update, {1, 1, 1}, 1, 0, true},
                      {Update, {2, 1}, 5, 0, true},        {Update, {2, 1}, -1, 0, true},
                      {Insert, {1, 2, 3, 2}, 1, 2, false}, {Insert, {1, 2, 3, 3, 2}, 1, 2, true},
                      {Insert, {5, 4, 6}, 0, 1, false},    {Insert, {2, 1}, far, 1, true},
                      {Insert, {1, 3, 2}, 1, far, false}};
  for (const Row& row : rows) {
    for (const bool accepts : {true, false}) {
      VELUserDefinedDistributionCalculator calculator;
      VELDataDistributionCalculatorBase base;
      EXPECT_EQ(raisesUnsorted([&] { tell(calculator, row, accepts); }), !row.sorted && !accepts)
          << &row - rows;
      EXPECT_EQ(calculator.dataIsSortedAscending(), row.sorted) << &row - rows;
      EXPECT_TRUE(calculator.dataIsEvenlySpaced()) << "an order tells nothing of the spacing";
      calculator.updateDataDistributionFlagsWhenRemovedXValues();
      calculator.clear();
      EXPECT_TRUE(calculator.dataIsSortedAscending() && !calculator.dataIsEvenlySpaced());
      base.updateDataDistributionFlagsWhenRemovedXValues();
      base.clear();
      EXPECT_TRUE(base.dataIsEvenlySpaced());
      EXPECT_EQ(raisedBy([&] { tell(base, row, accepts); }), "Operation excpetion: Method not implemented");
    }
  }
}
