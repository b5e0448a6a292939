// rendering/drawn_surface.h: a render surface on the real driver, and the pixels of its layer.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "velmora/platform/offscreen/offscreen_host.h"
#include "velmora/rendering/opengl_render_surface.h"

/// Leaves no GL error behind.
class DrawnSurface : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(host->glContext()->gl().getError(), uint32_t{VELGL_NO_ERROR}); }

  void create(double width, double height, double scale) {
    surface.reset();
    host = VELOffscreenHost::create({width, height}, scale);
    ASSERT_NE(host, nullptr) << "no OpenGL ES driver";
    surface = VELOpenGLRenderSurface::initWithFrame({0, 0, width, height}, *host);
    surface->setMultisampling(false);
  }
  VELRenderContext2D& context() { return *surface->renderContext(); }
  void frame() {
    surface->invalidateElement();
    host->displayLink()->tick(++time);
    VELGL& gl = host->glContext()->gl();
    ASSERT_TRUE(host->glContext()->makeCurrent());
    const uint32_t reader = gl.genFramebuffer();
    gl.bindFramebuffer(VELGL_FRAMEBUFFER, reader);
    gl.framebufferTexture2D(VELGL_FRAMEBUFFER, VELGL_COLOR_ATTACHMENT0, VELGL_TEXTURE_2D,
                            surface->layer().texture());
    pixels.resize(static_cast<size_t>(pixelWidth()) * static_cast<size_t>(pixelHeight()));
    gl.readPixels(0, 0, pixelWidth(), pixelHeight(), pixels.data());
    gl.deleteFramebuffer(reader);
  }
  int32_t pixelWidth() const { return surface->layer().width(); }
  int32_t pixelHeight() const { return surface->layer().height(); }
  /// 0xAABBGGRR of a pixel from the top left.
  uint32_t at(int32_t x, int32_t y) const {
    return pixels.at(static_cast<size_t>(pixelHeight() - 1 - y) * static_cast<size_t>(pixelWidth()) +
                     static_cast<size_t>(x));
  }

  std::shared_ptr<VELOffscreenHost> host;
  std::shared_ptr<VELOpenGLRenderSurface> surface;
  std::vector<uint32_t> pixels;
  double time = 0.0;
};
