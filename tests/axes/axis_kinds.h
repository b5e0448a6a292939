// One axis of each kind, for tables that hold them side by side.
#pragma once

#include "tests/axes/fake_chart.h"
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
  /// Makes its data that of a category column with these values.
  template <class Value>
  VELArrayControllerPtr addCategories(VELDataType type, const std::vector<Value>& values) {
    const auto data = VELXyDataSeries::initWithCategoryXType(type, VELDataType_Double);
    for (const Value& value : values) data->appendX(value, 1.0);
    add(doubles(0, static_cast<double>(values.size()))).data = data;
    return data->xValues();
  }
  void show(double min, double max) { axis->setVisibleRange(axis->toVisibleRangeMin(min, max)); }
  void draw() {
    axis->getCurrentCoordinateCalculator();
    FakeChart::draw();
  }
};
