// The standard look against people's eyes.
#include "velmora/rendering/visual_style.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "velmora/platform/color.h"

namespace {

using Rgb = std::array<double, 3>;
using Matrix = std::array<Rgb, 3>;

double linearOf(double component) {
  return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

Rgb linearOf(uint32_t code) {
  const VELColor color = VELColor::fromColorCode(code);
  return {linearOf(color.red()), linearOf(color.green()), linearOf(color.blue())};
}

// Relative luminance and contrast as WCAG 2.1 defines them.
double luminance(uint32_t code) {
  const Rgb c = linearOf(code);
  return 0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2];
}

double contrast(uint32_t a, uint32_t b) {
  const double x = luminance(a), y = luminance(b);
  return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

// Full-severity colour blindness on linear RGB: Machado, Oliveira and Fernandes, 2009.
const std::array<Matrix, 4> kEyes = {{
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}},
}};

// CIE 1976 L*a*b* as one kind of eye sees the colour.
Rgb labOf(uint32_t code, const Matrix& eye) {
  const Rgb in = linearOf(code);
  Rgb c{};
  for (size_t i = 0; i < 3; ++i)
    c[i] = std::clamp(eye[i][0] * in[0] + eye[i][1] * in[1] + eye[i][2] * in[2], 0.0, 1.0);
  const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0; };
  const double x = f((0.4124 * c[0] + 0.3576 * c[1] + 0.1805 * c[2]) / 0.9505);
  const double y = f(0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2]);
  const double z = f((0.0193 * c[0] + 0.1192 * c[1] + 0.9505 * c[2]) / 1.089);
  return {116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
}

double distance(const Rgb& a, const Rgb& b) { return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]); }

TEST(VisualStyle, EverySeriesColourAndTextIsReadable) {
  const VELVisualStyle& look = VELVisualStyle::standard();
  for (size_t i = 0; i < 8; ++i) EXPECT_GE(contrast(look.seriesColor(i), look.chartArea), 3.0) << i;
  for (const uint32_t text : {look.labelColor, look.axisTitleColor, look.chartTitleColor})
    EXPECT_GE(contrast(text, look.background), 4.5);
  EXPECT_EQ(look.seriesColor(8), look.seriesColor(0));
}

TEST(VisualStyle, SeriesColoursDifferForEveryEye) {
  const VELVisualStyle& look = VELVisualStyle::standard();
  for (size_t eye = 0; eye < kEyes.size(); ++eye)
    for (size_t a = 0; a < 8; ++a)
      for (size_t b = a + 1; b < 8; ++b)
        EXPECT_GE(distance(labOf(look.seriesColor(a), kEyes[eye]), labOf(look.seriesColor(b), kEyes[eye])),
                  12.0)
            << "eye " << eye << ", colours " << a << " and " << b;
}

TEST(VisualStyle, ColoursAreWrittenAsDesignersWriteThem) {
  EXPECT_EQ(VELColorCodeFromRGB(0x123456), 0xFF563412u);
  EXPECT_EQ(VELColorCodeFromRGB(0x0000FF, 16), 0x10FF0000u);
}

}  // namespace
