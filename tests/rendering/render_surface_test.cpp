// When a surface redraws, what it asks of GL, and what it leaves behind.
#include <gtest/gtest.h>

#include "tests/rendering/recorded_frame.h"
#include "tests/support/gl_error_watch.h"
#include "tests/support/reason_of.h"
#include "tests/support/recording_context.h"
#include "tests/support/recording_host.h"
#include "velmora/platform/composer.h"
#include "velmora/platform/exception.h"
#include "velmora/rendering/linear_gradient_brush.h"
#include "velmora/rendering/opengl_render_surface.h"
#include "velmora/rendering/render_surface_style.h"

namespace {

struct Delegate : VELRenderSurfaceCallbackDelegate {
  std::string calls;
  std::function<void()> onDraw = [] {};
  void onRenderSurfaceDraw() override { calls += 'd', onDraw(); }
  void onRenderSurfaceDrawModifiers() override { calls += 'm'; }
};

class Surface : public testing::Test {
 protected:
  Surface() {
    gl.multisampling = true;
    surface = VELOpenGLRenderSurface::initWithFrame({0, 0, 200, 300}, host);
    surface->setDelegate(delegate);
    surface->setRenderedCallback([this](int32_t reason) { rendered += std::to_string(reason); });
  }
  std::string tick() {
    delegate->calls.clear();
    rendered.clear();
    gl.calls.clear();
    host.displayLink()->tick(++time);
    return delegate->calls + rendered;
  }
  void drawLine(VELRenderContext2D& context) { context.drawLineWithBrush(pen, 0, 0, 1, 1); }

