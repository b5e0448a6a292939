#include "velmora/data/distribution_calculator.h"

#include <gtest/gtest.h>

#include "tests/data/columns.h"

namespace {

enum Event { Append, Update, Insert };

struct Row {
  Event event;
  Values values;
  int64_t index, count;
  bool sorted;
};

/// Tells of the event, and answers the exception that it raises, if any.
std::string raisedBy(VELDataDistributionCalculatorBase& calculator, const Row& row, bool accepts) {
  const auto x = column(kDouble, row.values);
  try {
    if (row.event == Append) calculator.onAppendValueInArrayController(*x, row.count, accepts);
    if (row.event == Update) calculator.onUpdateValueInArrayController(*x, row.index, accepts);
    if (row.event == Insert) calculator.onInsertValueInArrayController(*x, row.index, row.count, accepts);
  } catch (const VELException& exception) {
    return exception.name() + "/" + exception.what();
  }
  return "";
}

}  // namespace

// Of 9, 1, 2 with one new value the older fault is not its business.
TEST(DistributionCalculator, EachEventLooksAtWhatItBroughtAndItsNeighbours) {
  constexpr int64_t far = std::numeric_limits<int64_t>::max();
  const Row rows[] = {{Append, {1, 2, 2, 3}, 0, 4, true},
                      {Append, {1, 2, 1}, 0, 1, false},
                      {Append, {9, 1, 2}, 0, 1, true},
                      {Append, {9, 1, 2}, 0, 2, false},
                      {Append, {7}, 0, 1, true},
                      {Append, {2, kNaN, 1}, 0, 3, true},
                      {Append, {1, 0}, 0, 0, true},
                      {Append, {1, 0}, 0, 99, false},
                      {Append, {}, 0, 0, true},
                      {Update, {1, 5, 3}, 1, 0, false},
                      {Update, {5, 1, 3}, 1, 0, false},
                      {Update, {1, 2, 0}, 0, 0, true},
                      {Update, {0, 2, 1}, 2, 0, false},
                      {Update, {1, 1, 1}, 1, 0, true},
                      {Update, {2, 1}, 5, 0, true},
                      {Update, {2, 1}, -1, 0, true},
                      {Insert, {1, 2, 3, 2}, 1, 2, false},
                      {Insert, {1, 2, 3, 3, 2}, 1, 2, true},
                      {Insert, {5, 4, 6}, 0, 1, false},
                      {Insert, {2, 1}, far, 1, true},
                      {Insert, {1, 3, 2}, 1, far, false}};
  for (const Row& row : rows) {
    for (const bool accepts : {true, false}) {
      VELUserDefinedDistributionCalculator calculator;
      VELDataDistributionCalculatorBase base;
      const std::string refusal = "Operation exception/Data series can accepts only sorted data";
      EXPECT_EQ(raisedBy(calculator, row, accepts), row.sorted || accepts ? "" : refusal) << &row - rows;
      EXPECT_EQ(calculator.dataIsSortedAscending(), row.sorted) << &row - rows;
      EXPECT_EQ(raisedBy(base, row, accepts), "Operation excpetion/Method not implemented");
    }
  }
}

TEST(DistributionCalculator, AClearedOneIsSortedAgainAndKeepsWhatIsSaidOfTheSpacing) {
  VELUserDefinedDistributionCalculator calculator;
  EXPECT_TRUE(calculator.dataIsSortedAscending() && calculator.dataIsEvenlySpaced());
  calculator.setDataIsSortedAscending(false);
  calculator.updateDataDistributionFlagsWhenRemovedXValues();
  calculator.clear();
  EXPECT_TRUE(calculator.dataIsSortedAscending());
  EXPECT_FALSE(calculator.dataIsEvenlySpaced());
  calculator.VELDataDistributionCalculatorBase::clear();
  EXPECT_TRUE(calculator.dataIsEvenlySpaced());
}
