// What a lost GL context costs: every object is made again, nothing is drawn anew by the application.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/rendering/recorded_frame.h"
#include "tests/support/recording_host.h"
#include "velmora/rendering/opengl_render_surface.h"

namespace {

struct CountingDelegate : VELRenderSurfaceCallbackDelegate {
  int draws = 0;
  void onRenderSurfaceDraw() override { ++draws; }
  void onRenderSurfaceDrawModifiers() override { ++draws; }
};

// The recorder fails the test when a name of the lost context is used or deleted.
class LostContext : public testing::Test {
 protected:
  LostContext() {
    gl.multisampling = true;
    surface = VELOpenGLRenderSurface::initWithFrame({0, 0, 200, 300}, host);
    surface->setDelegate(delegate);
    surface->setDrawingBufferSize(16);
    fill();
    tick();
    whole = vertices();
    objects = gl.liveObjects();
  }
  void fill() {
    for (const auto& context : {surface->backgroundContext(), surface->renderContext()})
      for (int i = 0; i < 8; ++i) {  // more than one buffer can take
        const auto x = static_cast<float>(i);
        context->drawRectWithBrush(VELBrush2D::solid(0xFF0000FFu), x, 0, x + 1, 9);
        context->drawRectWithBrush(columnGradient(7), x, 9, x + 1, 12);
      }
  }
  void tick() {
    gl.calls.clear();
    host.displayLink()->tick(++time);
  }
  std::vector<VELVertex> vertices() {
    std::vector<VELVertex> all;
    for (const DrawnStrip& strip : drawnStrips(gl))
      all.insert(all.end(), strip.vertices.begin(), strip.vertices.end());
    return all;
  }

  RecordingHost host{2.0};
  RecordingGL& gl = host.gl();
  RecordingGLContext& context = static_cast<RecordingGLContext&>(*host.glContext());
  std::shared_ptr<CountingDelegate> delegate = std::make_shared<CountingDelegate>();
  std::shared_ptr<VELOpenGLRenderSurface> surface;
  std::vector<VELVertex> whole;
  size_t objects = 0;
  double time = 0.0;
};

TEST_F(LostContext, TheNextRefreshShowsTheWholeFrameFromNewObjects) {
  ASSERT_GT(whole.size(), 64u);
  const int draws = delegate->draws;
  for (const bool driverTells : {false, true}) {
    if (driverTells) {
      context.resets = true;
      surface->setReduceGPUFrames(false);
      tick();  // asked after the replay
      surface->setReduceGPUFrames(true);
      surface->setRenderContextInvalidated(false);
      surface->setModifierContextInvalidated(false);
    } else {
      context.setLost();
    }
    EXPECT_TRUE(surface->needsDisplay()) << "a window at rest has to wake";
    const int before = delegate->draws;
    tick();
    EXPECT_EQ(delegate->draws, before) << "nothing of the application is asked again";
    EXPECT_EQ(vertices(), whole);
    EXPECT_EQ(gl.liveObjects(), objects);
    EXPECT_EQ(gl.texts("renderbufferStorage"), "renderbufferStorageMultisample(4,RGBA8,400,600)");
    tick();
    EXPECT_TRUE(gl.calls.empty() && !surface->needsDisplay());
  }
  EXPECT_EQ(delegate->draws, draws + 1) << "that of the continuous refresh";
}

TEST_F(LostContext, ADriverThatIsNotBackYetIsAskedAtEveryRefreshAndToldOfOnce) {
  context.refuses = true;
  context.setLost();
  testing::internal::CaptureStderr();
  for (int i = 0; i < 3; ++i) tick();
  surface->setFrame({0, 0, 100, 150});
  surface->layoutIfNeeded();
  EXPECT_TRUE(gl.calls.empty());
  const std::string told = testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
  context.refuses = false;
  gl.largest = 150;
  tick();
  EXPECT_EQ(vertices(), whole);
  EXPECT_EQ(surface->layer().width(), 100)
      << "of the size that it got meanwhile, as far as the new driver can hold it";
  context.setLost();
  gl.calls.clear();
  surface.reset();
  EXPECT_TRUE(gl.calls.empty());
  EXPECT_TRUE(context.isLost()) << "a fresh context is not made only to free what is gone";
}

TEST_F(LostContext, BuffersMadeWhileTheDriverIsAwayAreShownWhenItIsBack) {
  for (const bool firstOnesToo : {false, true}) {
    if (!firstOnesToo) surface->setDrawingBufferSize(16);
    context.refuses = true;
    context.setLost();
    testing::internal::CaptureStderr();
    if (firstOnesToo) surface->setDrawingBufferSize(16);
    fill();
    tick();
    testing::internal::GetCapturedStderr();
    context.refuses = false;
    tick();
    EXPECT_EQ(vertices(), whole);
    EXPECT_EQ(gl.liveObjects(), objects);
  }
}

}  // namespace