  RecordingHost host{2.0};
  RecordingGL& gl = host.gl();
  VELPenPtr pen = VELPen2D::solid(1, 1);
  std::shared_ptr<Delegate> delegate = std::make_shared<Delegate>();
  std::shared_ptr<VELOpenGLRenderSurface> surface;
  std::string rendered;
  double time = 0.0;
};

TEST_F(Surface, ATickDrawsWhatWasInvalidatedAndOnlyThat) {
  delegate->onDraw = [&] { surface->invalidateElement(); };
  tick();
  EXPECT_TRUE(surface->needRedraw()) << "the flags are cleared before the delegate draws";
  EXPECT_FALSE(surface->renderContext()->wasChanged()) << "replayed";
  delegate->onDraw = [] {};
  const struct {
    std::function<void()> change;
    const char* expected;
  } rows[] = {{[] {}, "d1"},
              {[] {}, ""},
              {[&] { surface->invalidateElement(); }, "d1"},
              {[&] { surface->modifierContext()->invalidate(); }, "m1"},
              {[&] { surface->backgroundContext()->invalidate(); }, "m1"},  // the lighter step draws it too
              {[&] { surface->renderContext()->invalidate(); }, "d1"},
              {[] {}, ""},
              {[&] { surface->setDrawingBufferSize(70'000); }, "d1"},
              {[&] { surface->setMultisampling(false); }, "d1"},
              {[&] { surface->setReduceGPUFrames(false); }, "d1"},  // continuous from here on
              {[] {}, "2"},
              {[&] { surface->setReduceCPUFrames(false); }, "d1"},
              {[] {}, "d1"}};
  for (size_t i = 0; i < std::size(rows); ++i) {
    rows[i].change();
    EXPECT_EQ(tick(), rows[i].expected) << i;
    EXPECT_EQ(gl.calls.empty(), *rows[i].expected == '\0') << "an idle refresh costs nothing";
  }
  EXPECT_EQ(surface->drawingBufferSize(), 65536) << "cut to what indices can name";
}

TEST_F(Surface, AFrameSetsEverythingAndReplaysThreeContextsInOrder) {
  tick();
  for (const auto& context :
       {surface->renderContext(), surface->modifierContext(), surface->backgroundContext()}) {
    drawLine(*context);
    context->setDrawingArea({5, 10, 50, 100});
  }
  surface->setBackgroundColor({0.5, 0.25, 0.0});
  tick();
  const std::string calls = gl.texts();
  const std::string opening =
      "disable(CULL_FACE) disable(DEPTH_TEST) disable(STENCIL_TEST) disable(SCISSOR_TEST) disable(DITHER) "
      "disable(ALPHA_TO_COVERAGE) disable(COVERAGE) colorMask(1,1,1,1) blendEquation(ADD) "
      "blendFuncSeparate(SRC_ALPHA,ONE_MINUS_SRC_ALPHA,ONE_MINUS_DST_ALPHA,LINES) enable(BLEND) "
      "activeTexture(TEXTURE0) pixelStorei() pixelStorei() resetES3State() enable(SCISSOR_TEST) "
      "bindFramebuffer(FRAME,2) clearColor(0.5,0.25,0,1) viewport(0,0,400,600) scissor(0,0,400,600) "
      "clear(COLOR) ";
  EXPECT_EQ(calls.substr(0, opening.size()), opening);
  // Contexts were made as render, modifier, background, each with two buffer names.
  EXPECT_EQ(gl.texts("bindBuffer(ARRAY"), "bindBuffer(ARRAY,5) bindBuffer(ARRAY,1) bindBuffer(ARRAY,3)");
  EXPECT_EQ(gl.texts("scissor"),
            "scissor(0,0,400,600) scissor(10,380,100,200) scissor(0,0,400,600) scissor(10,380,100,200) "
            "scissor(0,0,400,600) scissor(10,380,100,200) scissor(0,0,400,600)");
  const std::string closing =
      " bindFramebuffer(DRAW,1) bindFramebuffer(READ,2) blitColor(400,600) "
      "invalidateFramebuffer(READ,COLOR0) "
      "disableVertexAttribArray(0) disableVertexAttribArray(1) disableVertexAttribArray(2) disable(BLEND) "
      "disable(SCISSOR_TEST)";
  EXPECT_EQ(calls.substr(calls.size() - closing.size()), closing);

  surface->setMultisampling(false);
  tick();
  EXPECT_EQ(gl.texts("bindFramebuffer"), "bindFramebuffer(FRAME,1)") << "straight to the layer";
  EXPECT_EQ(gl.count("blitColor"), 0u);
}

TEST_F(Surface, AContextThatIsNoneOfItsOwnIsSkipped) {
  RegisteredGL elsewhere;
  const std::shared_ptr<VELRenderContext2D> strangers[] = {
      nullptr, std::make_shared<RecordingContext>(), std::make_shared<VELOpenGLRenderContext>(64, nullptr),
      std::make_shared<VELOpenGLRenderContext>(64, elsewhere.context)};
  for (const auto& stranger : strangers) {
    surface->addRenderContext(stranger);
    surface->addBackgroundContext(stranger);
    if (stranger) drawLine(*stranger);
    surface->modifierContext()->clear();
    drawLine(*surface->modifierContext());
    surface->invalidateElement();
    tick();
    EXPECT_EQ(rendered, "1");
    EXPECT_EQ(gl.count("drawElements"), 1u) << "that of its own modifiers";
  }
  surface->addModifierContext(nullptr);
  surface->setRenderContextInvalidated(true);
  EXPECT_EQ(tick(), "d1");
}

TEST_F(Surface, LayoutFollowsTheFrameAndRedraws) {
  tick();
  surface->setFrame({0, 0, 100.25, 50});
  gl.calls.clear();
  surface->layoutIfNeeded();
  EXPECT_EQ(surface->projectionFrame(), (VELRect{-50.25, -25, 100.5, 50}));
  EXPECT_EQ(surface->layer().width(), 201) << "touched by 200.5 pixels";
  EXPECT_EQ(gl.texts("renderbufferStorage"), "renderbufferStorageMultisample(4,RGBA8,201,100)");
  EXPECT_EQ(tick(), "d1");
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    VELRect frame;
    int32_t width, height;
  } rows[] = {{{0, 0, 0, 0}, 1, 1},         {{0, 0, nan, -5}, 1, 1},       {{0, 0, 1, 1}, 2, 2},
              {{0, 0, 1e300, 1}, 16384, 1}, {{0, 0, 8192, 10}, 16384, 20}, {{0, 0, 16384, 10}, 16384, 10}};
  for (const auto& row : rows) {
    surface->setFrame(row.frame);
    surface->layoutSubviews();
    surface->invalidateElement();
    EXPECT_EQ(tick(), "d1");
    EXPECT_EQ(surface->layer().width(), row.width) << row.frame.width;
    EXPECT_EQ(surface->layer().height(), row.height) << row.frame.width;
  }
}

TEST_F(Surface, AThousandSizesAndDensitiesLeaveNothingBehind) {
  tick();
  const size_t objects = gl.liveObjects();
  for (int i = 0; i < 1000; ++i) {
    surface->setFrame({0, 0, 100.0 + i % 37, 80.0 + i % 11});
    if (i % 10 == 0) surface->setTreeContentScale(1.0 + 0.25 * (i % 4));
    surface->layoutIfNeeded();
    ASSERT_EQ(tick(), "d1") << i;
  }
  EXPECT_EQ(gl.liveObjects(), objects);
  for (const double odd : {0.0, -1.0, std::numeric_limits<double>::infinity()})
    surface->setTreeContentScale(odd);
  EXPECT_EQ(surface->contentScale(), 1.5f);
  for (const double odd : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), 1e300}) {
    RecordingHost oddHost{odd};
    EXPECT_EQ(VELOpenGLRenderSurface::initWithFrame({0, 0, 1, 1}, oddHost)->contentScale(), 1.0f) << odd;
  }
  EXPECT_EQ(static_cast<VELOpenGLRenderContext&>(*surface->modifierContext()).sizeScale(), 1.5f);
}

TEST_F(Surface, ItNeedsTheDisplayForAsLongAsAFrameIsToCome) {
  EXPECT_TRUE(surface->needsDisplay()) << "nothing was shown yet";
  tick();
  EXPECT_FALSE(surface->needsDisplay());
  surface->setRenderedCallback([&](int32_t) { surface->invalidateElement(); });
  surface->setReduceGPUFrames(false);
  tick();
  EXPECT_TRUE(surface->needRedraw()) << "what the callback changed waits for the next refresh";
  surface->setRenderedCallback(nullptr);
  tick();
  EXPECT_TRUE(!surface->needRedraw() && surface->needsDisplay()) << "every refresh draws";
  VELOpenGLContextController::o_freeContext(host.glContext());
  EXPECT_FALSE(surface->needsDisplay()) << "in a context that somebody freed no frame is to come";
  VELOpenGLContextController::o_createContext(host.glContext());
  EXPECT_TRUE(surface->needsDisplay());
  surface->free();
  EXPECT_FALSE(surface->needsDisplay());
}

TEST_F(Surface, ASurfaceMayEndInItsOwnDelegateAndItsOwnCallback) {
  for (const bool inDelegate : {true, false}) {
    auto victim = VELOpenGLRenderSurface::initWithFrame({0, 0, 10, 10}, host);
    const auto last = std::make_shared<Delegate>();
    victim->setDelegate(last);
    const size_t objects = gl.liveObjects();
    if (inDelegate) last->onDraw = [&] { victim.reset(); };
    victim->setRenderedCallback([&](int32_t) { victim.reset(); });
    tick();
    EXPECT_EQ(last->calls, "d");
    EXPECT_EQ(victim, nullptr);
    EXPECT_LT(gl.liveObjects(), objects);
    tick();
  }
}

TEST_F(Surface, ABrushMayRecordForAnotherContextOrEndTheSurfaceWhileTheFrameIsDrawn) {
  surface->setDrawingBufferSize(16);
  tick();
  const auto calling = [&](std::function<void()> call) {
    const auto brush = std::make_shared<CallingBrush>(std::move(call));
    surface->renderContext()->clear();
    surface->renderContext()->drawRectWithBrush(brush, 0, 0, 1, 1);
    surface->renderContext()->drawRectWithBrush(pen, 0, 0, 1, 1);
    surface->invalidateElement();
    tick();
  };
  calling([&] {
    for (int i = 0; i < 8; ++i) drawLine(*surface->modifierContext());
  });
  EXPECT_EQ(rendered, "1");
  const auto drawn = drawnStrips(gl);
  ASSERT_EQ(drawn.size(), 4u) << "one of the rectangles, three of the lines";
  EXPECT_EQ(drawn[0].target, "7@0") << "its buffers stay bound";
  EXPECT_EQ(drawn[0].vertices.size(), 10u);
  const auto other = VELOpenGLRenderSurface::initWithFrame({0, 0, 10, 10}, host);
  for (const bool isLast : {false, true}) {
    if (isLast) other->free();
    if (isLast) surface = VELOpenGLRenderSurface::initWithFrame({0, 0, 200, 300}, host);
    surface->setRenderedCallback([this](int32_t reason) { rendered += std::to_string(reason); });
    calling([&] { surface->free(); });
    EXPECT_EQ(rendered, "");
    EXPECT_FALSE(surface->layer().isPresented() && isLast);
  }
}

#ifndef NDEBUG
TEST_F(Surface, ADebugBuildNamesTheErrorThatAReplayLeftAndNoOther) {
  expectGLErrorsInThisTest();
  tick();
  auto& context = static_cast<RecordingGLContext&>(*host.glContext());
  const struct {
    const char* failing;
    bool isReset;
    const char* told;
  } rows[] = {{"clear", false, "OpenGL noted the error 0x505\n"}, {"", false, ""}, {"clear", true, ""}};
  for (const auto& row : rows) {
    surface->invalidateElement();
    gl.error = 0x0502;  // by the host, before the frame
    gl.failing = row.failing;
    context.resets = row.isReset;
    testing::internal::CaptureStderr();
    tick();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), row.told);
  }
}
#endif

