// What the driver really draws: pixels of the layer of a render surface.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/rendering/drawn_surface.h"

namespace {

constexpr uint32_t black = 0xFF000000, red = 0xFF0000FF, green = 0xFF00FF00, blue = 0xFFFF0000;

class GLSurface : public DrawnSurface {
 protected:
  void SetUp() override { create(40, 20, 1); }
  void rect(uint32_t code, float left, float top, float right, float bottom) {
    context().drawRectWithBrush(VELBrush2D::solid(code), left, top, right, bottom);
  }
};

// A rectangle far larger than its drawing area fills exactly the pixels of the area, at every density and
// height, and after the surface got another size and moved to another density.
TEST_F(GLSurface, ADrawingAreaMovesTheOriginAndClipsToItsPixels) {
  const std::pair<double, double> rows[] = {{1.0, 30.0}, {1.5, 30.0}, {2.0, 30.0},
                                            {1.3, 30.0}, {1.0, 30.5}, {1.5, 30.5}};
  for (const auto& [scale, height] : rows) {
    create(10, 50, 3.0 - scale);
    surface->setFrame({0, 0, 40, height});
    surface->setTreeContentScale(scale);
    surface->layoutIfNeeded();
    context().setDrawingArea({10, 10, 20, 10});
    rect(red, -50, -50, 100, 100);
    rect(green, 0, 0, 4, 2);
    frame();
    const auto px = [scale = scale](double points) {
      return static_cast<int32_t>(std::lround(points * scale));
    };
    ASSERT_EQ(pixelWidth(), px(40));
    ASSERT_EQ(pixelHeight(), std::ceil(height * scale));
    for (int32_t y = 0; y < pixelHeight(); ++y)
      for (int32_t x = 0; x < px(40); ++x) {
        const bool inside = x >= px(10) && x < px(30) && y >= px(10) && y < px(20);
        const bool marked = inside && x < px(14) && y < px(12);
        ASSERT_EQ(at(x, y), marked ? green : inside ? red : black) << scale << ": " << x << ',' << y;
      }
  }
}

TEST_F(GLSurface, NeighbouringAreasShareEveryPixelOutBetweenThemOnAndOffTheGrid) {
  const struct {
    double scale, height, border;
    int32_t first;  // row of the lower area; of the upper one, everything above
  } rows[] = {{1.0, 30.0, 10.0, 10}, {1.5, 31.0, 21.0, 32}, {1.0, 30.5, 20.4, 21},
              {1.5, 31.0, 21.4, 33}, {2.0, 30.0, 0.25, 1},  {1.0, 30.0, 30.0, 30}};
  for (const auto& row : rows) {
    create(40, row.height, row.scale);
    const double far = row.first % 2 ? 1e12 : 40.0;  // what is beyond the surface is cut off
    context().setDrawingArea({0, 0, far, row.border});
    rect(red, -9, -9, 99, 99);
    context().setDrawingArea({0, row.border, far, row.height - row.border});
    rect(green, -9, -99, 99, 99);
    context().setDrawingArea({row.border, 0, far, far});
    rect(blue, -9, -9, 99, 99);
    frame();
    const auto left = static_cast<int32_t>(row.border * row.scale);
    for (int32_t y = 0; y < pixelHeight(); ++y)
      for (const int32_t x : {0, left - 1, left, pixelWidth() - 1}) {
        if (x < 0) continue;
        ASSERT_EQ(at(x, y), x >= left       ? blue
                            : y < row.first ? red
                                            : green)
            << row.border << ": " << x << ',' << y;
      }
  }
}

TEST_F(GLSurface, ContextsAreShownBackgroundFirstModifierLastAndBlendOverAnOpaquePicture) {
  surface->setBackgroundColor({0.0, 0.0, 1.0});
  const struct {
    std::shared_ptr<VELRenderContext2D> context;
    uint32_t code;
    float right;
  } rows[] = {{surface->modifierContext(), red, 10},
              {surface->renderContext(), green, 20},
              {surface->backgroundContext(), 0x800000FFu, 30}};
  for (const auto& row : rows)
    row.context->drawRectWithBrush(VELBrush2D::solid(row.code), 0, 0, row.right, 10);
  frame();
  EXPECT_EQ(at(5, 5), red);
  EXPECT_EQ(at(15, 5), green);
  EXPECT_EQ(at(25, 5), 0xFF7F0080u);
  EXPECT_EQ(at(35, 5), blue);
}

TEST_F(GLSurface, ALineCoversItsWidthAndANaNLeavesAGap) {
  const VELPenPtr pen = VELPen2D::solid(green, 2.0f);
  context().beginPolylineWithBrush(pen, 0, 10);
  for (const float x : {10.0f, NAN, 20.0f, 40.0f}) context().extendPolylineWithBrush(pen, x, 10);
  frame();
  for (int32_t x = 0; x < 40; ++x)
    for (int32_t y = 0; y < 20; ++y)
      ASSERT_EQ(at(x, y), (x < 10 || x >= 20) && y >= 8 && y < 12 ? green : black) << x << ',' << y;
}

TEST_F(GLSurface, MultisamplingSmoothsEdgesAndOnlyEdges) {
  if (!host->glContext()->gl().hasMultisampling()) GTEST_SKIP() << "this driver cannot";
  surface->setMultisampling(true);
  rect(red, 0.0f, 0.0f, 10.5f, 20.0f);
  frame();
  EXPECT_EQ(at(9, 10), red);
  EXPECT_EQ(at(11, 10), black);
  EXPECT_GT(at(10, 10), 0xFF00003Cu) << "half covered, and opaque";
  EXPECT_LT(at(10, 10), 0xFF0000C8u);
}

}  // namespace
