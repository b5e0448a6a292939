#include "velmora/data/category_array_controller.h"

#include "tests/data/columns.h"

// After every kind of change the stored values are those of a plain column and the view counts them.
TEST(CategoryColumn, EveryChangeLeavesOneIndexForEachValue) {
  const auto category = VELCategoryArrayController::initWithType(VELDataType_DateTime);
  const auto plain = VELArrayController::initWithType(VELDataType_DateTime);
  const Values seventy(70, 7.0);
  VELArray dates(100, VELDate(3));
  const VELArray mixed = {VELDate(4), VELDate(5), 6};
  const std::function<void(VELArrayController&)> changes[] = {
      [](auto& c) { c.append(VELDate(9)); },
      [&](auto& c) { c.append(&dates); },
      [&](auto& c) { c.appendRange(seventy); },
      [&](auto& c) { c.appendRange(VELGenericType(seventy.data()), 70); },
      [&](auto& c) { c.appendRange(VELGenericType(&dates), 0); },
      [&](auto& c) { EXPECT_THROW(c.append(&mixed), VELInvalidArgumentException); },
      [](auto& c) { c.setValue(8.0, 3); },
      [](auto& c) { c.removeRangeFrom(2, 200); },
      [](auto& c) { c.insertValue(1.5, 0); },
      [&](auto& c) { c.insertRange(seventy, 1); },
      [&](auto& c) { c.insertRange(VELGenericType(seventy.data()), 2, 70); },
      [](auto& c) { c.reverse(); },
      [](auto& c) { c.removeAt(1); },
      [](auto& c) { c.setCount(40); },
      [](auto& c) { c.clear(); },
      [](auto& c) { c.append(2.5); },
      [](auto& c) { c.purge(); },
      [](auto& c) { c.append(3.5); }};
  for (const auto& change : changes) {
    const auto step = &change - changes;
    change(*plain);
    change(*category);
    ASSERT_EQ(Values(category->doubles().begin(), category->doubles().end()), values(*plain)) << step;
    ASSERT_EQ(category->currentMaxSize(), plain->currentMaxSize()) << step;
    for (const auto& column : {std::static_pointer_cast<VELArrayController>(category), category->clone()}) {
      const VELColumnView view = column->view();
      ASSERT_EQ(view.type, VELDataType_Int32);
      ASSERT_EQ(view.count, plain->count()) << step;
      for (int32_t i = 0; i < view.count; ++i)
        ASSERT_EQ(static_cast<const int32_t*>(view.data)[i], i) << step;
    }
  }
}

TEST(CategoryColumn, ReadersSeeIndicesAndLabelsTheValues) {
  const auto column = VELCategoryArrayController::initWithType(VELDataType_Int64, 10);
  EXPECT_EQ(VELCategoryArrayController::initWithType(VELDataType_Array), nullptr);
  double min = -1, max = -1;
  column->getRangeMin(min, max);
  EXPECT_EQ(max, 0);
  EXPECT_EQ(column->view().count, 0);
  for (const int x : {50, 10, 50, 20}) column->append(x);
  column->getRangeMin(min, max);
  EXPECT_EQ(min, 0);
  EXPECT_EQ(max, 4);
  EXPECT_EQ(column->valueAt(2).type, VELDataType_Int32);
  EXPECT_EQ(VELGenericInt(column->valueAt(2)), 2);
  EXPECT_EQ(VELGenericLong(column->getCategoryValueAtIndex(2)), 50);
  for (const int64_t outside : {int64_t{-1}, int64_t{4}, std::numeric_limits<int64_t>::max()}) {
    EXPECT_EQ(column->valueAt(outside).type, VELDataType_Float);
    EXPECT_TRUE(std::isnan(VELGenericFloat(column->valueAt(outside))));
    EXPECT_EQ(column->getCategoryValueAtIndex(outside).type, VELDataType_None);
  }
  EXPECT_EQ(column->indexOf(2.5, true, VELArraySearchMode_Nearest), 3);
  EXPECT_EQ(column->indexOf(50, true, VELArraySearchMode_Exact), -1);
  // Its own indices as values: the append moves them.
  for (int i = 0; i < 5; ++i)
    column->appendRange(VELGenericType(static_cast<const int32_t*>(column->view().data)), column->count());
  EXPECT_EQ(VELGenericLong(column->getCategoryValueAtIndex(127)), 63);
}
