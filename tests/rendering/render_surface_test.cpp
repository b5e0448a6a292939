// When a surface redraws, what it asks of GL, and what it leaves behind.
#include <gtest/gtest.h>

#include "tests/rendering/recorded_frame.h"
#include "tests/support/allocation_counter.h"
#include "tests/support/recording_context.h"
#include "tests/support/recording_host.h"
#include "velmora/platform/composer.h"
#include "velmora/platform/exception.h"
#include "velmora/rendering/opengl_render_surface.h"
#include "velmora/rendering/render_surface_style.h"

namespace {

struct Delegate : VELRenderSurfaceCallbackDelegate {
  std::string calls;
  void onRenderSurfaceDraw() override { calls += 'd'; }
  void onRenderSurfaceDrawModifiers() override { calls += 'm'; }
};

class Surface : public testing::Test {
 protected:
  Surface() {
    host.gl().multisampling = true;
    surface = VELOpenGLRenderSurface::initWithFrame({0, 0, 200, 300}, host);
    surface->setDelegate(delegate);
    surface->setRenderedCallback([this](int32_t reason) { rendered += std::to_string(reason); });
  }
  std::string tick() {
    delegate->calls.clear();
    rendered.clear();
    host.gl().calls.clear();
    host.displayLink()->tick(++time);
    return delegate->calls + rendered;
  }

