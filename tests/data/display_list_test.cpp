#include "velmora/data/display_list.h"

#include "tests/data/columns.h"
#include "tests/support/allocation_counter.h"
#include "velmora/data/xy_data_series.h"

namespace {

struct Display : VELInvalidatableElement {
  void invalidateElement() override {
    ++told;
    if (onTold) onTold();
  }
  int told = 0;
  std::function<void()> onTold;
};

}  // namespace

TEST(DisplayList, DisplaysMayComeAndGoWhileTheyAreBeingTold) {
  VELDisplayList list;
  auto leaving = std::make_shared<Display>(), late = std::make_shared<Display>(),
       dying = std::make_shared<Display>(), steady = std::make_shared<Display>();
  for (const auto& display : {leaving, dying, steady, steady}) list.add(display);
  leaving->onTold = [&] {
    list.remove(leaving.get());
    list.add(late);
    dying.reset();
  };
  for (int time = 1; time <= 2; ++time) {
    list.invalidateAll();
    EXPECT_EQ(leaving->told, 1);
    EXPECT_EQ(steady->told, time) << "listed twice, told once";
    EXPECT_EQ(late->told, time - 1);
  }
}

TEST(DisplayList, TheDeadAreForgottenThoughNobodyIsEverTold) {
  std::vector<std::shared_ptr<Display>> displays(200);
  for (auto& display : displays) display = std::make_shared<Display>();
  VELDisplayList list;
  const AllocationCounter allocations;
  for (auto& display : displays) {
    list.add(display);
    display.reset();
  }
  EXPECT_EQ(allocations.count(), 1) << "room for one display is enough";
}

TEST(DisplayList, WhoIsToldMayLetGoOfTheLastOwnerOfTheSeries) {
  for (int way = 0; way < 4; ++way) {
    auto series = std::make_shared<VELXyDataSeries>(kDouble, kDouble);
    const std::weak_ptr<VELXyDataSeries> watched = series;
    const auto first = std::make_shared<Display>(), second = std::make_shared<Display>();
    for (const auto& display : {first, second}) series->addDisplay(display);
    const auto letGo = [&series] { series.reset(); };
    way % 2 == 0 ? series->setOnDataSeriesChanged(letGo) : void(first->onTold = letGo);
    VELXyDataSeries& alive = *series;
    way < 2 ? alive.clear() : alive.appendX(1.0, 1.0);
    EXPECT_EQ(second->told, 1) << way;
    EXPECT_TRUE(watched.expired()) << way;
  }
}

TEST(DisplayList, ASeriesTellsItsBlockThenEveryDisplayWithoutAllocating) {
  VELXyDataSeries series(kDouble, kDouble);
  const auto first = std::make_shared<Display>(), second = std::make_shared<Display>();
  for (const auto& display : {first, second}) series.addDisplay(display);
  int toldByBlock = -1;
  series.setOnDataSeriesChanged([&] { toldByBlock = first->told; });
  series.appendX(1.0, 1.0);
  EXPECT_EQ(toldByBlock, 0) << "the block comes first";
  const AllocationCounter allocations;
  series.updateAt(0, 2.0, 2.0);
  EXPECT_EQ(allocations.count(), 0);
  series.setOnDataSeriesChanged([&series] { series.setOnDataSeriesChanged(nullptr); });
  series.clear();
  EXPECT_FALSE(series.onDataSeriesChanged()) << "a block may take itself away";
}
