#include "velmora/data/array_controller_2d.h"

#include "tests/data/columns.h"

TEST(Grid, AnElementStandsAtItsColumnInItsRow) {
  const auto grid = VELArrayController2D::initWithType(VELDataType_Int16, 3, 2);
  grid->setValue(7.9, 2, 1);
  for (const auto& [x, y] : {std::pair{-1, 0}, {3, 0}, {0, 2}, {0, -1}, {INT32_MAX, INT32_MAX}}) {
    grid->setValue(9, x, y);
    EXPECT_EQ(grid->valueAtX(x, y).type, VELDataType_None);
  }
  const auto* elements = static_cast<const int16_t*>(grid->data());
  EXPECT_EQ(std::vector(elements, elements + 6), (std::vector<int16_t>{0, 0, 0, 0, 0, 7}));
  EXPECT_EQ(VELArrayController2D::initWithType(VELDataType_Byte, -3, -2), nullptr);
  EXPECT_EQ(VELArrayController2D::initWithType(VELDataType_Double, INT32_MAX, INT32_MAX), nullptr);
}
