// Axes on every side: several on one, top and bottom, vertical charts, flips.
#include "examples/gallery/parts.h"
#include "examples/gallery/pictures.h"

void drawFourYAxes(Sheet& sheet) {
  VELChartSurface& surface = sheet.addChart("Two Y axes on each side");
  addAxis<VELNumericAxis>(surface, true, {VELAxisAlignment_Bottom, "sample"});
  const struct {
    VELAxisAlignment side;
    const char* title;
    double scale;
  } axes[] = {{VELAxisAlignment_Left, "pressure, hPa", 1.0},
              {VELAxisAlignment_Left, "flow, l/min", 0.02},
              {VELAxisAlignment_Right, "temperature, mK", 1e3},
              {VELAxisAlignment_Right, "power, W", 0.3}};
  for (size_t i = 0; i < std::size(axes); ++i) {
    const std::string id = "y" + std::to_string(i);
    const auto axis = addAxis<VELNumericAxis>(surface, false, {axes[i].side, axes[i].title, id});
    tint(*axis, i);
    if (i == 0) axis->style().setDrawMajorGridLines(true);
    auto data = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
    RandomWalk walk(static_cast<uint32_t>(i + 7), 40.0 + 15.0 * static_cast<double>(i));
    for (int k = 0; k < 600; ++k) data->appendX(k, walk.next() * axes[i].scale);
    addLine(surface, data, i, VELAxisBase::defaultAxisId, id);
  }
}

void drawTopAndBottomXAxes(Sheet& sheet) {
  VELChartSurface& surface = sheet.addChart("An X axis at the top and one at the bottom");
  const auto bottom = addAxis<VELNumericAxis>(surface, true, {VELAxisAlignment_Bottom, "time, s", "seconds"});
  const auto top = addAxis<VELNumericAxis>(surface, true, {VELAxisAlignment_Top, "depth, m", "metres"});
  tint(*bottom, 0);
  bottom->style().setDrawMajorGridLines(true);
  tint(*top, 1);
  addAxis<VELNumericAxis>(surface, false, {VELAxisAlignment_Left, "signal"});
  addLine(surface, makeWalk(0.0, 0.05, 400, 3), 0, "seconds");
  addLine(surface, makeWalk(1000.0, 3.0, 400, 4), 1, "metres");
}

void drawVerticalChart(Sheet& sheet) {
  VELChartSurface& surface = sheet.addChart("A vertical chart: X on the left");
  addAxis<VELNumericAxis>(surface, true, {VELAxisAlignment_Left, "depth, m"});
  const auto first = addAxis<VELNumericAxis>(surface, false, {VELAxisAlignment_Bottom, "gamma, API"});
  const auto second =
      addAxis<VELNumericAxis>(surface, false, {VELAxisAlignment_Top, "porosity, %", "second"});
  tint(*first, 0);
  first->style().setDrawMajorGridLines(true);
  tint(*second, 1);
  // Y runs from right to left there until it is flipped.
  first->setFlipCoordinates(true);
  second->setFlipCoordinates(true);
  addLine(surface, makeWalk(1200.0, 0.5, 500, 5), 0);
  addLine(surface, makeWalk(1200.0, 0.5, 500, 6), 1, VELAxisBase::defaultAxisId, "second");
}

void drawFlips(Sheet& sheet) {
  for (int cell = 0; cell < 8; ++cell) {
    const bool isVertical = cell >= 4, flipX = cell % 2 == 1, flipY = cell % 4 >= 2;
    static constexpr const char* kFlips[] = {"", ", X flipped", ", Y flipped", ", both flipped"};
    const std::string title = std::string(isVertical ? "Vertical" : "Horizontal") + kFlips[cell % 4];
    VELChartSurface& surface = sheet.addChart(title, 4, 2, cell);
    const auto x = addAxis<VELNumericAxis>(
        surface, true, {isVertical ? VELAxisAlignment_Left : VELAxisAlignment_Bottom, "x"});
    const auto y = addAxis<VELNumericAxis>(
        surface, false, {isVertical ? VELAxisAlignment_Bottom : VELAxisAlignment_Left, "y"});
    x->setFlipCoordinates(flipX);
    y->setFlipCoordinates(flipY);
    // Rises to 4, then falls: every turn and mirror of it looks different.
    auto data = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
    const double steps[] = {0.0, 1.0, 4.0, 3.0, 3.5};
    for (int i = 0; i < 5; ++i) data->appendX(i, steps[i]);
    addLine(surface, data, static_cast<size_t>(cell));
  }
}
