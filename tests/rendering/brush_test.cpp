// Brushes, pens, the atlas of gradients, the surface style.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/rendering/recorded_frame.h"
#include "tests/rendering/test_gradient.h"
#include "velmora/rendering/render_surface_style.h"
#include "velmora/rendering/solid_brush.h"
#include "velmora/rendering/solid_pen.h"

namespace {

TEST(SolidBrush, HasTheColourThatItWasGiven) {
  EXPECT_EQ(VELBrushSolid().colorCode(), 0xFFFFFFFFu);
  EXPECT_EQ(VELBrushSolid(VELColor(1.0, 0.5, 0.0)).colorCode(), 0xFF007FFFu);
  EXPECT_EQ(VELPenSolid().colorCode(), 0xFFFFFFFFu);
  EXPECT_EQ(VELPenSolid().strokeThickness(), 1.0f);
  EXPECT_FALSE(VELBrushSolid(0xFF000000u).hasAlpha());
  EXPECT_TRUE(VELBrushSolid(0xFEFFFFFFu).hasAlpha());
  EXPECT_EQ(VELBrush2D::solid(0xFF50A0F0u)->color(), VELColor::fromBytes(0xF0, 0xA0, 0x50));
  const VELPenPtr copy = VELClonePen(VELPen2D::solid(5, 2.5f));
  EXPECT_EQ(copy->colorCode(), 5u);
  EXPECT_EQ(copy->strokeThickness(), 2.5f);
  EXPECT_EQ(VELClonePen(nullptr), nullptr);
}

class Atlas : public testing::Test {
 protected:
  /// What the texture holds after an application, or nothing when none was uploaded.
  std::vector<uint32_t> uploaded() {
    gl.gl().calls.clear();
    atlas.o_applyTextureAtlas();
    for (const RecordedCall& call : gl.gl().calls)
      if (!call.bytes.empty()) return elementsOf<uint32_t>(call.bytes);
    return {};
  }

  RegisteredGL gl;
  VELBrushAtlasController atlas;
  std::shared_ptr<TestGradient> first = std::make_shared<TestGradient>(0xFF000001u);
  std::shared_ptr<TestGradient> second = std::make_shared<TestGradient>(0xFF000002u);
};

TEST_F(Atlas, GivesRowsFromOneOnceAFrameAndAgainAfterAClear) {
  for (const auto& brush : {first, first, second, first}) atlas.o_addBrush(brush);
  atlas.o_addBrush(VELBrush2D::solid(7));
  EXPECT_EQ(first->gradientIndex(), 1);
  EXPECT_EQ(second->gradientIndex(), 2);
  const auto texels = uploaded();
  ASSERT_EQ(texels.size(), 65536u);
  EXPECT_EQ(texels[0], 0u) << "what solid colours sample";
  for (const size_t ofFirst : {256u, 511u}) EXPECT_EQ(texels[ofFirst], 0xFF000001u);
  EXPECT_EQ(texels[512], 0xFF000002u);
  EXPECT_EQ(texels[768], 0u);
  EXPECT_TRUE(uploaded().empty()) << "nothing changed";

  atlas.o_clearAtlas();
  atlas.o_addBrush(second);
  EXPECT_EQ(second->gradientIndex(), 1);
  EXPECT_EQ(uploaded().at(256), 0xFF000002u);
  EXPECT_EQ(gl.gl().count("texSubImage2D(2D,0,0,256,256,RGBA)"), 1u);
}

TEST_F(Atlas, IsSampledWithTheNearestTexelAndMadeAgainWhenGLLostIt) {
  for (const auto& brush : {first, second}) {
    atlas.o_clearAtlas();
    atlas.o_addBrush(brush);
    EXPECT_EQ(uploaded().size(), 65536u);
    EXPECT_EQ(gl.gl().count("genTexture"), 1u);
    EXPECT_EQ(gl.gl().texts("texParameteri"),
              "texParameteri(2D,MIN,NEAREST) texParameteri(2D,MAG,NEAREST) "
              "texParameteri(2D,WRAP_S,CLAMP) texParameteri(2D,WRAP_T,CLAMP)");
    gl.gl().deleteTexture(1);
  }
}

TEST_F(Atlas, LeavesOutWhatItCannotHold) {
  const auto wrong = std::make_shared<TestGradient>(3, 255);
  atlas.o_addBrush(nullptr);
  atlas.o_addBrush(wrong);
  EXPECT_EQ(wrong->gradientIndex(), 0);
  std::vector<std::shared_ptr<TestGradient>> many;
  for (int i = 0; i < 256; ++i) {
    many.push_back(std::make_shared<TestGradient>(static_cast<uint32_t>(i)));
    atlas.o_addBrush(many.back());
  }
  EXPECT_EQ(many[254]->gradientIndex(), 255);
  EXPECT_EQ(many[255]->gradientIndex(), 0) << "no row is left";
}

TEST(SurfaceStyle, CallsBackFromEverySetterAndACloneSharesNeitherBrushesNorBlocks) {
  VELRenderSurfaceStyle style;
  EXPECT_TRUE(std::isnan(style.leftAxisAreaSize()) && std::isnan(style.bottomAxisAreaSize()));
  EXPECT_EQ(style.backgroundBrush(), nullptr);
  std::string calls;
  style.setStyleChanged([&] { calls += 's'; });
  style.setLayoutChanged([&] { calls += 'l'; });
  style.setBackgroundBrush(VELBrush2D::solid(1));
  style.setBorderPen(VELPen2D::solid(2, 3));
  style.setSeriesBackgroundBrush(nullptr);
  style.setTopAxisAreaSize(10);
  EXPECT_EQ(calls, "sssls");
  const auto copy = style.clone();
  copy->setRightAxisAreaSize(5);
  EXPECT_EQ(copy->topAxisAreaSize(), 10.0f);
  EXPECT_EQ(copy->borderPen()->strokeThickness(), 3.0f);
  EXPECT_NE(copy->backgroundBrush(), style.backgroundBrush());
  EXPECT_EQ(copy->backgroundBrush()->colorCode(), 1u);
  style.setSupressCallbacks(true);
  style.setRightAxisAreaSize(20);
  style.setBorderPen(nullptr);
  EXPECT_EQ(calls, "sssls");
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

}  // namespace
