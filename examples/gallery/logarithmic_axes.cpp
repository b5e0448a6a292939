// Axes on which equal steps are equal factors.
#include <cmath>
#include <numbers>

#include "examples/gallery/parts.h"
#include "examples/gallery/pictures.h"

namespace {

// Growth and decay over six decades: straight lines on a logarithmic axis.
std::shared_ptr<VELXyDataSeries> makeGrowth(double factor, double sign) {
  auto data = std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  for (int i = 0; i <= 300; ++i) {
    const double x = i / 30.0;
    data->appendX(x, sign * factor * std::exp(1.4 * x) * (1.0 + 0.3 * std::sin(4.0 * x)));
  }
  return data;
}

}  // namespace

void drawLogarithmicBases(Sheet& sheet) {
  const struct {
    const char* title;
    double base;
  } bases[] = {{"Base 10", 10.0}, {"Base 2", 2.0}, {"Base e", std::numbers::e}};
  for (int cell = 0; cell < 3; ++cell) {
    VELChartSurface& surface = sheet.addChart(bases[cell].title, 3, 1, cell);
    addAxis<VELNumericAxis>(surface, true, {VELAxisAlignment_Bottom, "time, h"});
    const auto y = addAxis<VELLogarithmicNumericAxis>(surface, false, {VELAxisAlignment_Left, "cells"});
    y->setLogarithmicBase(bases[cell].base);
    addLine(surface, makeGrowth(0.5, 1.0), 0);
    addLine(surface, makeGrowth(0.02, 1.0), 1);
  }
}

void drawNegativeLogarithmicRange(Sheet& sheet) {
  VELChartSurface& surface = sheet.addChart("A logarithmic axis below zero");
  addAxis<VELNumericAxis>(surface, true, {VELAxisAlignment_Bottom, "time, h"});
  const auto y = addAxis<VELLogarithmicNumericAxis>(surface, false, {VELAxisAlignment_Left, "charge, C"});
  // The data says nothing of a sign that a logarithm could take: the application does.
  y->setAutoRange(VELAutoRange_Never);
  y->setVisibleRange(std::make_shared<VELDoubleRange>(-1e6, -0.1));
  addLine(surface, makeGrowth(0.5, -1.0), 0);
}
