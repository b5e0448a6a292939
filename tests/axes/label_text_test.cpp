#include "tests/axes/tick_lists.h"
#include "tests/support/allocation_counter.h"
#include "velmora/axes/default_tick_label.h"
#include "velmora/axes/logarithmic_numeric_axis.h"
#include "velmora/axes/number_format.h"
#include "velmora/axes/numeric_label_provider.h"
#include "velmora/axes/text_formatting_style.h"
#include "velmora/platform/number_formatter.h"

TEST(NumberFormat, OnlyOneFloatingPointConversionReachesPrintf) {
  const std::pair<std::string, std::string> used[] = {{"%.1f mV", "1234.5 mV"},
                                                      {"100%% of %g", "100% of 1234.5"},
                                                      {"%-9.0f|", "1234     |"},
                                                      {"%.100f", "1234.5" + std::string(99, '0')}};
  for (const auto& [format, text] : used) {
    EXPECT_TRUE(VELIsNumberFormat(format)) << format;
    EXPECT_EQ(VELFormatNumber(1234.5, format), text);
  }
  const std::string_view unused[] = {"",    "%s",   "%n", "%f %f",   "%*f",
                                     "%Lf", "%1$f", "%",  "%99999f", {"%f\0mV", 5}};
  for (const std::string_view format : unused) {
    EXPECT_FALSE(VELIsNumberFormat(format)) << format;
    EXPECT_EQ(VELFormatNumber(1234.5, format), "1234.5") << format;
  }
}

TEST(NumericLabels, FollowTheAxisInThisOrderFormatFormatterG) {
  const auto axis = std::make_shared<VELNumericAxis>();
  EXPECT_EQ(axis->formatText(1234567.0), "1.23457e+06");
  EXPECT_EQ(axis->formatText(kNaN).substr(0, 3), "nan");

  const auto formatter = std::make_shared<VELNumberFormatter>("en_US");
  formatter->setMinimumFractionDigits(2);
  axis->setNumberFormatter(formatter);
  EXPECT_EQ(axis->formatText(1234567.0), "1,234,567.00");
  axis->setTextFormatting("%.0f bpm");
  EXPECT_EQ(axis->formatText(61.7), "62 bpm");
  axis->setCursorTextFormatting("%.3f");
  EXPECT_EQ(axis->formatCursorText(61.7), "61.700");

  axis->setLabelProvider(nullptr);
  EXPECT_EQ(axis->formatText(1e300).size(), 24u) << "what does not fit into 25 bytes is cut";
  EXPECT_EQ(VELNumericLabelProvider().formatLabel(0.25), "0.25") << "an axis is not needed";
}

TEST(PowerLabels, EveryPowerReadsAsAWholeOneAndWhatIsNoneAsTheNumber) {
  struct Row {
    double base, value;
    std::string text, drawn;
  };
  std::vector<Row> rows = {
      {10.0, 500.0, "1x102.69897", "1x10 2.69897"},
      {10.0, 1.0 + 2.3e-16, "1x100", "1x10 0"},  // the rest of a sum of steps
      {10.0, -1000.0, "-1000", "-1000"},
      {10.0, kInf, "inf", "inf"},
      {1.0, 5.0, "5", "5"},
      {2.0, std::numeric_limits<double>::max(), "1.79769e+308", "1.79769e+308"},  // 2^1024 is no double
  };
  for (int k = -300; k <= 300; ++k) {
    const std::string power = std::to_string(k);
    rows.push_back({10.0, std::pow(10.0, k), "1x10" + power, "1x10 " + power});
    rows.push_back({2.0, std::pow(2.0, k), "1x2" + power, "1x2 " + power});
    rows.push_back({std::exp(1.0), std::exp(k), "1xe" + power, "1xE " + power});
  }
  VELDefaultTickLabel label;
  const auto axis = std::make_shared<VELLogarithmicNumericAxis>();
  for (const Row& row : rows) {
    axis->setLogarithmicBase(row.base);
    ASSERT_EQ(axis->formatText(row.value), row.text);
    axis->labelProvider()->updateDataContextWithContext(label, row.value, nullptr);
    ASSERT_EQ(label.text(), row.drawn);
    ASSERT_EQ(label.hasExponent(), row.text != row.drawn);
  }
}

TEST(PowerLabels, TheExponentStandsSmallAndRaisedInsideALabelThatHoldsIt) {
  const auto axis = std::make_shared<VELLogarithmicNumericAxis>();
  const auto provider = axis->labelProvider();
  VELDefaultTickLabel label;
  VELTextEngine& engine = VELTextEngine::instance();
  for (const double size : {10.0, 24.0}) {
    const VELTextFormattingStyle style("", size, 0xFF0000FF);
    provider->updateDataContextWithContext(label, 1e-12, &style);
    const VELFont font{"", size, false}, small{"", 0.7 * size, false};
    const double raise = 2.0 * (engine.capHeight(font) - engine.capHeight(small));
    EXPECT_EQ(label.attributedText(), (VELAttributedText{{"1x10 ", font, 0.0}, {"-12", small, raise}}));
    EXPECT_EQ(label.frame().size(), engine.measure(label.attributedText()));
    EXPECT_GT(label.frame().height, engine.measure({{"1x10 ", font, 0.0}}).height);
    const AllocationCounter again;
    provider->updateDataContextWithContext(label, 1e-12, &style);
    EXPECT_EQ(again.count(), 0);
  }
}
