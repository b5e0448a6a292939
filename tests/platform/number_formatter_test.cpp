// platform/number_formatter_test.cpp: numbers as text.
#include "velmora/platform/number_formatter.h"

#include <gtest/gtest.h>

#include <limits>

#include "velmora/platform/exception.h"

TEST(NumberFormatter, NumbersReadAsInTheirPlace) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  const struct {
    const char* locale;
    int32_t minimum, maximum;
    double number;
    const char* text;
  } rows[] = {
      {"en_US", 0, 3, 1234567.8915, "1,234,567.892"},
      {"de", 0, 3, -1234567.8915, "-1.234.567,892"},
      {"en_US", 2, 4, 1.5, "1.50"},
      {"en_US", 0, 0, 2.5, "2"},
      {"en_US", 0, 0, 3.5, "4"},
      {"en_US", 0, 3, -0.0, "-0"},
      {"en_US", 0, 3, 1e21, "1,000,000,000,000,000,000,000"},
      {"en_US", 0, 3, kInf, "∞"},
      {"en_US", 0, 3, -std::numeric_limits<double>::quiet_NaN(), "NaN"},
  };
  for (const auto& row : rows) {
    VELNumberFormatter formatter(row.locale);
    formatter.setMaximumFractionDigits(row.maximum);
    formatter.setMinimumFractionDigits(row.minimum);
    EXPECT_EQ(formatter.stringFromNumber(row.number), row.text);
  }
}

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

TEST(NumberFormatter, AnUnknownLocaleIsNamed) {
  for (const char* name : {"xx_YY", "", "no such place"}) {
    try {
      const VELNumberFormatter formatter(name);
      FAIL() << name;
    } catch (const VELInvalidArgumentException& exception) {
      EXPECT_NE(std::string(exception.what()).find("\"" + std::string(name) + "\""), std::string::npos);
    }
  }
}
