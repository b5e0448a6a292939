#include "tests/data/columns.h"

// On a tie the later index wins.
TEST(ArraySearch, EveryModeAnswersAsTheTableSays) {
  struct Case {
    Values elements;
    VELGenericType value;
    int64_t exact, nearest, down, up;
  };
  const Values odd = {1, 3, 5};
  std::vector<Case> cases = {
      {odd, 4, -1, 2, 1, 2},     {odd, 3.9, -1, 1, 1, 2},       {odd, 0, -1, 0, 0, 0},
      {odd, 9, -1, 2, 2, 2},     {odd, 5.0F, 2, 2, 2, 2},       {odd, kNaN, -1, -1, -1, -1},
      {odd, {}, -1, -1, -1, -1}, {{}, 1, -1, -1, -1, -1},       {{2}, 1, -1, 0, 0, 0},
      {{2}, 3, -1, 0, 0, 0},     {{2, 2, 2, 7}, 2, 0, 0, 0, 0}, {{1, kNaN, 5}, 2, -1, -1, -1, -1}};
  // Of each length the elements 0, 4, 8 … : each of them, and both sides of each gap.
  Values fours;
  for (int64_t count = 1; count <= 30; ++count) {
    fours.push_back(static_cast<double>(4 * (count - 1)));
    for (int64_t i = 0; i < count; ++i) {
      const int64_t next = std::min(i + 1, count - 1);
      cases.push_back({fours, 4 * i, i, i, i, i});
      cases.push_back({fours, static_cast<double>(4 * i) + 1.75, -1, i, i, next});
      cases.push_back({fours, static_cast<float>(4 * i) + 2.25F, -1, next, i, next});
    }
  }
  for (const Case& row : cases) {
    const bool hasGap =
        std::any_of(row.elements.begin(), row.elements.end(), [](double v) { return v != v; });
    for (const VELDataType type : kTypes) {
      // Dates are found by moments only, and whole numbers have no gap.
      if (type == VELDataType_DateTime || (hasGap && type != kDouble && type != VELDataType_Float)) continue;
      const auto searched = column(type, row.elements);
      const int64_t expected[] = {row.exact, row.nearest, row.down, row.up};
      for (size_t mode = 0; mode < 4; ++mode)
        EXPECT_EQ(searched->indexOf(row.value, true, static_cast<VELArraySearchMode>(mode)), expected[mode])
            << VELGenericDescription(row.value) << " mode " << mode;
    }
  }
}

TEST(ArraySearch, LargeIntegersAreFoundExactly) {
  const int64_t base = int64_t{1} << 60;
  const auto searched = VELArrayController::initWithType(VELDataType_Int64);
  for (const int64_t value : {INT64_MIN, base, base + 3, INT64_MAX}) searched->append(value);
  EXPECT_EQ(searched->indexOf(base + 3, true, VELArraySearchMode_Exact), 2);
  EXPECT_EQ(searched->indexOf(base + 1, true, VELArraySearchMode_Exact), -1);
  for (const auto& [value, nearest] : {std::pair{base + 1, 1}, {base + 2, 2}, {INT64_MIN + 1, 0}})
    EXPECT_EQ(searched->indexOf(value, true, VELArraySearchMode_Nearest), nearest);
}
