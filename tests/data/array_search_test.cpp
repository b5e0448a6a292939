#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/data/columns.h"

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr VELArraySearchMode modes[] = {VELArraySearchMode_Exact, VELArraySearchMode_Nearest,
                                        VELArraySearchMode_RoundDown, VELArraySearchMode_RoundUp};

// The plain form of the search: looks at every element, for values without duplicates.
int64_t linearIndexOf(const VELArrayController& column, VELGenericType value, VELArraySearchMode mode) {
  int64_t below = -1;
  for (int64_t i = 0; i < column.count(); ++i) {
    const VELGenericCompareResult result = VELGenericCompare(value, column.valueAt(i));
    if (result == VELGenericCompareResult_Equal) return i;
    if (result == VELGenericCompareResult_NotComparable) return -1;
    if (result == VELGenericCompareResult_Greater) below = i;
  }
  if (column.isEmpty() || mode == VELArraySearchMode_Exact) return -1;
  const int64_t above = below + 1;
  if (below < 0) return 0;
  if (above == column.count()) return below;
  if (mode == VELArraySearchMode_RoundDown) return below;
  if (mode == VELArraySearchMode_RoundUp) return above;
  const double toBelow = VELGenericDouble(value) - VELGenericDouble(column.valueAt(below));
  const double toAbove = VELGenericDouble(column.valueAt(above)) - VELGenericDouble(value);
  return toBelow >= toAbove ? above : below;
}

}  // namespace

// On a tie the later index wins.
TEST(ArraySearch, EveryModeAnswersAsTheTableSays) {
  const struct {
    std::vector<double> elements;
    VELGenericType value;
    int64_t exact, nearest, down, up;
  } cases[] = {{{1, 3, 5}, 4, -1, 2, 1, 2},
               {{1, 3, 5}, 3.9, -1, 1, 1, 2},
               {{1, 3, 5}, 0, -1, 0, 0, 0},
               {{1, 3, 5}, 9, -1, 2, 2, 2},
               {{1, 3, 5}, 5.0F, 2, 2, 2, 2},
               {{1, 3, 5}, notANumber, -1, -1, -1, -1},
               {{1, 3, 5}, VELGenericType(), -1, -1, -1, -1},
               {{}, 1, -1, -1, -1, -1},
               {{2}, 1, -1, 0, 0, 0},
               {{2}, 3, -1, 0, 0, 0},
               {{2, 2, 2, 7}, 2, 0, 0, 0, 0},
               {{1, notANumber, 5}, 2, -1, -1, -1, -1}};
  for (const auto& row : cases) {
    const auto searched = column(VELDataType_Double, row.elements);
    const int64_t expected[] = {row.exact, row.nearest, row.down, row.up};
    for (const VELArraySearchMode mode : modes) {
      EXPECT_EQ(searched->indexOf(row.value, true, mode), expected[mode])
          << VELGenericDescription(row.value) << " mode " << mode;
    }
  }
}

TEST(ArraySearch, BisectingAgreesWithLookingAtEveryElement) {
  for (const VELDataType type : {VELDataType_Byte, VELDataType_Int16, VELDataType_Int32, VELDataType_Int64,
                                 VELDataType_Float, VELDataType_Double}) {
    std::vector<double> elements;
    for (int i = 0; i < 30; ++i) {
      const auto searched = column(type, elements);
      for (int quarters = -420; quarters < 420; quarters += 5) {
        const double value = quarters / 4.0;
        for (const VELArraySearchMode mode : modes) {
          for (const VELGenericType key :
               {VELGenericType(value), VELGenericType(static_cast<int32_t>(value))}) {
            ASSERT_EQ(searched->indexOf(key, true, mode), linearIndexOf(*searched, key, mode))
                << VELGenericDescription(key) << " type " << type << " count " << i << " mode " << mode;
          }
        }
      }
      const int widening = i * (i / 5 + 1);
      elements.push_back(widening - 100);
    }
  }
}

TEST(ArraySearch, LargeIntegersAreFoundExactly) {
  const int64_t base = int64_t{1} << 60;
  const int64_t lowest = std::numeric_limits<int64_t>::min();
  const auto searched = VELArrayController::initWithType(VELDataType_Int64);
  for (const int64_t value : {lowest, base, base + 3, std::numeric_limits<int64_t>::max()})
    searched->append(value);
  EXPECT_EQ(searched->indexOf(base + 3, true, VELArraySearchMode_Exact), 2);
  EXPECT_EQ(searched->indexOf(base + 1, true, VELArraySearchMode_Exact), -1);
  EXPECT_EQ(searched->indexOf(base + 1, true, VELArraySearchMode_Nearest), 1);
  EXPECT_EQ(searched->indexOf(base + 2, true, VELArraySearchMode_Nearest), 2);
  EXPECT_EQ(searched->indexOf(lowest + 1, true, VELArraySearchMode_Nearest), 0);
}

TEST(ArraySearch, UnsortedDataIsOnlyScanned) {
  const auto unsorted = column(VELDataType_Int32, {5, 1, 3, 1});
  EXPECT_EQ(unsorted->indexOf(1.0, false, VELArraySearchMode_Exact), 1);
  EXPECT_EQ(unsorted->indexOf(2, false, VELArraySearchMode_Exact), -1);
  EXPECT_EQ(
      reasonOf([&] { unsorted->indexOf(1, false, VELArraySearchMode_Nearest); }),
      "Unsorted data occurs in the collection. The only allowed SearchMode is VELArraySearchMode_Exact");
}

TEST(ArraySearch, DatesAreFoundByMomentsOnly) {
  const auto dates = column(VELDataType_DateTime, {1.5, 2.5, 3.5});
  EXPECT_EQ(dates->indexOf(VELDate(2.5), true, VELArraySearchMode_Exact), 1);
  EXPECT_EQ(dates->indexOf(2.0, true, VELArraySearchMode_RoundDown), 0);
  EXPECT_EQ(dates->indexOf(2, true, VELArraySearchMode_RoundDown), -1);
  EXPECT_EQ(dates->indexOf(2.0F, true, VELArraySearchMode_Nearest), -1);
  EXPECT_EQ(dates->indexOf(2, false, VELArraySearchMode_Exact), 1);  // a scan also finds whole seconds
  const auto numbers = column(VELDataType_Float, {1, 2});
  EXPECT_EQ(numbers->indexOf(VELDate(2), true, VELArraySearchMode_Nearest), -1);
}
