#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "velmora/axes/number_format.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/axes/numeric_label_provider.h"
#include "velmora/platform/exception.h"
#include "velmora/platform/number_formatter.h"

namespace {

TEST(NumberFormat, OnlyOneFloatingPointConversionReachesPrintf) {
  struct Row {
    std::string format;
    bool isUsed;
    std::string text;  ///< of 1234.5
  };
  for (const Row& row : std::vector<Row>{
           {"%.1f mV", true, "1234.5 mV"},
           {"100%% of %g", true, "100% of 1234.5"},
           {"%-9.0f|", true, "1234     |"},
           {"%.100f", true, std::string("1234.5") + std::string(99, '0')},
           {"", false, "1234.5"},
           {"%s", false, "1234.5"},
           {"%n", false, "1234.5"},
           {"%f %f", false, "1234.5"},
           {"%*f", false, "1234.5"},
           {"%Lf", false, "1234.5"},
           {"%1$f", false, "1234.5"},
           {"%", false, "1234.5"},
           {"%99999f", false, "1234.5"},
           {std::string("%f\0%n", 5), false, "1234.5"},
       }) {
    EXPECT_EQ(VELIsNumberFormat(row.format), row.isUsed) << row.format;
    EXPECT_EQ(VELFormatNumber(1234.5, row.format), row.text) << row.format;
  }
}

TEST(NumericLabels, FollowTheAxisInThisOrderFormatFormatterG) {
  const auto axis = std::make_shared<VELNumericAxis>();
  EXPECT_EQ(axis->formatText(1234567.0), "1.23457e+06");
  EXPECT_EQ(axis->formatText(0.1 + 0.2), "0.3");
  EXPECT_EQ(axis->formatText(VELGenericType(int16_t{-7})), "-7");
  EXPECT_EQ(axis->formatText(std::numeric_limits<double>::quiet_NaN()).substr(0, 3), "nan");
  EXPECT_EQ(axis->formatCursorText(2.5), "2.5");

  const auto formatter = std::make_shared<VELNumberFormatter>("en_US");
  formatter->setMinimumFractionDigits(2);
  axis->setNumberFormatter(formatter);
  EXPECT_EQ(axis->formatText(1234567.0), "1,234,567.00");
  axis->setTextFormatting("%.0f bpm");
  EXPECT_EQ(axis->formatText(61.7), "62 bpm");
  EXPECT_EQ(axis->formatCursorText(61.7), "62 bpm");
  axis->setCursorTextFormatting("%.3f");
  EXPECT_EQ(axis->formatCursorText(61.7), "61.700");

  axis->setLabelProvider(nullptr);
  EXPECT_EQ(axis->formatText(61.789), "61.79");
  EXPECT_EQ(axis->formatText(1e300).size(), 24u) << "what does not fit into 25 bytes is cut";
  EXPECT_EQ(VELNumericLabelProvider().formatLabel(0.25), "0.25") << "an axis is not needed";
  EXPECT_THROW(VELLabelProviderBase().formatLabel(1), VELInternalInconsistencyException);
}

}  // namespace
