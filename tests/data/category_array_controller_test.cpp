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
      [&](auto& c) { c.appendRange(seventy); },
      [&](auto& c) { c.appendRange(VELGenericType(seventy.data()), 70); },
      [&](auto& c) { c.appendRange(VELGenericType(&dates), 0); },
      [&](auto& c) { EXPECT_THROW(c.append(&mixed), VELInvalidArgumentException); },
      [](auto& c) { c.setValue(8.0, 3); },
      [](auto& c) { c.removeRangeFrom(2, 100); },
      [&](auto& c) { c.insertRange(seventy, 1); },
      [&](auto& c) { c.insertRange(VELGenericType(seventy.data()), 2, 70); },
      [](auto& c) { c.reverse(); },
      [](auto& c) { c.setCount(40); },
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
  for (const int x : {50, 10, 50, 20}) column->append(x);
  EXPECT_EQ(VELGenericInt(column->valueAt(2)), 2);
  EXPECT_EQ(VELGenericLong(column->getCategoryValueAtIndex(2)), 50);
  for (const int64_t outside : {int64_t{-1}, int64_t{4}, std::numeric_limits<int64_t>::max()}) {
    EXPECT_TRUE(std::isnan(VELGenericFloat(column->valueAt(outside))));
    EXPECT_EQ(column->getCategoryValueAtIndex(outside).type, VELDataType_None);
  }
}