  RecordingHost host{2.0};
  std::shared_ptr<Delegate> delegate = std::make_shared<Delegate>();
  std::shared_ptr<VELOpenGLRenderSurface> surface;
  std::string rendered;
  double time = 0.0;
};

TEST_F(Surface, ATickDrawsWhatWasInvalidatedAndOnlyThat) {
  EXPECT_EQ(tick(), "d1") << "a new surface has everything to draw";
  EXPECT_EQ(tick(), "");
  EXPECT_TRUE(host.gl().calls.empty()) << "an idle refresh costs nothing";
  surface->invalidateElement();
  EXPECT_TRUE(surface->renderContext()->wasChanged());
  EXPECT_EQ(tick(), "d1");
  surface->modifierContext()->invalidate();
  EXPECT_EQ(tick(), "m1");
  surface->backgroundContext()->invalidate();
  EXPECT_EQ(tick(), "m1") << "the lighter step draws the background too";
  surface->renderContext()->invalidate();
  EXPECT_EQ(tick(), "d1");
  EXPECT_EQ(tick(), "");
}

TEST_F(Surface, ContinuousModesDrawAtEveryTick) {
  tick();
  surface->setReduceGPUFrames(false);
  EXPECT_EQ(tick(), "d1") << "setting the mode invalidates";
  EXPECT_EQ(tick(), "2");
  surface->setReduceCPUFrames(false);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(tick(), "d1");
}

TEST_F(Surface, TheFlagsAreClearedBeforeTheDelegateDraws) {
  struct Restless : Delegate {
    VELRenderSurfaceBase* surface = nullptr;
    void onRenderSurfaceDraw() override { surface->invalidateElement(); }
  };
  const auto restless = std::make_shared<Restless>();
  restless->surface = surface.get();
  surface->setDelegate(restless);
  tick();
  EXPECT_TRUE(surface->needRedraw());
}

TEST_F(Surface, AFrameSetsEverythingAndReplaysThreeContextsInOrder) {
  tick();
  const VELPenPtr pen = VELPen2D::solid(1, 1);
  for (const auto& context :
       {surface->renderContext(), surface->modifierContext(), surface->backgroundContext()}) {
    context->drawLineWithBrush(pen, 0, 0, 1, 1);
    context->setDrawingArea({5, 10, 50, 100});
  }
  surface->setBackgroundColor({0.5, 0.25, 0.0});
  tick();
  const auto& gl = host.gl();
  const auto calls = gl.texts();
  const CallTexts opening = {"disable(CULL_FACE)",
                             "disable(DEPTH_TEST)",
                             "disable(STENCIL_TEST)",
                             "disable(DITHER)",
                             "enable(SCISSOR_TEST)",
                             "blendFuncSeparate(SRC_ALPHA,ONE_MINUS_SRC_ALPHA,ONE_MINUS_DST_ALPHA,LINES)",
                             "enable(BLEND)",
                             "bindFramebuffer(FRAME,2)",
                             "clearColor(0.5,0.25,0,1)",
                             "viewport(0,0,400,600)",
                             "scissor(0,0,400,600)",
                             "clear(COLOR)"};
  ASSERT_GE(calls.size(), opening.size());
  EXPECT_EQ(CallTexts(calls.begin(), calls.begin() + static_cast<long>(opening.size())), opening);
  // Contexts were made as render, modifier, background, each with two buffer names.
  EXPECT_EQ(gl.texts("bindBuffer(ARRAY"),
            (CallTexts{"bindBuffer(ARRAY,5)", "bindBuffer(ARRAY,1)", "bindBuffer(ARRAY,3)"}));
  EXPECT_EQ(gl.texts("scissor"),
            (CallTexts{"scissor(0,0,400,600)", "scissor(10,380,100,200)", "scissor(0,0,400,600)",
                       "scissor(10,380,100,200)", "scissor(0,0,400,600)", "scissor(10,380,100,200)",
                       "scissor(0,0,400,600)"}));
  const CallTexts closing = {"bindFramebuffer(DRAW,1)",     "bindFramebuffer(READ,2)",
                             "blitColor(400,600)",          "invalidateFramebuffer(READ,COLOR0)",
                             "disableVertexAttribArray(0)", "disableVertexAttribArray(1)",
                             "disableVertexAttribArray(2)", "disable(BLEND)",
                             "disable(SCISSOR_TEST)"};
  EXPECT_EQ(CallTexts(calls.end() - static_cast<long>(closing.size()), calls.end()), closing);
}

TEST_F(Surface, AContextThatIsNoneOfItsOwnIsSkipped) {
  RegisteredGL elsewhere;
  const std::shared_ptr<VELRenderContext2D> strangers[] = {
      nullptr, std::make_shared<RecordingContext>(), std::make_shared<VELOpenGLRenderContext>(64, nullptr),
      std::make_shared<VELOpenGLRenderContext>(64, elsewhere.context)};
  for (const auto& stranger : strangers) {
    surface->addRenderContext(stranger);
    surface->addBackgroundContext(stranger);
    if (stranger) stranger->drawLineWithBrush(VELPen2D::solid(1, 1), 0, 0, 1, 1);
    surface->modifierContext()->clear();
    surface->modifierContext()->drawLineWithBrush(VELPen2D::solid(1, 1), 0, 0, 1, 1);
    surface->invalidateElement();
    tick();
    EXPECT_EQ(rendered, "1");
    EXPECT_EQ(host.gl().count("drawElements"), 1u) << "that of its own modifiers";
  }
  surface->addModifierContext(nullptr);
  surface->setRenderContextInvalidated(true);
  EXPECT_EQ(tick(), "d1");
}

TEST_F(Surface, AFrameThatTheDelegateEndedIsNotReported) {
  struct Ending : Delegate {
    VELRenderSurfaceBase* surface = nullptr;
    void onRenderSurfaceDraw() override { surface->free(); }
  };
  const auto ending = std::make_shared<Ending>();
  ending->surface = surface.get();
  surface->setDelegate(ending);
  const auto second = VELOpenGLRenderSurface::initWithFrame({0, 0, 10, 10}, host);
  tick();
  EXPECT_EQ(rendered, "");
  EXPECT_EQ(surface->layer().presentedCount(), 0u);
  EXPECT_EQ(second->layer().presentedCount(), 1u) << "its context is still in use";
}

TEST_F(Surface, WithoutMultisamplingAFrameGoesStraightToTheLayer) {
  surface->setMultisampling(false);
  tick();
  EXPECT_EQ(host.gl().texts("bindFramebuffer"), (CallTexts{"bindFramebuffer(FRAME,1)"}));
  EXPECT_EQ(host.gl().count("blitColor"), 0u);
}

TEST_F(Surface, LayoutFollowsTheFrameAndRedraws) {
  tick();
  surface->setFrame({0, 0, 100.25, 50});
  host.gl().calls.clear();
  surface->layoutIfNeeded();
  EXPECT_EQ(surface->projectionFrame(), (VELRect{-50.125, -25, 100.25, 50}));
  EXPECT_EQ(surface->layer().width(), 201) << "200.5 pixels, rounded";
  EXPECT_EQ(host.gl().texts("renderbufferStorage"),
            (CallTexts{"renderbufferStorageMultisample(4,RGBA8,201,100)"}));
  EXPECT_EQ(tick(), "d1");
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const VELRect& frame : {VELRect{0, 0, 0, 0}, VELRect{0, 0, nan, -5}, VELRect{0, 0, 1e300, 1}}) {
    surface->setFrame(frame);
    surface->layoutSubviews();
    surface->invalidateElement();
    EXPECT_EQ(tick(), "d1");
  }
  EXPECT_EQ(surface->layer().width(), 16384);
}

