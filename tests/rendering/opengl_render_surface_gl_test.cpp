// What the driver really draws: pixels of the layer of a render surface.
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "tests/rendering/test_gradient.h"
#include "velmora/platform/offscreen/offscreen_host.h"
#include "velmora/rendering/opengl_render_surface.h"
#include "velmora/rendering/render_surface_style.h"

namespace {

using Pixel = std::array<uint8_t, 4>;
constexpr Pixel black = {0, 0, 0, 255}, red = {255, 0, 0, 255}, green = {0, 255, 0, 255},
                blue = {0, 0, 255, 255};
constexpr uint32_t redCode = 0xFF0000FFu, greenCode = 0xFF00FF00u, blueCode = 0xFFFF0000u;

class GLSurface : public testing::Test {
 protected:
  void TearDown() override {
    if (!surface) return;
    EXPECT_EQ(host->glContext()->gl().getError(), uint32_t{VELGL_NO_ERROR});
  }

  void create(double width, double height, double scale) {
    surface.reset();
    host = VELOffscreenHost::create({width, height}, scale);
    ASSERT_NE(host, nullptr) << "no OpenGL ES driver";
    surface = VELOpenGLRenderSurface::initWithFrame({0, 0, width, height}, *host);
    surface->setMultisampling(false);
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

// A rectangle far larger than its drawing area fills exactly the pixels of the area, at every density.
TEST_F(GLSurface, ADrawingAreaMovesTheOriginAndClipsToItsPixels) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    create(40, 30, scale);
    surface->renderContext()->setDrawingArea({10, 4, 16, 20});
    surface->renderContext()->drawRectWithBrush(VELBrush2D::solid(redCode), -50, -50, 100, 100);
    surface->renderContext()->drawRectWithBrush(VELBrush2D::solid(greenCode), 0, 0, 4, 2);
    frame();
    const auto px = [scale](double points) { return static_cast<int32_t>(std::lround(points * scale)); };
    ASSERT_EQ(surface->layer().width(), px(40));
    for (int32_t y = 0; y < px(30); ++y)
      for (int32_t x = 0; x < px(40); ++x) {
        const bool inside = x >= px(10) && x < px(26) && y >= px(4) && y < px(24);
        const bool marked = inside && x < px(14) && y < px(6);
        ASSERT_EQ(at(x, y), marked ? green : inside ? red : black) << scale << ": " << x << ',' << y;
      }
  }
}

TEST_F(GLSurface, ContextsAreShownBackgroundFirstModifierLast) {
  create(30, 10, 1);
  const auto draw = [](const std::shared_ptr<VELRenderContext2D>& context, uint32_t code, float right) {
    context->drawRectWithBrush(VELBrush2D::solid(code), 0, 0, right, 10);
  };
  draw(surface->modifierContext(), redCode, 10);
  draw(surface->renderContext(), greenCode, 20);
  draw(surface->backgroundContext(), blueCode, 30);
  frame();
  EXPECT_EQ(at(5, 5), red);
  EXPECT_EQ(at(15, 5), green);
  EXPECT_EQ(at(25, 5), blue);
}

TEST_F(GLSurface, TranslucentColoursBlendAndThePictureStaysOpaque) {
  create(4, 4, 1);
  surface->setBackgroundColor({0.0, 0.0, 1.0});
  surface->renderContext()->drawRectWithBrush(VELBrush2D::solid(0x800000FFu), 0, 0, 2, 4);
  frame();
  EXPECT_EQ(at(0, 0), (Pixel{128, 0, 127, 255}));
  EXPECT_EQ(at(3, 0), blue);
}

TEST_F(GLSurface, ALineCoversItsWidthAndANaNLeavesAGap) {
  create(40, 20, 1);
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

TEST_F(GLSurface, GradientsAndSolidColoursShareTheAtlasWithoutBleeding) {
  create(8, 4, 1);
  const auto gradient = std::make_shared<TestGradient>(redCode);
  const auto next = std::make_shared<TestGradient>(greenCode);
  surface->renderContext()->drawRectWithBrush(gradient, 0, 0, 4, 4);
  surface->renderContext()->drawRectWithBrush(VELBrush2D::solid(blueCode), 4, 0, 6, 4);
  surface->renderContext()->drawRectWithBrush(next, 6, 0, 8, 4);
  frame();
  for (int32_t y = 0; y < 4; ++y) {
    EXPECT_EQ(at(1, y), red);
    EXPECT_EQ(at(5, y), blue);
    EXPECT_EQ(at(7, y), green);
  }
}

TEST_F(GLSurface, MultisamplingSmoothsEdgesAndOnlyEdges) {
  create(20, 20, 1);
  if (!host->glContext()->gl().hasMultisampling()) GTEST_SKIP() << "this driver cannot";
  surface->setMultisampling(true);
  surface->renderContext()->drawRectWithBrush(VELBrush2D::solid(redCode), 0.0f, 0.0f, 10.5f, 20.0f);
  frame();
  EXPECT_EQ(at(9, 10), red);
  EXPECT_EQ(at(11, 10), black);
  EXPECT_GT(at(10, 10)[0], 60);
  EXPECT_LT(at(10, 10)[0], 200);
  EXPECT_EQ(at(10, 10)[3], 255);
}

// A stranger on the same context may leave any state behind; frames and resized frames come out the same.
TEST_F(GLSurface, AFrameDependsOnNoStateThatOthersLeft) {
  create(20, 10, 1);
  surface->renderContext()->drawRectWithBrush(VELBrush2D::solid(redCode), 0, 0, 10, 10);
  frame();
  const auto before = pixels;
  VELGL& gl = host->glContext()->gl();
  gl.enable(VELGL_CULL_FACE);
  gl.disable(VELGL_BLEND);
  gl.disable(VELGL_SCISSOR_TEST);
  gl.scissor(0, 0, 1, 1);
  gl.viewport(0, 0, 3, 3);
  gl.useProgram(0);
  gl.bindBuffer(VELGL_ARRAY_BUFFER, 0);
  gl.activeTexture(VELGL_TEXTURE1);
  gl.bindTexture(VELGL_TEXTURE_2D, 0);
  frame();
  EXPECT_EQ(pixels, before);
  surface->setFrame({0, 0, 40, 10});
  surface->layoutIfNeeded();
  frame();
  EXPECT_EQ(at(9, 5), red);
  EXPECT_EQ(at(10, 5), black);
  EXPECT_EQ(surface->layer().width(), 40);
}

}  // namespace
