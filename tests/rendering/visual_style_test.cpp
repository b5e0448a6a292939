// The standard look against people's eyes.
#include "velmora/rendering/visual_style.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "velmora/platform/color.h"

namespace {

using Rgb = std::array<double, 3>;

Rgb product(const double (&matrix)[3][3], const Rgb& v) {
  Rgb result{};
  for (size_t i = 0; i < 3; ++i) result[i] = matrix[i][0] * v[0] + matrix[i][1] * v[1] + matrix[i][2] * v[2];
  return result;
}

Rgb linearOf(uint32_t code) {
  const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  const VELColor color = VELColor::fromColorCode(code);
  return {linear(color.red()), linear(color.green()), linear(color.blue())};
}

// XYZ of sRGB, white at 1, 1, 1.
constexpr double kXyz[3][3] = {{0.4339, 0.3762, 0.1899}, {0.2126, 0.7152, 0.0722}, {0.0177, 0.1095, 0.8728}};

// Relative luminance and contrast as WCAG 2.1 defines them.
double contrast(uint32_t a, uint32_t b) {
  const double x = product(kXyz, linearOf(a))[1], y = product(kXyz, linearOf(b))[1];
  return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

// Full-severity colour blindness on linear RGB: Machado, Oliveira and Fernandes, 2009.
constexpr double kEyes[4][3][3] = {
    {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
    {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}},
    {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}},
    {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}};

// CIE 1976 L*a*b* as one kind of eye sees the colour.
Rgb labOf(uint32_t code, const double (&eye)[3][3]) {
  Rgb seen = product(eye, linearOf(code));
  for (double& c : seen) c = std::clamp(c, 0.0, 1.0);
  Rgb f = product(kXyz, seen);
  for (double& t : f) t = t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0;
  return {116.0 * f[1] - 16.0, 500.0 * (f[0] - f[1]), 200.0 * (f[1] - f[2])};
}

TEST(VisualStyle, EverySeriesColourAndTextIsReadable) {
  const VELVisualStyle& look = VELVisualStyle::standard();
  for (size_t i = 0; i < 8; ++i) EXPECT_GE(contrast(look.seriesColor(i), look.chartArea), 3.0) << i;
  for (const uint32_t text : {look.labelColor, look.axisTitleColor, look.chartTitleColor})
    EXPECT_GE(contrast(text, look.background), 4.5);
  EXPECT_EQ(look.seriesColor(8), look.seriesColor(0));
  EXPECT_EQ(VELColorCodeFromRGB(0x123456, 16), 0x10563412u) << "written as designers write it";
}

TEST(VisualStyle, SeriesColoursDifferForEveryEye) {
  const VELVisualStyle& look = VELVisualStyle::standard();
  for (const auto& eye : kEyes)
    for (size_t a = 0; a < 8; ++a)
      for (size_t b = a + 1; b < 8; ++b) {
        const Rgb one = labOf(look.seriesColor(a), eye), two = labOf(look.seriesColor(b), eye);
        EXPECT_GE(std::hypot(one[0] - two[0], one[1] - two[1], one[2] - two[2]), 12.0) << a << ", " << b;
      }
}

}  // namespace