TEST_F(Surface, AnIncompleteFramebufferIsLoggedOnceEach) {
  host.gl().framebufferStatus = 0x8CD6;
  testing::internal::CaptureStderr();
  surface->layoutSubviews();
  const std::string line = "Failed to make complete framebuffer object 8cd6\n";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), line + line);
  host.gl().calls.clear();
  host.displayLink()->tick(0.0);
  EXPECT_GT(host.gl().count("clear("), 0u) << "drawing goes on";
  EXPECT_EQ(host.gl().count("blit"), 0u) << "without the samples that there is no memory for";
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
  struct Spanned final : VELBrush2D {
    std::vector<double> area;
    uint32_t colorCode() const override { return 9; }
    void getColorCode(uint32_t& code, uint16_t& x, uint16_t& y, double, double) const override {
      code = 9;
      x = y = 0;
    }
    VELShaderType shaderType() const override { return VELShaderType_Solid; }
    bool equalsToBrush(const VELBrush2D&) const override { return true; }
    void apply(VELShaderAttributes&) const override {}
    void setDrawingAreaX(double x, double y, double w, double h) override { area = {x, y, w, h}; }
    VELBrushPtr clone() const override { return std::make_shared<Spanned>(*this); }
  };
  const auto view = std::make_shared<VELView>(VELRect{10, 20, 30, 40});
  surface->setChartFrameView(view);
  surface->setFrame({70, 80, 200, 300});  // somewhere in its parent, which the drawing does not notice
  auto& context = static_cast<VELOpenGLRenderContext&>(*surface->backgroundContext());
  VELRenderSurfaceStyle style;
  surface->drawBackground(context, style);
  EXPECT_EQ(context.drawingOrder().drawingOrder().size(), 1u) << "the buffer command alone";
  const auto whole = std::make_shared<Spanned>(), series = std::make_shared<Spanned>();
  style.setBackgroundBrush(whole);
  style.setSeriesBackgroundBrush(series);
  style.setBorderPen(VELPen2D::solid(3, 1));
  surface->drawBackground(context, style);
  EXPECT_EQ(whole->area, (std::vector<double>{0, 0, 200, 300}));
  EXPECT_EQ(series->area, (std::vector<double>{10, 20, 40, 60})) << "right and bottom, on purpose";
  VELOpenGLContextController::o_enableContext(host.glContext());
  const auto drawn = replay(context, host.gl());
  EXPECT_EQ(host.gl().texts("scissor"), (CallTexts{"scissor(0,0,400,600)"}));
  ASSERT_EQ(drawn.size(), 1u);
  const auto places = placesOf(drawn[0]);
  ASSERT_EQ(places.size(), 4u + 2 + 4 + 2 + 18) << "the left side turns the strip over";
  EXPECT_EQ(places[3], (std::pair<float, float>{200, 300}));
  EXPECT_EQ(places[9], (std::pair<float, float>{40, 60}));
  EXPECT_EQ(places[14], (std::pair<float, float>{40, 21})) << "the end of the top side";
}

TEST_F(Surface, ASteadyFrameAllocatesNothing) {
  surface->setDrawingBufferSize(64);
  std::vector<double> values(100, 5.0);
  const auto column = doubles(values);
  const VELPenPtr pen = VELPen2D::solid(1, 1), other = VELPen2D::solid(2, 1);
  auto& context = static_cast<VELOpenGLRenderContext&>(*surface->renderContext());
  const auto draw = [&] {
    context.clear();
    for (int i = 0; i < 20; ++i) {
      context.setDrawingArea({0, 0, 10.0 + i, 10});
      context.drawLineWithBrush(i % 2 ? pen : other, 0, 0, 1, 1);
      context.drawRectWithBrush(other, 0, 0, 1, 1);
    }
    context.drawPolylineWithBrush(pen, *column, *column, 0);
    context.invalidate();
  };
  draw();
  const AllocationCounter counter;
  const auto alarm = std::make_unique<int>(1);
  EXPECT_EQ(counter.count(), 1) << "the counter counts";
  for (int i = 0; i < 3; ++i) draw();
  EXPECT_EQ(counter.count(), 1);
}

