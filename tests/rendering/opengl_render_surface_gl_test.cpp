// What the driver really draws: pixels of the layer of a render surface.
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "velmora/platform/offscreen/offscreen_host.h"
#include "velmora/rendering/opengl_render_surface.h"
#include "velmora/rendering/render_surface_style.h"

namespace {

using Pixel = std::array<uint8_t, 4>;
constexpr Pixel black = {0, 0, 0, 255}, red = {255, 0, 0, 255}, green = {0, 255, 0, 255},
                blue = {0, 0, 255, 255};
constexpr uint32_t redCode = 0xFF0000FFu, greenCode = 0xFF00FF00u;

class GLSurface : public testing::Test {
 protected:
  void SetUp() override { create(40, 20, 1); }
  void TearDown() override { EXPECT_EQ(host->glContext()->gl().getError(), uint32_t{VELGL_NO_ERROR}); }

  void create(double width, double height, double scale) {
    surface.reset();
    host = VELOffscreenHost::create({width, height}, scale);
    ASSERT_NE(host, nullptr) << "no OpenGL ES driver";
    surface = VELOpenGLRenderSurface::initWithFrame({0, 0, width, height}, *host);
    surface->setMultisampling(false);
  }
  void rect(const VELBrushPtr& brush, float left, float top, float right, float bottom) {
    surface->renderContext()->drawRectWithBrush(brush, left, top, right, bottom);
  }
  void frame() {
    surface->invalidateElement();
    host->displayLink()->tick(++time);
    VELGL& gl = host->glContext()->gl();
    ASSERT_TRUE(host->glContext()->makeCurrent());
    const uint32_t reader = gl.genFramebuffer();
    gl.bindFramebuffer(VELGL_FRAMEBUFFER, reader);
    gl.framebufferTexture2D(VELGL_FRAMEBUFFER, VELGL_COLOR_ATTACHMENT0, VELGL_TEXTURE_2D,
                            surface->layer().texture());
    pixels.resize(static_cast<size_t>(surface->layer().width()) *
                  static_cast<size_t>(surface->layer().height()));
    gl.readPixels(0, 0, surface->layer().width(), surface->layer().height(), pixels.data());
    gl.deleteFramebuffer(reader);
  }
  /// From the top left.
  Pixel at(int32_t x, int32_t y) const {
    const auto row = static_cast<size_t>(surface->layer().height() - 1 - y);
    return pixels.at(row * static_cast<size_t>(surface->layer().width()) + static_cast<size_t>(x));
  }

  std::shared_ptr<VELOffscreenHost> host;
  std::shared_ptr<VELOpenGLRenderSurface> surface;
  std::vector<Pixel> pixels;
  double time = 0.0;
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
    surface->renderContext()->setDrawingArea({10, 10, 20, 10});
    rect(VELBrush2D::solid(redCode), -50, -50, 100, 100);
    rect(VELBrush2D::solid(greenCode), 0, 0, 4, 2);
    frame();
    const auto px = [scale = scale](double points) {
      return static_cast<int32_t>(std::lround(points * scale));
    };
    ASSERT_EQ(surface->layer().width(), px(40));
    ASSERT_EQ(surface->layer().height(), std::ceil(height * scale));
    for (int32_t y = 0; y < surface->layer().height(); ++y)
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
    const auto context = surface->renderContext();
    const double far = row.first % 2 ? 1e12 : 40.0;  // what is beyond the surface is cut off
    context->setDrawingArea({0, 0, far, row.border});
    rect(VELBrush2D::solid(redCode), -9, -9, 99, 99);
    context->setDrawingArea({0, row.border, far, row.height - row.border});
    rect(VELBrush2D::solid(greenCode), -9, -99, 99, 99);
    context->setDrawingArea({row.border, 0, far, far});
    rect(VELBrush2D::solid(0xFFFF0000u), -9, -9, 99, 99);
    frame();
    const auto left = static_cast<int32_t>(row.border * row.scale);
    for (int32_t y = 0; y < surface->layer().height(); ++y)
      for (const int32_t x : {0, left - 1, left, surface->layer().width() - 1}) {
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
  } rows[] = {{surface->modifierContext(), redCode, 10},
              {surface->renderContext(), greenCode, 20},
              {surface->backgroundContext(), 0x800000FFu, 30}};
  for (const auto& row : rows)
    row.context->drawRectWithBrush(VELBrush2D::solid(row.code), 0, 0, row.right, 10);
  frame();
  EXPECT_EQ(at(5, 5), red);
  EXPECT_EQ(at(15, 5), green);
  EXPECT_EQ(at(25, 5), (Pixel{128, 0, 127, 255}));
  EXPECT_EQ(at(35, 5), blue);
}

TEST_F(GLSurface, ALineCoversItsWidthAndANaNLeavesAGap) {
  const VELPenPtr pen = VELPen2D::solid(greenCode, 2.0f);
  surface->renderContext()->beginPolylineWithBrush(pen, 0, 10);
  for (const float x : {10.0f, NAN, 20.0f, 40.0f})
    surface->renderContext()->extendPolylineWithBrush(pen, x, 10);
  frame();
  for (int32_t x = 0; x < 40; ++x)
    for (int32_t y = 0; y < 20; ++y) {
      const bool covered = (x < 10 || x >= 20) && y >= 8 && y < 12;
      ASSERT_EQ(at(x, y), covered ? green : black) << x << ',' << y;
    }
}

TEST_F(GLSurface, MultisamplingSmoothsEdgesAndOnlyEdges) {
  if (!host->glContext()->gl().hasMultisampling()) GTEST_SKIP() << "this driver cannot";
  surface->setMultisampling(true);
  rect(VELBrush2D::solid(redCode), 0.0f, 0.0f, 10.5f, 20.0f);
  frame();
  EXPECT_EQ(at(9, 10), red);
  EXPECT_EQ(at(11, 10), black);
  EXPECT_GT(at(10, 10)[0], 60);
  EXPECT_LT(at(10, 10)[0], 200);
  EXPECT_EQ(at(10, 10)[3], 255);
}

}  // namespace
