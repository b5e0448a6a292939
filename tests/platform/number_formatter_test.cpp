// platform/number_formatter_test.cpp: numbers as text.
#include "velmora/platform/number_formatter.h"

#include <gtest/gtest.h>

#include <limits>

TEST(NumberFormatter, TheBoundsOfDigitsNeverCross) {
  VELNumberFormatter formatter;
  formatter.setMinimumFractionDigits(5);
  EXPECT_EQ(formatter.maximumFractionDigits(), 5);
  formatter.setMaximumFractionDigits(1);
  EXPECT_EQ(formatter.minimumFractionDigits(), 1);
  formatter.setMaximumFractionDigits(std::numeric_limits<int32_t>::min());
  EXPECT_EQ(formatter.stringFromNumber(0.7), "1");
  formatter.setMinimumFractionDigits(std::numeric_limits<int32_t>::max());
  EXPECT_EQ(formatter.stringFromNumber(0.5).size(), 102u);
  formatter.setMaximumFractionDigits(0);
  formatter.setUsesGrouping(false);
  EXPECT_EQ(formatter.stringFromNumber(1234567.0), "1234567");
}
