// platform/gl_composer_gl_test.cpp: what a view tree looks like, pixel by pixel.
#include "velmora/platform/gl_composer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <string>

#include "velmora/platform/label_view.h"
#include "velmora/platform/offscreen/offscreen_host.h"

namespace {

constexpr double kQuarter = std::numbers::pi / 2.0;
constexpr uint32_t kRed = 0xFF0000FFu, kGreen = 0xFF00FF00u, kWhite = 0xFFFFFFFFu, kBlack = 0xFF000000u;

/// A view with a layer whose upper half is red and whose lower half is green.
class LayerView : public VELView {
 public:
  LayerView(const VELRect& frame, const std::shared_ptr<VELGLContext>& context, int32_t width, int32_t height)
      : VELView(frame), layer(context) {
    VELGL& gl = context->gl();
    const uint32_t framebuffer = gl.genFramebuffer();
    gl.bindFramebuffer(VELGL_FRAMEBUFFER, framebuffer);
    layer.allocate(width, height);
    layer.attachToFramebuffer();
    gl.enable(VELGL_SCISSOR_TEST);
    for (const bool isUpper : {false, true}) {
      gl.scissor(0, isUpper ? height / 2 : 0, width, height / 2);
      gl.clearColor(isUpper ? 1.0f : 0.0f, isUpper ? 0.0f : 1.0f, 0.0f, 1.0f);
      gl.clear(VELGL_COLOR_BUFFER_BIT);
    }
    gl.deleteFramebuffer(framebuffer);
  }
  void compose(VELComposer& composer, const VELRect& frameInRoot) override {
    composer.composeLayer(layer, frameInRoot);
  }
  VELGLLayer layer;
};

class GLComposer : public testing::Test {
 protected:
  void SetUp() override { create(2.0); }
  void TearDown() override { EXPECT_EQ(host->glContext()->gl().getError(), VELGL_NO_ERROR); }
  void create(double scale) {
    std::string failure;
    host = VELOffscreenHost::create({120.0, 60.0}, scale, &failure);
    ASSERT_TRUE(host) << failure;
    host->glContext()->makeCurrent();
  }
  std::shared_ptr<VELLabelView> addLabel(const std::string& text, VELPoint centre, double turn = 0.0) {
    auto label = std::make_shared<VELLabelView>(VELRect{centre.x, centre.y, 0.0, 0.0});
    label->setText(text);
    label->setTransform(VELAffineTransform::rotation(turn));
    label->sizeToFit();
    host->rootView()->addSubview(label);
    return label;
  }
  std::shared_ptr<LayerView> addLayer(const VELRect& frame, int32_t width, int32_t height) {
    auto view = std::make_shared<LayerView>(frame, host->glContext(), width, height);
    host->rootView()->addSubview(view);
    return view;
  }

  std::shared_ptr<VELOffscreenHost> host;
};

/// Where a mask's pixel lies after so many quarters clockwise.
std::pair<int32_t, int32_t> turned(int32_t x, int32_t y, const VELTextMask& mask, int quarters) {
  const int32_t right = mask.width - 1 - x, below = mask.height - 1 - y;
  const std::pair<int32_t, int32_t> places[] = {{x, y}, {below, x}, {right, below}, {y, right}};
  return places[quarters & 3];
}

void expectPixels(const VELBitmap& picture, uint32_t code,
                  std::initializer_list<std::pair<int32_t, int32_t>> places) {
  for (const auto& [x, y] : places) EXPECT_EQ(picture.colorCodeAt(x, y), code) << x << ", " << y;
}

/// Black text on white: every pixel is 255 minus the coverage. The tolerance is the blender's rounding.
void expectText(const VELBitmap& picture, const std::string& text, VELPoint centreInPixels, double scale,
                int quarters) {
  const VELTextMask mask = VELTextEngine::instance().rasterise({{text, {}, 0.0}}, scale);
  ASSERT_GT(mask.width, 4);
  const bool isLying = quarters & 1;
  const int32_t width = isLying ? mask.height : mask.width, height = isLying ? mask.width : mask.height;
  const auto left = static_cast<int32_t>(std::floor(centreInPixels.x - width / 2.0 + 0.5));
  const auto top = static_cast<int32_t>(std::floor(centreInPixels.y - height / 2.0 + 0.5));
  for (int32_t y = 0; y < mask.height; ++y)
    for (int32_t x = 0; x < mask.width; ++x) {
      const auto [column, row] = turned(x, y, mask, quarters);
      const uint32_t code = picture.colorCodeAt(left + column, top + row);
      const int expected = 255 - mask.at(x, y);
      ASSERT_NEAR(static_cast<int>(code & 0xFFu), expected, 1) << text << " at " << x << ", " << y;
      ASSERT_EQ(code >> 24, 0xFFu) << "text over an opaque picture leaves it opaque";
    }
}

}  // namespace

