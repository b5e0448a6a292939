// support/recording_chart.h: a whole chart without GL, for tests of the pass and of the series.
#pragma once

#include <memory>

#include "tests/support/recording_context.h"
#include "velmora/axes/axis_area.h"
#include "velmora/surface/chart_surface.h"
#include "velmora/surface/chart_surface_view.h"

/// A surface view whose chart frame is set by hand.
class RecordingView : public VELChartSurfaceViewBase {
 public:
  explicit RecordingView(const VELRect& frame) : VELChartSurfaceViewBase(frame) {
    _renderSurface = recording = RecordingSurface::create(bounds());
    for (auto& one : _areas) one = std::make_shared<VELAxisArea>();
    _renderSurfaceSizeView = std::make_shared<VELView>(bounds());
  }

  void adopt() {
    addSubview(_renderSurface);
    for (const auto& one : _areas) addSubview(one);
    addSubview(_renderSurfaceSizeView);
  }

  std::shared_ptr<RecordingSurface> recording;
  int placed = 0;

 protected:
  void placeSubviews() override { ++placed; }
};

/// View and surface; the chart frame is the whole view.
struct RecordingChart {
  explicit RecordingChart(const VELRect& frame = {0.0, 0.0, 200.0, 100.0})
      : view(std::make_shared<RecordingView>(frame)) {
    view->adopt();
    surface = VELChartSurface::initWithView(view);
  }

  /// One refresh of the display.
  void tick() { view->recording->onRenderTimeElapsed(); }
  RecordingContext& context() { return *view->recording->render; }

  std::shared_ptr<RecordingView> view;
  std::shared_ptr<VELChartSurface> surface;
};
