// platform/color_test.cpp: colours and their codes.
#include "velmora/platform/color.h"

#include <gtest/gtest.h>

#include <limits>

TEST(Color, TheCodeHoldsTruncatedBytesWithRedLowestAndComesBackFromAColor) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  const struct {
    VELColor color;
    uint32_t code;
  } rows[] = {
      {{1.0, 0.5, 0.0, 1.0}, 0xFF007FFFu},   {{0.0, 0.0, 0.0, 0.0}, 0u},
      {{0.999, 1.0, 0.0, 0.5}, 0x7F00FFFEu}, {{kNaN, 1.0, 1.0, 1.0}, 0xFFFFFF00u},
      {{-kInf, 0.0, 0.0, 1.0}, 0xFF000000u}, {VELColor::fromBytes(0xF0, 0xA0, 0x50), 0xFF50A0F0u},
  };
  for (const auto& row : rows) EXPECT_EQ(row.color.colorCode(), row.code) << std::hex << row.code;
  (void)VELColor(kInf, 1e300, -1e300, kNaN).colorCode();  // undefined behaviour would ring here
  for (uint32_t byte = 0; byte < 256; ++byte) {
    const uint32_t code = byte | (255 - byte) << 8 | byte << 16 | (255 - byte) << 24;
    EXPECT_EQ(VELColor::fromColorCode(code).colorCode(), code);
  }
}
