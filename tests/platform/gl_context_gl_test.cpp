// platform/gl_context_gl_test.cpp: the machine's own GL contexts and what is freed with them.
#include "velmora/platform/gl_context.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "velmora/platform/gl_layer.h"

TEST(GLContext, ContextsShareNothingAndALayerIsFreedInItsOwnWhicheverIsCurrent) {
  auto owner = VELGLContext::create();
  const auto other = VELGLContext::create();
  ASSERT_TRUE(owner && other && owner->makeCurrent()) << VELGLContext::lastFailure();
  EXPECT_EQ(VELGLContext::lastFailure(), "");
  auto layer = std::make_unique<VELGLLayer>(owner);
  layer->allocate(8, 8);
  const uint32_t texture = layer->texture();
  layer->allocate(8, 8);
  EXPECT_EQ(layer->texture(), texture);
  EXPECT_TRUE(owner->gl().isTexture(texture));
  ASSERT_TRUE(other->makeCurrent());
  EXPECT_FALSE(other->gl().isTexture(texture));
  layer.reset();
  EXPECT_EQ(VELGLContext::current(), other.get());
  ASSERT_TRUE(owner->makeCurrent());
  EXPECT_FALSE(owner->gl().isTexture(texture));
  owner.reset();
  EXPECT_EQ(VELGLContext::current(), nullptr) << "a context that is gone is not current";
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