TEST_F(GLComposer, ATextKeepsItsOwnPixelsAtEveryScaleAndQuarterWhereverItIsCentred) {
  for (const double scale : {1.0, 1.5, 2.0})
    for (int quarters = -1; quarters < 3; ++quarters)
      for (const VELPoint centre : {VELPoint{60.0, 30.0}, {59.37, 30.81}}) {
        create(scale);
        host->setBackgroundColor(VELColor::fromColorCode(kWhite));
        addLabel("1,234.5", centre, quarters * kQuarter);
        SCOPED_TRACE(testing::Message() << scale << " " << quarters);
        expectText(host->picture(), "1,234.5", {centre.x * scale, centre.y * scale}, scale, quarters);
      }
}

TEST_F(GLComposer, ALayerShowsItsPixelsUprightAtItsFrameAndALabelAboveIt) {
  const auto view = addLayer({10.0, 10.0, 50.0, 40.0}, 100, 80);
  EXPECT_EQ(host->picture().colorCodeAt(60, 60), kBlack) << "nothing presented, nothing to show";
  view->layer.present();
  const auto elsewhere = VELGLContext::create();
  ASSERT_TRUE(elsewhere && elsewhere->makeCurrent());
  const auto stranger = std::make_shared<LayerView>(VELRect{70, 10, 20, 20}, elsewhere, 40, 40);
  stranger->layer.present();
  host->rootView()->addSubview(stranger);  // with a GL name that means another texture here
  addLabel("▪", {35.0, 20.0})->setTextColor(VELColor(0.0, 0.0, 1.0, 0.5));
  const VELBitmap picture = host->picture();
  EXPECT_TRUE(picture.isOpaque());
  expectPixels(picture, kRed, {{20, 20}, {119, 20}, {20, 59}});
  expectPixels(picture, kGreen, {{20, 60}, {119, 99}});
  expectPixels(picture, kBlack, {{19, 20}, {120, 20}, {20, 19}, {20, 100}, {150, 30}});
  // Alpha 0.5 is the byte 127: half of the red stays below the full coverage of the square.
  bool isMixed = false;
  for (int32_t x = 60; x < 80; ++x) isMixed |= picture.colorCodeAt(x, 42) == 0xFF7F0080u;
  EXPECT_TRUE(isMixed);
}

TEST_F(GLComposer, WhateverStateGLWasLeftInThePictureIsTheSame) {
  addLayer({10, 10, 50, 40}, 50, 40)->layer.present();
  addLabel("0.25", {30.0, 30.0});
  const VELBitmap expected = host->picture();
  VELGL& gl = host->glContext()->gl();
  gl.enable(VELGL_SCISSOR_TEST);
  gl.scissor(0, 0, 1, 1);
  gl.enable(VELGL_CULL_FACE);
  gl.enable(VELGL_DEPTH_TEST);
  gl.disable(VELGL_BLEND);
  gl.blendFuncSeparate(VELGL_ZERO, VELGL_ZERO, VELGL_ZERO, VELGL_ZERO);
  gl.viewport(5, 5, 7, 7);
  gl.activeTexture(VELGL_TEXTURE1);
  gl.bindBuffer(VELGL_ARRAY_BUFFER, 0);
  gl.useProgram(0);
  EXPECT_EQ(host->picture(), expected);
}

TEST_F(GLComposer, FramesTurnsAndColoursThatShowNothingDoNoHarm) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInf = std::numeric_limits<double>::infinity();
  const VELBitmap empty = host->picture();
  for (const VELRect& frame :
       {VELRect{kNaN, 0, 9, 9}, {kInf, 0, 9, 9}, {0, 0, -kInf, 9}, {1e300, 1e300, 9, 9}}) {
    addLabel("x", {})->setFrame(frame);
    addLayer(frame, 4, 4)->layer.present();
  }
  for (const VELAffineTransform& turn :
       {VELAffineTransform::zero(), {kNaN, 0, 0, 1, 0, 0}, {1, 0, 0, 1, kInf, 0}, {1e300, 0, 0, 1e300, 0, 0}})
    addLabel("x", {30.0, 30.0})->setTransform(turn);
  addLabel("x", {30.0, 30.0})->setTextColor(VELColor(1.0, 1.0, 1.0, 0.0));
  addLabel("", {30.0, 30.0});
  EXPECT_EQ(host->picture(), empty);
  EXPECT_EQ(host->glContext()->gl().getError(), VELGL_NO_ERROR);
}
