// Brushes, pens, the atlas of gradients, the surface style.
#include <gtest/gtest.h>

#include "tests/rendering/recorded_frame.h"
#include "velmora/rendering/colored_texture_brush.h"
#include "velmora/rendering/linear_gradient_brush.h"
#include "velmora/rendering/paletted_texture_brush.h"
#include "velmora/rendering/render_surface_style.h"
#include "velmora/rendering/texture_brush.h"

namespace {

class Brush : public testing::Test {
 protected:
  RegisteredGL gl;
  const std::vector<uint8_t> pixel{0, 0, 0, 0};
  const std::shared_ptr<VELTextureOpenGL> a = std::make_shared<VELTextureOpenGL>(pixel, 1, 1),
                                          b = std::make_shared<VELTextureOpenGL>(pixel, 1, 1);
};

// Which shape may follow which without a change of shader state.
TEST_F(Brush, SharesItsShaderStateAsTheTableSays) {
  const VELBrushPtr brushes[] = {VELBrush2D::solid(1),
                                 VELPen2D::solid(2, 1),
                                 VELBrush2D::linearGradient(1, 2, VELGradientDirection_Vertical),
                                 VELPen2D::linearGradient(3, 4, VELGradientDirection_Horizontal, 1),
                                 std::make_shared<VELBrushTexture>(a),
                                 std::make_shared<VELBrushTexture>(b),
                                 std::make_shared<VELBrushTexture>(nullptr),
                                 std::make_shared<VELBrushColoredTexture>(a, 5u),
                                 std::make_shared<VELBrushColoredTexture>(b, 5u),
                                 std::make_shared<VELBrushPalettedTexture>(a, b),
                                 std::make_shared<VELBrushPalettedTexture>(a, a)};
  const char* const expected[] = {"11000000000", "11000000000", "11110000000", "11110000000",
                                  "00001000000", "00000100000", "00000010000", "00000001000",
                                  "00000000100", "00000000010", "00000000001"};
  for (size_t row = 0; row < std::size(brushes); ++row) {
    std::string shares;
    for (const VELBrushPtr& next : brushes) shares += brushes[row]->equalsToBrush(*next->clone()) ? '1' : '0';
    EXPECT_EQ(shares, expected[row]) << row;
  }
  EXPECT_FALSE(VELBrushTexture(nullptr).equalsToBrush(VELBrushTexture(nullptr)))
      << "no texture is not one texture";
}

class Atlas : public testing::Test {
 protected:
  /// The texels that an application sends.
  std::vector<uint32_t> uploaded() {
    gl.gl().calls.clear();
    atlas.o_applyTextureAtlas();
    for (const RecordedCall& call : gl.gl().calls)
      if (!call.bytes.empty()) return elementsOf<uint32_t>(call.bytes);
    return {};
  }

  RegisteredGL gl;
  VELBrushAtlasController atlas;
  VELPenPtr first = columnGradient(0xFF000001u), second = columnGradient(0xFF000002u);
};

TEST_F(Atlas, GivesRowsFromOneOnceAFrameAndAgainAfterAClearAndSendsWhatChanged) {
  for (const auto& brush : {first, first, second, first}) atlas.o_addBrush(brush);
  atlas.o_addBrush(VELBrush2D::solid(7));
  EXPECT_EQ(first->gradientIndex(), 1);
  EXPECT_EQ(second->gradientIndex(), 2);
  EXPECT_EQ(uploaded().size(), 65536u);

  atlas.o_clearAtlas();
  for (const auto& brush : {first, second}) atlas.o_addBrush(brush);
  EXPECT_TRUE(uploaded().empty()) << "the same rows again";
  atlas.o_clearAtlas();
  atlas.o_addBrush(second);
  EXPECT_EQ(second->gradientIndex(), 1);
  EXPECT_EQ(uploaded(), std::vector<uint32_t>(256, 0xFF000002u));
  EXPECT_EQ(gl.gl().count("texSubImage2D(2D,0,1,256,1,RGBA)"), 1u);
}

TEST_F(Atlas, IsMadeAgainWhenGLLostIt) {
  const auto isMade = [&] {
    EXPECT_EQ(uploaded().size(), 65536u);
    EXPECT_EQ(gl.gl().count("genTexture"), 1u);
  };
  atlas.o_addBrush(first);
  isMade();
  gl.gl().deleteTexture(1);
  atlas.o_clearAtlas();
  isMade();
  gl.context->setLost();
  VELOpenGLContextController::o_enableContext(gl.context);
  isMade();
}

TEST_F(Atlas, LeavesOutWhatIsNoRowOfIt) {
  for (const size_t length : {0u, 255u, 257u}) {
    const auto wrong = std::make_shared<VELBrushLinearGradient>(std::vector<uint32_t>(length),
                                                                VELGradientDirection_Vertical);
    atlas.o_addBrush(wrong);
    EXPECT_EQ(wrong->gradientIndex(), 0) << length;
  }
  atlas.o_addBrush(nullptr);
}

// Brushes are shared: a pen may stroke in two charts at a time, each with an atlas of its own.
TEST_F(Atlas, ABrushOfTwoContextsHasInEachItsRowThere) {
  VELOpenGLRenderContext one(64, gl.context), two(64, gl.context);
  const VELPenPtr pen = VELPen2D::linearGradient(1, 2, VELGradientDirection_Vertical, 1);
  two.drawRectWithBrush(first, 0, 0, 1, 1);
  for (auto* const context : {&one, &two, &one, &two}) context->drawLineWithBrush(pen, 0, 0, 1, 1);
  for (const auto& [context, row] : {std::pair{&one, 1}, {&two, 2}}) {
    const auto strips = replay(*context, gl.gl());
    ASSERT_EQ(strips.size(), 1u);
    for (size_t i = strips[0].vertices.size() - 10; i < strips[0].vertices.size(); ++i)
      EXPECT_EQ(strips[0].vertices[i].textureY, row * 256 + 1) << i;
  }
}

// Owners react to a change by replacing the style that is calling them.
TEST(SurfaceStyle, ABlockMayReplaceTheStyle) {
  std::string calls;
  auto style = std::make_shared<VELRenderSurfaceStyle>();
  style->setStyleChanged([&calls, owned = std::string(64, 's')] { calls += owned.back(); });
  style->setLayoutChanged([&, owned = std::string(64, 'l')] {
    style = std::make_shared<VELRenderSurfaceStyle>();
    calls += owned.back();
  });
  style->setLeftAxisAreaSize(5);
  EXPECT_EQ(calls, "ls");
}

}  // namespace