TEST_F(Surface, AnIncompleteFramebufferIsLoggedOnceEach) {
  gl.framebufferStatus = 0x8CD6;
  testing::internal::CaptureStderr();
  surface->layoutSubviews();
  const std::string line = "Failed to make complete framebuffer object 8cd6\n";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), line + line);
  tick();
  EXPECT_GT(gl.count("clear("), 0u) << "drawing goes on";
  EXPECT_EQ(gl.count("blit"), 0u) << "without the samples that there is no memory for";
}

TEST_F(Surface, TheChartFrameIsThatOfItsView) {
  EXPECT_EQ(surface->chartFrame(), surface->frame());
  EXPECT_EQ(surface->pointInChartFrame({7, 8}), (VELPoint{7, 8}));
  auto view = std::make_shared<VELView>(VELRect{10, 20, 30, 40});
  surface->setChartFrameView(view);
  EXPECT_EQ(surface->renderContext()->viewportSize(), (VELSize{30, 40}));
  EXPECT_TRUE(surface->isPointWithinBounds({40, 60}) && surface->isPointWithinBounds({10, 20}));
  EXPECT_FALSE(surface->isPointWithinBounds({40.5, 60}));
  EXPECT_EQ(surface->pointInChartFrame({11, 22}), (VELPoint{1, 2}));
  view.reset();
  EXPECT_EQ(surface->chartFrame(), VELRect{}) << "gone, not unset";
  const auto context = surface->renderContext();
  surface.reset();
  EXPECT_EQ(context->viewportSize(), VELSize{});
  context->invalidate();
}

