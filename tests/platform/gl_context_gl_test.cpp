// platform/gl_context_gl_test.cpp: the machine's own GL contexts and what is freed with them.
#include "velmora/platform/gl_context.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>

#include "velmora/platform/gl_layer.h"

namespace {

using Pixel = std::array<uint8_t, 4>;

/// A layer and a framebuffer around it, bound.
struct Target {
  explicit Target(const std::shared_ptr<VELGLContext>& context, int32_t side = 4)
      : gl(context->gl()), layer(context), framebuffer(gl.genFramebuffer()) {
    gl.bindFramebuffer(VELGL_FRAMEBUFFER, framebuffer);
    layer.allocate(side, side);
    layer.attachToFramebuffer();
  }
  ~Target() { gl.deleteFramebuffer(framebuffer); }
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;
  Pixel pixel(int32_t x, int32_t y) {
    Pixel pixel{};
    gl.readPixels(x, y, 1, 1, pixel.data());
    return pixel;
  }

  VELGL& gl;
  VELGLLayer layer;
  uint32_t framebuffer;
};

}  // namespace

TEST(GLContext, ContextsKeepTheirPixelsApartAndTheLastMadeCurrentIsTheCurrentOne) {
  const auto first = VELGLContext::create(), second = VELGLContext::create();
  ASSERT_TRUE(first && second) << VELGLContext::lastFailure();
  EXPECT_EQ(VELGLContext::lastFailure(), "");
  ASSERT_TRUE(first->makeCurrent());
  Target red(first);
  red.gl.clearColor(1.0f, 0.0f, 0.0f, 1.0f);
  red.gl.clear(VELGL_COLOR_BUFFER_BIT);
  ASSERT_TRUE(second->makeCurrent());
  EXPECT_EQ(VELGLContext::current(), second.get());
  {
    Target blue(second);
    blue.gl.clearColor(0.0f, 0.0f, 1.0f, 1.0f);
    blue.gl.clear(VELGL_COLOR_BUFFER_BIT);
    EXPECT_EQ(blue.pixel(0, 0), (Pixel{0, 0, 255, 255}));
  }
  EXPECT_EQ(second->gl().getError(), VELGL_NO_ERROR);
  ASSERT_TRUE(first->makeCurrent());
  EXPECT_EQ(red.pixel(3, 3), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(first->gl().getError(), VELGL_NO_ERROR);
}

TEST(GLContext, ALayerIsFreedInItsOwnContextWhicheverIsCurrent) {
  auto owner = VELGLContext::create();
  const auto other = VELGLContext::create();
  ASSERT_TRUE(owner && other && owner->makeCurrent());
  auto layer = std::make_unique<VELGLLayer>(owner);
  layer->allocate(8, 8);
  const uint32_t texture = layer->texture();
  layer->allocate(8, 8);
  EXPECT_EQ(layer->texture(), texture);
  EXPECT_TRUE(owner->gl().isTexture(texture));
  ASSERT_TRUE(other->makeCurrent());
  layer.reset();
  EXPECT_EQ(VELGLContext::current(), other.get());
  ASSERT_TRUE(owner->makeCurrent());
  EXPECT_FALSE(owner->gl().isTexture(texture));
  owner.reset();
  EXPECT_EQ(VELGLContext::current(), nullptr) << "a context that is gone is not current";
}

TEST(GLContext, AMultisampledFrameIsResolvedIntoALayer) {
  const auto context = VELGLContext::create();
  ASSERT_TRUE(context && context->makeCurrent());
  VELGL& gl = context->gl();
  if (!gl.hasMultisampling()) GTEST_SKIP() << "the driver has OpenGL ES 2.0 only";
  Target target(context);
  const uint32_t samples = gl.genFramebuffer(), storage = gl.genRenderbuffer();
  gl.bindFramebuffer(VELGL_FRAMEBUFFER, samples);
  gl.bindRenderbuffer(storage);
  gl.renderbufferStorageMultisample(4, VELGL_RGBA8, 4, 4);
  gl.framebufferRenderbuffer(VELGL_FRAMEBUFFER, VELGL_COLOR_ATTACHMENT0, storage);
  ASSERT_EQ(gl.checkFramebufferStatus(VELGL_FRAMEBUFFER), VELGL_FRAMEBUFFER_COMPLETE);
  gl.clearColor(0.0f, 1.0f, 0.0f, 1.0f);
  gl.clear(VELGL_COLOR_BUFFER_BIT);
  gl.bindFramebuffer(VELGL_DRAW_FRAMEBUFFER, target.framebuffer);
  gl.bindFramebuffer(VELGL_READ_FRAMEBUFFER, samples);
  gl.blitColor(4, 4);
  gl.invalidateFramebuffer(VELGL_READ_FRAMEBUFFER, VELGL_COLOR_ATTACHMENT0);
  gl.bindFramebuffer(VELGL_FRAMEBUFFER, target.framebuffer);
  EXPECT_EQ(target.pixel(3, 0), (Pixel{0, 255, 0, 255}));
  gl.deleteFramebuffer(samples);
  gl.deleteRenderbuffer(storage);
  EXPECT_EQ(gl.getError(), VELGL_NO_ERROR);
}

TEST(GLContextDeathTest, AMachineWithoutADriverIsToldWhatToInstall) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // a fresh process, which has loaded no driver yet
  EXPECT_EXIT(
      {
        setenv("__EGL_VENDOR_LIBRARY_FILENAMES", "/nonexistent", 1);
        setenv("__EGL_VENDOR_LIBRARY_DIRS", "/nonexistent", 1);
        const bool isRefused = VELGLContext::create() == nullptr;
        const bool isNamed = VELGLContext::lastFailure().find("libgl1-mesa-dri") != std::string::npos;
        std::exit(isRefused && isNamed ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}
