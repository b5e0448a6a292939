// Every shape of a render context in every kind of brush, without a chart around them.
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

#include "examples/gallery/pictures.h"

namespace {

constexpr double kCellWidth = 132.0, kCellHeight = 112.0, kLeft = 96.0, kTop = 44.0;
constexpr float kMargin = 14.0f;

/// What a cell draws with: a fill, a second one, and a stroke of the same look.
struct Tools {
  VELBrushPtr brush;
  VELBrushPtr second;
  VELPenPtr pen;
};

/// The inside of a cell, in points relative to the cell.
constexpr float kX1 = kMargin, kY1 = kMargin;
constexpr float kX2 = static_cast<float>(kCellWidth) - kMargin,
                kY2 = static_cast<float>(kCellHeight) - kMargin;
constexpr float kMiddleX = (kX1 + kX2) / 2, kMiddleY = (kY1 + kY2) / 2;

/// Height of a swinging line at a place from 0 to 1.
float wave(float place, float turns) {
  return kMiddleY - (kY2 - kY1) / 2 * 0.9f * std::sin(place * turns * 2 * std::numbers::pi_v<float>);
}
float across(float place) { return kX1 + (kX2 - kX1) * place; }

void drawLines(VELRenderContext2D& context, const Tools& tools) {
  for (int i = 0; i < 5; ++i) {
    const float y = kY1 + (kY2 - kY1) * static_cast<float>(i) / 4;
    context.drawLineWithBrush(tools.pen, kX1, y, kX2, kY1 + (kY2 - kY1) * static_cast<float>(4 - i) / 4);
  }
}

void drawPolyline(VELRenderContext2D& context, const Tools& tools) {
  context.beginPolylineWithBrush(tools.pen, kX1, wave(0.0f, 2.0f));
  for (int i = 1; i <= 80; ++i) {
    const float place = static_cast<float>(i) / 80;
    context.extendPolylineWithBrush(tools.pen, across(place), wave(place, 2.0f));
  }
}

void drawRectangle(VELRenderContext2D& context, const Tools& tools) {
  context.drawRectWithBrush(tools.brush, kX1, kY1, kX2, kY2);
}

void drawTriangle(VELRenderContext2D& context, const Tools& tools) {
  context.drawTriangleWithBrush(tools.brush, kX1, kY2, kMiddleX, kY1, kX2, kY2);
}

void drawEllipse(VELRenderContext2D& context, const Tools& tools) {
  const auto xs = VELArrayController::initWithType(VELDataType_Float);
  const auto ys = VELArrayController::initWithType(VELDataType_Float);
  context.renderEllipseToBufferX(*xs, *ys, (kY2 - kY1) / 2, (kX2 - kX1) / 2, 72);
  context.drawEllipseWithBrush(tools.brush, kMiddleX, kMiddleY, *xs, *ys);
}

void drawArea(VELRenderContext2D& context, const Tools& tools) {
  context.beginZeroToLineAreaWithBrush(tools.brush, kX1, wave(0.0f, 1.5f), kMiddleY, false);
  for (int i = 1; i <= 60; ++i) {
    const float place = static_cast<float>(i) / 60;
    context.extendZeroToLineAreaWithBrush(tools.brush, across(place), wave(place, 1.5f), kMiddleY, false);
  }
}

void drawBand(VELRenderContext2D& context, const Tools& tools) {
  context.beginBandAreaWithBrush1(tools.brush, tools.second, kX1, wave(0.0f, 1.0f), wave(0.5f, 1.0f), false);
  for (int i = 1; i <= 60; ++i) {
    const float place = static_cast<float>(i) / 60;
    context.extendBandAreaWithBrush1(tools.brush, tools.second, across(place), wave(place, 1.0f),
                                     wave(place + 0.5f, 1.0f), false);
  }
}

void drawSprite(VELRenderContext2D& context, const Tools& tools) {
  context.drawSpriteWithBrush(tools.brush, kX1, kY1, kX2, kY2);
}

/// A picture of rings: colours for the texture brush, values in every channel for mask and palette.
std::shared_ptr<VELTextureOpenGL> makeRings(bool inColor) {
  constexpr int32_t side = 64;
  std::vector<float> texels;
  for (int32_t y = 0; y < side; ++y)
    for (int32_t x = 0; x < side; ++x) {
      const double dx = (x + 0.5) / side - 0.5, dy = (y + 0.5) / side - 0.5;
      const auto value = static_cast<float>(0.5 + 0.5 * std::cos(std::hypot(dx, dy) * 26.0));
      if (inColor)
        texels.insert(texels.end(), {0.1f + 0.2f * value, 0.3f + 0.4f * value, 0.75f, 0.25f + 0.75f * value});
      else
        texels.push_back(value);
    }
  auto texture = inColor ? std::make_shared<VELTextureOpenGL>(std::span<const float>(texels), side, side)
                         : VELTextureOpenGL::withValues(texels, side, side);
  texture->setFilter(VELTextureFilter_Linear);
  return texture;
}

std::shared_ptr<VELTextureOpenGL> makePalette() {
  const std::array<double, 4> places = {0.0, 0.4, 0.75, 1.0};
  const std::array<uint32_t, 4> colors = {VELColorCodeFromRGB(0x1D1147), VELColorCodeFromRGB(0x8C2981),
                                          VELColorCodeFromRGB(0xF1605D), VELColorCodeFromRGB(0xFCFDBF)};
  return std::make_shared<VELTextureOpenGL>(places, colors);
}

VELRect cell(int column, int row) {
  return {kLeft + kCellWidth * column, kTop + kCellHeight * row, kCellWidth, kCellHeight};
}

struct Row {
  const char* name;
  Tools tools;
};

std::vector<Row> makeRows() {
  const VELVisualStyle& look = VELVisualStyle::standard();
  const uint32_t cool = look.seriesColor(0), warm = look.seriesColor(3), green = look.seriesColor(2);
  const uint32_t clear = (cool & 0x00FFFFFFu) | 0x50000000u, clearWarm = (warm & 0x00FFFFFFu) | 0x50000000u;
  std::vector<Row> rows = {
      {"solid", {VELBrush2D::solid(cool), VELBrush2D::solid(warm), VELPen2D::solid(cool, 2.0f)}},
      {"translucent",
       {VELBrush2D::solid(clear), VELBrush2D::solid(clearWarm), VELPen2D::solid(clear, 4.0f)}}};
  for (const auto direction : {VELGradientDirection_Horizontal, VELGradientDirection_Vertical})
    rows.push_back({direction == VELGradientDirection_Horizontal ? "gradient across" : "gradient down",
                    {std::make_shared<VELBrushLinearGradient>(cool, warm, direction),
                     std::make_shared<VELBrushLinearGradient>(green, warm, direction),
                     std::make_shared<VELPenLinearGradient>(cool, warm, direction, 2.0f)}});
  for (const Row& row : rows) {
    // Places of a gradient are relative to the drawing area, here a cell.
    row.tools.brush->setDrawingAreaX(kX1, kY1, kX2 - kX1, kY2 - kY1);
    row.tools.second->setDrawingAreaX(kX1, kY1, kX2 - kX1, kY2 - kY1);
    row.tools.pen->setDrawingAreaX(kX1, kY1, kX2 - kX1, kY2 - kY1);
  }
  return rows;
}

}  // namespace

