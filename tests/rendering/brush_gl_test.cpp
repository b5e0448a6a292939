// What the driver makes of every kind of brush.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/rendering/drawn_surface.h"
#include "velmora/rendering/colored_texture_brush.h"
#include "velmora/rendering/linear_gradient_brush.h"
#include "velmora/rendering/paletted_texture_brush.h"
#include "velmora/rendering/texture_brush.h"

namespace {

constexpr auto horizontal = VELGradientDirection_Horizontal, vertical = VELGradientDirection_Vertical;

class BrushPixels : public DrawnSurface {
 protected:
  void SetUp() override { create(256, 260, 1); }
  void expectNear(int32_t x, int32_t y, uint32_t code) const {
    const uint32_t actual = at(x, y);
    for (uint32_t shift = 0; shift < 32; shift += 8)
      ASSERT_LE(std::abs(static_cast<int>(actual >> shift & 255) - static_cast<int>(code >> shift & 255)), 1)
          << std::hex << actual << " is not " << code << " at " << std::dec << x << ',' << y;
  }
};

// Solid colours between them sample the same texture; no row may show in another one.
TEST_F(BrushPixels, TwoHundredFiftyFiveGradientsAreToldApartAndTheNextIsNotDrawnWithARowOfItsOwn) {
  std::vector<VELBrushPtr> gradients;
  for (uint32_t i = 0; i < 255; ++i) {
    gradients.push_back(
        VELBrush2D::linearGradient(0xFF000000u | i, 0xFF00FF00u | (255 - i) << 16, horizontal));
    gradients.back()->setDrawingAreaX(0, 0, 256, 260);
    context().drawRectWithBrush(gradients.back(), 0, static_cast<float>(i), 250, static_cast<float>(i + 1));
    context().drawRectWithBrush(VELBrush2D::solid(0xFF804020u), 250, static_cast<float>(i), 256,
                                static_cast<float>(i + 1));
  }
  context().drawRectWithBrush(VELBrush2D::linearGradient(0xFFFFFFFFu, 0xFFFFFFFFu, horizontal), 0, 256, 256,
                              258);
  frame();
  for (int32_t y = 0; y < 255; ++y) {
    const auto ramp = gradients[static_cast<size_t>(y)]->getGradientData();
    for (int32_t x = 0; x < 250; ++x) expectNear(x, y, ramp[static_cast<size_t>(x)]);
    expectNear(253, y, 0xFF804020u);
  }
  expectNear(100, 257, 0xFF000000u);
}

TEST_F(BrushPixels, AVerticalGradientBlendsItsAlphaAndAPenIsColouredAlongItsLine) {
  const VELBrushPtr down = VELBrush2D::linearGradient(0x00FFFFFFu, 0xFFFFFFFFu, vertical);
  down->setDrawingAreaX(0, 0, 1, 256);
  const VELPenPtr pen = VELPen2D::linearGradient(0xFF0000FFu, 0xFFFF0000u, horizontal, 3);
  pen->setDrawingAreaX(100, 0, 100, 1);
  context().drawRectWithBrush(down, 0, 0, 40, 256);
  context().drawLineWithBrush(pen, 100, 20, 200, 20);
  frame();
  for (uint32_t y = 0; y < 256; ++y) expectNear(20, static_cast<int32_t>(y), 0xFF000000u | y * 0x010101u);
  for (const auto& [x, entry] : {std::pair{100, 1u}, {150, 129u}, {199, 254u}})
    expectNear(x, 20, pen->getGradientData()[entry]);
}

TEST_F(BrushPixels, SpritesShowTheirTextureByEachOfTheThreePrograms) {
  const uint32_t texels[] = {0xFF0000FF, 0xFF00FF00, 0xFFFF0000, 0x00FFFFFF};
  const auto* const bytes = reinterpret_cast<const uint8_t*>(texels);
  const auto texture = std::make_shared<VELTextureOpenGL>(std::span(bytes, sizeof(texels)), 2, 2);
  texture->setFilter(VELTextureFilter_Nearest);
  const float values[] = {0.0f, 0.25f, 0.5f, 1.0f};
  const auto map = VELTextureOpenGL::withValues(values, 2, 2);
  map->setFilter(VELTextureFilter_Nearest);
  const double coords[] = {0, 1};
  const uint32_t codes[] = {0xFFFFFFFF, 0xFF000000};
  const auto palette = std::make_shared<VELTextureOpenGL>(coords, codes, 256);
  const std::shared_ptr<VELTextureOpenGL> none;
  const VELBrushPtr brushes[] = {std::make_shared<VELBrushTexture>(texture),
                                 std::make_shared<VELBrushColoredTexture>(texture, 0xFF204060u),
                                 std::make_shared<VELBrushColoredTexture>(texture, 0x80FFFFFFu),
                                 std::make_shared<VELBrushPalettedTexture>(map, palette),
                                 std::make_shared<VELBrushTexture>(none),
                                 std::make_shared<VELBrushPalettedTexture>(none, palette)};
  // Of each sprite the quarters top left, top right, bottom left and bottom right, on a black ground.
  constexpr uint32_t black = 0xFF000000, color = 0xFF204060, grey = 0xFF808080;
  constexpr uint32_t expected[][4] = {{0xFF0000FF, 0xFF00FF00, 0xFFFF0000, black},
                                      {color, color, color, black},
                                      {grey, grey, grey, black},
                                      {0xFFFFFFFF, 0xFFBFBFBF, grey, black},
                                      {black, black, black, black},
                                      {black, black, black, black}};
  for (float x = 0; const VELBrushPtr& brush : brushes) {
    context().drawSpriteWithBrush(brush, x, 0, x + 20, 20);
    x += 30;
  }
  const auto check = [&] {
    for (int32_t i = 0; i < 6; ++i)
      for (int32_t quarter = 0; quarter < 4; ++quarter)
        expectNear(i * 30 + 5 + quarter % 2 * 10, 5 + quarter / 2 * 10, expected[i][quarter]);
  };
  frame();
  check();
  // The recorded frame once more after GL lost everything.
  host->glContext()->setLost();
  frame();
  check();
}

}  // namespace
