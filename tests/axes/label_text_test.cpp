#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "velmora/axes/default_tick_label.h"
#include "velmora/axes/number_format.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/axes/numeric_label_provider.h"
#include "velmora/axes/text_formatting_style.h"
#include "velmora/axes/tick_labels_pool.h"
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
           {"%+08.1f", true, "+01234.5"},
           {"100%% of %g", true, "100% of 1234.5"},
           {"%e", true, "1.234500e+03"},
           {"%-9.0f|", true, "1234     |"},
           {"%.100f", true, std::string("1234.5") + std::string(99, '0')},
           {"", false, "1234.5"},
           {"mV", false, "1234.5"},
           {"%d", false, "1234.5"},
           {"%s", false, "1234.5"},
           {"%n", false, "1234.5"},
           {"%f %f", false, "1234.5"},
           {"%*f", false, "1234.5"},
           {"%.*f", false, "1234.5"},
           {"%Lf", false, "1234.5"},
           {"%1$f", false, "1234.5"},
           {"%f%", false, "1234.5"},
           {"%", false, "1234.5"},
           {"%99999f", false, "1234.5"},
           {"%.99999f", false, "1234.5"},
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

TEST(TickLabel, TakesItsLookFromTheStyleAndKeepsItsCentre) {
  VELDefaultTickLabel label;
  EXPECT_EQ(label.textColor().colorCode(), 0xFF00FF00u);
  label.setPosition({40, 30});
  const VELNumericLabelProvider provider;
  VELTextFormattingStyle style("", 20, 0xFF112233u);
  style.setTransform(VELAffineTransform::rotation(std::acos(-1.0) / 2));
  provider.updateDataContextWithContext(label, 12345.0, &style);
  EXPECT_EQ(label.text(), "12345");
  EXPECT_EQ(label.font().size, 20);
  EXPECT_EQ(label.textColor().colorCode(), 0xFF112233u);
  EXPECT_GT(label.frame().height, label.frame().width) << "turned by a right angle";
  EXPECT_NEAR(label.position().x, 40, 1e-9);
  EXPECT_NEAR(label.position().y, 30, 1e-9);
  provider.updateDataContextWithContext(label, 1.0, nullptr);
  EXPECT_EQ(label.transform(), VELAffineTransform::zero());
  EXPECT_EQ(label.font().size, 20) << "without a style only the transform goes";
}

TEST(TickLabel, TouchingEdgesAreNoIntersection) {
  const VELDefaultTickLabel a(VELRect{0, 0, 10, 10});
  EXPECT_FALSE(a.hasIntersectionWithNext(VELDefaultTickLabel(VELRect{10, 0, 10, 10})));
  EXPECT_FALSE(a.hasIntersectionWithNext(VELDefaultTickLabel(VELRect{10 - 1e-9, 0, 10, 10})));
  EXPECT_TRUE(a.hasIntersectionWithNext(VELDefaultTickLabel(VELRect{9.9, 9.9, 10, 10})));
  EXPECT_FALSE(a.hasIntersectionWithNext(VELDefaultTickLabel(VELRect{5, 11, 10, 10})));
  EXPECT_TRUE(a.fitsInArea({0, 0, 10, 10}));
  EXPECT_FALSE(a.fitsInArea({1, 0, 10, 10}));
}

TEST(ObjectPool, HandsOutTheObjectThatWasIdleLongest) {
  int made = 0;
  const auto make = [&made] { return std::make_shared<int>(made++); };
  VELObjectPool<int> pool(2, make);
  EXPECT_EQ(pool.availableCount(), 2);
  const auto first = pool.getWithAction(make), second = pool.getWithAction(make);
  EXPECT_EQ(*first, 0);
  EXPECT_EQ(*second, 1);
  EXPECT_TRUE(pool.isEmpty());
  EXPECT_EQ(*pool.getWithAction(make), 2);
  EXPECT_EQ(pool.count(), 3);
  pool.put(second);
  pool.put(first);
  pool.put(nullptr);
  EXPECT_EQ(pool.getWithAction(make), second);
  EXPECT_EQ(pool.getWithType(), first) << "the new object is dropped while an idle one serves";
  EXPECT_EQ(pool.count(), 3);
  EXPECT_EQ(*pool.getWithType(), 0);
  EXPECT_EQ(pool.count(), 4);

  VELTickLabelsPool labels;
  const auto label = labels.get();
  labels.put(label);
  EXPECT_EQ(labels.get(), label);
  EXPECT_EQ(labels.count(), 1);
}

}  // namespace