TEST_F(Surface, ANewBufferSizeReplacesTheContextsAndIsClamped) {
  tick();
  const auto old = surface->renderContext();
  for (const auto& [size, expected] : {std::pair{1, 8}, {70000, 65536}, {100, 100}}) {
    surface->setDrawingBufferSize(size);
    EXPECT_EQ(surface->drawingBufferSize(), expected);
  }
  EXPECT_NE(surface->renderContext(), old);
  EXPECT_EQ(tick(), "d1");
}

TEST_F(Surface, EverythingIsGivenBackToGL) {
  auto& gl = host.gl();
  const auto second = VELOpenGLRenderSurface::initWithFrame({0, 0, 10, 10}, host);
  surface->renderContext()->drawLineWithBrush(VELPen2D::solid(1, 1), 0, 0, 1, 1);
  tick();
  surface->free();
  surface->invalidateElement();
  EXPECT_EQ(tick(), "") << "it left the display's beat";
  surface->onRenderTimeElapsed();
  surface.reset();
  second->renderContext()->drawLineWithBrush(VELPen2D::solid(1, 1), 0, 0, 1, 1);
  second->invalidateElement();
  tick();
  EXPECT_EQ(gl.count("drawElements"), 1u) << "the context still serves the other surface";
  second->free();
  surface = nullptr;
}

// Owners react to a change by replacing the blocks, or the style that is calling them.
TEST(SurfaceStyle, ABlockMayReplaceItselfAndTheStyle) {
  std::string calls;
  auto style = std::make_shared<VELRenderSurfaceStyle>();
  style->setStyleChanged([&, owned = std::string(64, 's')] {
    style->setStyleChanged(nullptr);
    calls += owned.back();
  });
  style->setBorderPen(nullptr);
  style->setBorderPen(nullptr);
  EXPECT_EQ(calls, "s");
  style->setStyleChanged([&calls, owned = std::string(64, 't')] { calls += owned.back(); });
  style->setLayoutChanged([&, owned = std::string(64, 'l')] {
    style = std::make_shared<VELRenderSurfaceStyle>();
    calls += owned.back();
  });
  style->setLeftAxisAreaSize(5);
  EXPECT_EQ(calls, "slt");
}

TEST(SurfaceEnd, NoGLObjectOutlivesTheSurface) {
  RecordingHost host;
  host.gl().multisampling = true;
  auto surface = VELOpenGLRenderSurface::initWithFrame({0, 0, 10, 10}, host);
  surface->renderContext()->drawLineWithBrush(VELPen2D::solid(1, 1), 0, 0, 1, 1);
  host.displayLink()->tick(1.0);
  EXPECT_GE(host.gl().liveObjects(), 13u);
  surface.reset();
  EXPECT_EQ(host.gl().liveObjects(), 0u);
  host.displayLink()->tick(2.0);
}

TEST(SurfaceEnd, WithoutGLThereIsNoSurfaceAndTheBaseDrawsNoBackground) {
  struct : VELHost {
    std::shared_ptr<VELGLContext> none;
    std::shared_ptr<VELDisplayLink> link;
    std::shared_ptr<VELView> root;
    const std::shared_ptr<VELGLContext>& glContext() const override { return none; }
    const std::shared_ptr<VELDisplayLink>& displayLink() const override { return link; }
    double contentScale() const override { return 1.0; }
    const std::shared_ptr<VELView>& rootView() const override { return root; }
  } host;
  EXPECT_EQ(VELOpenGLRenderSurface::initWithFrame({0, 0, 10, 10}, host), nullptr);
  const auto base = std::make_shared<VELRenderSurfaceBase>();
  base->clear();
  base->invalidateElement();
  base->onRenderTimeElapsed();
  VELOpenGLRenderContext memoryOnly(64, nullptr);
  try {
    base->drawBackground(memoryOnly, VELRenderSurfaceStyle());
    FAIL();
  } catch (const VELInternalInconsistencyException& misuse) {
    EXPECT_STREQ(misuse.what(), "drawBackground:Style: must be implemented in subclass");
  }
}

}  // namespace