TEST_F(Surface, TheBackgroundIsARectangleAChartRectangleAndABorder) {
  const auto view = std::make_shared<VELView>(VELRect{10, 20, 30, 40});
  surface->setFrame({70, 80, 200, 300});  // somewhere in its parent, which the drawing does not notice
  auto& context = static_cast<VELOpenGLRenderContext&>(*surface->backgroundContext());
  VELRenderSurfaceStyle style;
  surface->drawBackground(context, style);
  EXPECT_EQ(context.drawingOrder().drawingOrder().size(), 1u) << "the buffer command alone";
  const auto whole = std::make_shared<VELBrushLinearGradient>(1, 2, VELGradientDirection_Horizontal),
             series = std::make_shared<VELBrushLinearGradient>(1, 2, VELGradientDirection_Vertical);
  style.setBackgroundBrush(whole);
  style.setSeriesBackgroundBrush(series);
  style.setBorderPen(VELPen2D::solid(3, 1));
  surface->drawBackground(context, style);
  EXPECT_EQ(std::pair(series->min(), series->max()), std::pair(0.0, 300.0)) << "all of the surface is chart";
  context.clear();
  surface->setChartFrameView(view);
  surface->drawBackground(context, style);
  EXPECT_EQ(std::pair(whole->min(), whole->max()), std::pair(0.0, 200.0));
  EXPECT_EQ(std::pair(series->min(), series->max()), std::pair(20.0, 80.0)) << "the bottom, on purpose";
  VELOpenGLContextController::o_enableContext(host.glContext());
  const auto drawn = replay(context, gl);
  EXPECT_EQ(gl.texts("scissor"), "scissor(0,0,400,600)");
  ASSERT_EQ(drawn.size(), 1u);
  const auto places = placesOf(drawn[0]);
  ASSERT_EQ(places.size(), 4u + 2 + 4 + 2 + 18) << "the left side turns the strip over";
  EXPECT_EQ(places[3], (std::pair<float, float>{200, 300}));
  EXPECT_EQ(places[9], (std::pair<float, float>{40, 60}));
  EXPECT_EQ(places[14], (std::pair<float, float>{40, 21})) << "the end of the top side";
}

