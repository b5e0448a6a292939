// platform/text_engine_test.cpp: measured and rasterised text.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>

#include "tests/support/allocation_counter.h"
#include "velmora/platform/label_view.h"
#include "velmora/platform/text.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

VELTextEngine& engine() { return VELTextEngine::instance(); }

VELAttributedText plain(const std::string& text, double size = 12.0) {
  return {{text, {"", size, false}, 0.0}};
}

/// First and last row and column with ink.
struct Ink {
  int32_t left = std::numeric_limits<int32_t>::max(), top = left, right = -1, bottom = -1;
};

Ink inkOf(const VELTextMask& mask) {
  Ink ink;
  for (int32_t y = 0; y < mask.height; ++y)
    for (int32_t x = 0; x < mask.width; ++x) {
      if (mask.at(x, y) == 0) continue;
      ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x), std::max(ink.bottom, y)};
    }
  return ink;
}

}  // namespace

TEST(TextEngine, NoInkIsCutOffAndTheInkHasTheSameShapeAtBothScales) {
  ASSERT_TRUE(engine().hasFonts());
  for (const char* text : {"jÅf", "Ấ", "W", "0.25", "fff", "Typgj|", "(−1.5e−7)"})
    for (const double size : {9.0, 12.0, 40.0}) {
      const Ink once = inkOf(engine().rasterise(plain(text, size), 1.0));
      const VELTextMask large = engine().rasterise(plain(text, size), 2.0);
      const Ink twice = inkOf(large);
      // The outermost pixels are the margin; ink there would have been cut.
      EXPECT_GE(twice.left, 1) << text << size;
      EXPECT_LE(twice.right, large.width - 2) << text << size;
      EXPECT_GE(twice.top, 1) << text << size;
      EXPECT_LE(twice.bottom, large.height - 2) << text << size;
      // Letters move by at most half a pixel to the grid, at either end, and edges fade over one.
      EXPECT_NEAR(twice.right - twice.left, 2 * (once.right - once.left), 4) << text << size;
      EXPECT_NEAR(twice.bottom - twice.top, 2 * (once.bottom - once.top), 4) << text << size;
    }
}

TEST(TextEngine, TextsAndFontsOutOfTheOrdinaryDoNoHarm) {
  const std::string million(1000000, 'W');
  const std::vector<VELAttributedText> rows = {{},
                                               plain(""),
                                               plain("x", 0.0),
                                               plain("x", -3.0),
                                               plain("x", kNaN),
                                               plain("x", kInf),
                                               plain("x", 1e-9),
                                               plain("\xff\xfe\xc3"),
                                               plain("\xe2\x82"),
                                               plain(std::string("a\0b", 3)),
                                               plain("a\nb\tc\r\n"),
                                               plain(million),
                                               {{"x", {"No Such Font, \xff", 12.0, true}, 0.0}},
                                               {{"x", {}, kNaN}, {"y", {}, kInf}, {"z", {}, -1e300}}};
  for (size_t i = 0; i < rows.size(); ++i)
    for (const double scale : {1.0, 1e9, 0.0, -1.0, kNaN}) {
      const VELSize size = engine().measure(rows[i]);
      EXPECT_TRUE(std::isfinite(size.width) && std::isfinite(size.height)) << i;
      const VELTextMask mask = engine().rasterise(rows[i], scale);
      EXPECT_TRUE(mask.width <= 4096 && mask.height <= 4096) << i;
      EXPECT_EQ(mask.coverage.empty(), mask.width == 0) << i;
    }
  for (size_t i = 0; i < 5; ++i) EXPECT_EQ(engine().measure(rows[i]), VELSize()) << i;
  const double lineHeight = engine().measure(plain("x")).height;
  EXPECT_EQ(engine().measure(plain("a\nb\tc\r\n")).height, lineHeight) << "one line, whatever it holds";
  EXPECT_EQ(engine().measure(plain(million)), engine().measure(plain(std::string(1000, 'W'))));
  EXPECT_GT(engine().measure(plain("\xff")).width, 0.0) << "wrong bytes show as a replacement";
}

TEST(TextEngineDeathTest, WithoutFontsEveryTextIsNothing) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // a fresh process, which has read no fonts yet
  const auto path = std::filesystem::path(testing::TempDir()) / "velmora-no-fonts.conf";
  std::ofstream(path) << "<?xml version=\"1.0\"?><fontconfig></fontconfig>";
  EXPECT_EXIT(
      {
        setenv("FONTCONFIG_FILE", path.c_str(), 1);
        const bool isNothing = !engine().hasFonts() && engine().measure(plain("x")) == VELSize() &&
                               engine().capHeight({}) == 0.0 &&
                               engine().rasterise(plain("x"), 2.0).width == 0;
        std::exit(isNothing ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
  std::filesystem::remove(path);
}

TEST(LabelView, AnUnchangedTextIsMeasuredOnce) {
  VELLabelView label;
  const std::string text = "a text too long to lie inside its string";
  label.setText(text);
  const AllocationCounter toMeasure;
  const VELSize size = label.textSize();
  EXPECT_GT(toMeasure.count(), 0);
  const AllocationCounter again;
  label.setText(text);
  label.setFont({});
  label.sizeToFit();
  EXPECT_EQ(label.textSize(), size);
  EXPECT_EQ(again.count(), 0);
}
