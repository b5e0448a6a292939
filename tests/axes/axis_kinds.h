// One axis of each kind, for tables that hold them side by side.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "fake_chart.h"
#include "velmora/axes/category_date_time_axis.h"
#include "velmora/axes/category_numeric_axis.h"
#include "velmora/axes/date_time_axis.h"
#include "velmora/axes/logarithmic_numeric_axis.h"

template <class Axis>
std::shared_ptr<VELAxisBase> makeAxis() {
  return std::make_shared<Axis>();
}
using AxisMaker = std::shared_ptr<VELAxisBase> (*)();

constexpr AxisMaker kNumeric = makeAxis<VELNumericAxis>;
constexpr AxisMaker kLogarithmic = makeAxis<VELLogarithmicNumericAxis>;
constexpr AxisMaker kDateTime = makeAxis<VELDateTimeAxis>;
constexpr AxisMaker kCategory = makeAxis<VELCategoryNumericAxis>;
constexpr AxisMaker kCategoryDates = makeAxis<VELCategoryDateTimeAxis>;

/// A chart with one axis, 401 points long and 40 deep.
struct OneAxisChart : FakeChart {
  std::shared_ptr<VELAxisBase> axis;

  explicit OneAxisChart(AxisMaker make, bool isXAxis = true, bool isHorizontal = true) : axis(make()) {
    (isXAxis ? surface->xs : surface->ys).clear();
    (isHorizontal ? horizontal : vertical)->clear();
    axis->setIsXAxis(isXAxis);
    axis->setAxisAlignment(isHorizontal ? VELAxisAlignment_Bottom : VELAxisAlignment_Left);
    axis->setParentSurface(surface);
    (isXAxis ? surface->xs : surface->ys).addItem(axis);
    surface->bounds = {0, 0, 481, 481};
    surface->frame = {40, 40, 401, 401};
    vertical->setFrame({0, 40, 40, 401});
    horizontal->setFrame({40, 441, 401, 40});
    (isHorizontal ? horizontal : vertical)->addItem(axis);
  }
  FakeSeries& add(const VELRangePtr& x, const VELRangePtr& y = nullptr) {
    surface->series.push_back(std::make_shared<FakeSeries>());
    surface->series.back()->xRange = x;
    surface->series.back()->yRange = [y](const VELRange&, bool positive) {
      return positive && y && y->minAsDouble() <= 0 ? nullptr : y;
    };
    return *surface->series.back();
  }
  void show(double min, double max) { axis->setVisibleRange(axis->toVisibleRangeMin(min, max)); }
  void draw() {
    axis->getCurrentCoordinateCalculator();
    FakeChart::draw();
  }
};

inline void expectRange(const VELRangePtr& range, double min, double max) {
  const double tolerance = 1e-9 * std::max(std::abs(min), std::abs(max));
  EXPECT_NEAR(range->minAsDouble(), min, tolerance);
  EXPECT_NEAR(range->maxAsDouble(), max, tolerance);
}
