#include "velmora/data/distribution_calculator.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "tests/data/columns.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

TEST(DistributionCalculator, EachEventLooksAtWhatItBroughtAndItsNeighbours) {
  enum Event { Append, Update, Insert };
  const struct {
    Event event;
    Values values;
    int64_t index, count;
    bool sorted;
  } rows[] = {
      // Of 9, 1, 2 with one new value the older fault is not its business.
      {Append, {1, 2, 2, 3}, 0, 4, true},
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
      {Insert, {2, 1}, std::numeric_limits<int64_t>::max(), 1, true},
      {Insert, {1, 3, 2}, 1, std::numeric_limits<int64_t>::max(), false},
  };
  for (size_t i = 0; i < std::size(rows); ++i) {
    const auto& row = rows[i];
    const auto changed = column(VELDataType_Double, row.values);
    for (const bool accepts : {true, false}) {
      VELUserDefinedDistributionCalculator calculator;
      bool raised = false;
      try {
        switch (row.event) {
          case Append:
            calculator.onAppendValueInArrayController(*changed, row.count, accepts);
            break;
          case Update:
            calculator.onUpdateValueInArrayController(*changed, row.index, accepts);
            break;
          case Insert:
            calculator.onInsertValueInArrayController(*changed, row.index, row.count, accepts);
            break;
        }
      } catch (const VELException& exception) {
        raised = exception.name() == "Operation exception";
      }
      EXPECT_EQ(calculator.dataIsSortedAscending(), row.sorted) << "row " << i;
      EXPECT_EQ(raised, !row.sorted && !accepts) << "row " << i;
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

TEST(DistributionCalculator, TheBaseKnowsNoRule) {
  VELDataDistributionCalculatorBase base;
  const auto one = column(VELDataType_Double, {1});
  std::string raised;
  const auto note = [&raised](auto&& event) {
    try {
      event();
    } catch (const VELException& exception) {
      raised += exception.name() + "/" + exception.what() + ";";
    }
  };
  note([&] { base.onAppendValueInArrayController(*one, 1, true); });
  note([&] { base.onUpdateValueInArrayController(*one, 0, true); });
  note([&] { base.onInsertValueInArrayController(*one, 0, 1, true); });
  const std::string once = "Operation excpetion/Method not implemented;";
  EXPECT_EQ(raised, once + once + once);
}
