// series/drawn_series.h: one line series, drawn without axes into a context that records.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/numbers.h"
#include "tests/support/recording_chart.h"
#include "velmora/axes/flipped_double_coordinate_calculator.h"
#include "velmora/data/point_series.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/series/fast_line_renderable_series.h"
#include "velmora/surface/render_pass_data.h"

/// One data unit is one point; y grows downwards with the screen.
inline std::shared_ptr<VELCoordinateCalculator> identity(bool horizontal) {
  return std::make_shared<VELFlippedDoubleCoordinateCalculator>(101.0, 0.0, 100.0, true, horizontal, false);
}

/// Answers what a test says; null at first.
struct TestPalette : VELPaletteProvider {
  using Style = std::shared_ptr<const VELSeriesStyle>;
  std::function<Style(double x, double y, uint32_t index)> answer = [](auto...) { return nullptr; };
  std::function<void()> onUpdate = [] {};
  void updateData(const VELRenderPassData&) override { onUpdate(); }
  Style styleForX(double x, double y, uint32_t index) override { return answer(x, y, index); }
};

/// A series with its points, in a viewport of 200 by 100 points.
struct DrawnSeries {
  DrawnSeries(const std::vector<double>& xs, const std::vector<double>& ys, bool vertical = false,
              int32_t indexStep = 1)
      : surface(RecordingSurface::create({0.0, 0.0, 200.0, 100.0})) {
    auto points = std::make_shared<VELPointSeries>();
    values->setAcceptUnsortedData(true);
    for (size_t i = 0; i < xs.size(); ++i) {
      values->appendX(xs[i], ys[i]);
      points->addX(xs[i], ys[i], static_cast<int32_t>(i) * indexStep);
    }
    series->setDataSeries(values);
    data = std::make_shared<VELRenderPassData>(nullptr, points, values, series, identity(vertical),
                                               identity(!vertical));
  }

  const std::vector<RecordedOperation>& draw() {
    surface->render->operations.clear();
    series->onDrawWithContext(*surface->render, data);
    return surface->render->operations;
  }

  std::vector<double> polyline() {
    for (const auto& operation : draw())
      if (operation.name == "polyline") return operation.numbers;
    return {};
  }

  std::shared_ptr<VELXyDataSeries> values =
      std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  std::shared_ptr<VELFastLineRenderableSeries> series = std::make_shared<VELFastLineRenderableSeries>();
  std::shared_ptr<RecordingSurface> surface;
  std::shared_ptr<const VELRenderPassData> data;
};