TEST_F(Surface, AFreedSurfaceGivesEverythingBackToGLAndLeavesTheContextToOthers) {
  auto second = VELOpenGLRenderSurface::initWithFrame({0, 0, 10, 10}, host);
  tick();
  delegate->onDraw = [&] { surface->free(); };
  for (const auto& one : {surface, second}) drawLine(*one->renderContext()), one->invalidateElement();
  tick();
  EXPECT_EQ(rendered, "") << "a frame that the delegate ended is not reported";
  EXPECT_EQ(surface->layer().presentedCount(), 1u);
  EXPECT_EQ(second->layer().presentedCount(), 2u);
  EXPECT_EQ(gl.count("drawElements"), 1u);
  surface->invalidateElement();
  EXPECT_EQ(tick(), "") << "it left the display's beat";
  surface->onRenderTimeElapsed();
  const size_t ofTwo = gl.liveObjects();
  surface.reset();
  EXPECT_EQ(ofTwo - gl.liveObjects(), 10u)
      << "a layer, what is smoothed for it, two buffers for each context";
  second.reset();
  EXPECT_EQ(gl.liveObjects(), 0u);
  tick();
}

TEST(SurfaceEnd, WithoutGLThereIsNoSurfaceAndTheBaseDrawsNoBackground) {
  RecordingHost host(1.0, nullptr);
  EXPECT_EQ(VELOpenGLRenderSurface::initWithFrame({0, 0, 10, 10}, host), nullptr);
  const auto base = std::make_shared<VELRenderSurfaceBase>();
  base->clear();
  base->invalidateElement();
  base->onRenderTimeElapsed();
  VELOpenGLRenderContext memoryOnly(64, nullptr);
  EXPECT_EQ(reasonOf<VELInternalInconsistencyException>(
                [&] { base->drawBackground(memoryOnly, VELRenderSurfaceStyle()); }),
            "drawBackground:Style: must be implemented in subclass");
}

}  // namespace