void drawOwnShapes(Sheet& sheet) {
  using Draw = void (*)(VELRenderContext2D&, const Tools&);
  const struct {
    const char* name;
    Draw draw;
  } shapes[] = {{"lines", drawLines},       {"polyline", drawPolyline}, {"rectangle", drawRectangle},
                {"triangle", drawTriangle}, {"ellipse", drawEllipse},   {"area to a base", drawArea},
                {"band", drawBand}};
  VELRenderContext2D& context = sheet.addCanvas();
  const std::vector<Row> rows = makeRows();
  for (int column = 0; column < static_cast<int>(std::size(shapes)); ++column) {
    const auto& shape = shapes[column];
    sheet.addLabel(shape.name, {cell(column, 0).x + kCellWidth / 2, kTop / 2 + 4.0});
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
      context.setDrawingArea(cell(column, row));
      shape.draw(context, rows[static_cast<size_t>(row)].tools);
    }
  }
  for (int row = 0; row < static_cast<int>(rows.size()); ++row)
    sheet.addLabel(rows[static_cast<size_t>(row)].name, {kLeft / 2 + 4.0, cell(0, row).y + kCellHeight / 2});

  const auto values = makeRings(false);
  const auto mask =
      std::make_shared<VELBrushColoredTexture>(values, VELVisualStyle::standard().seriesColor(3));
  const struct {
    const char* name;
    VELBrushPtr brush;
  } sprites[] = {{"texture", std::make_shared<VELBrushTexture>(makeRings(true))},
                 {"coloured texture", mask},
                 {"paletted texture", std::make_shared<VELBrushPalettedTexture>(values, makePalette())}};
  const int row = static_cast<int>(rows.size());
  sheet.addLabel("sprites", {kLeft / 2 + 4.0, cell(0, row).y + kCellHeight / 2});
  for (int i = 0; i < static_cast<int>(std::size(sprites)); ++i) {
    context.setDrawingArea(cell(2 * i, row));
    drawSprite(context, {sprites[i].brush, nullptr, nullptr});
    sheet.addLabel(sprites[i].name, {cell(2 * i + 1, row).x + 4.0, cell(0, row).y + kCellHeight / 2}, true);
  }
}
