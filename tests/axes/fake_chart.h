// A chart as its axes see it, without anything above them: for the tests of this folder.
#pragma once

#include <functional>

#include "tests/axes/tick_lists.h"
#include "tests/support/recording_context.h"
#include "velmora/axes/axis_area.h"
#include "velmora/axes/axis_collection.h"
#include "velmora/axes/axis_panel.h"
#include "velmora/axes/axis_renderer.h"
#include "velmora/axes/axis_surface.h"
#include "velmora/axes/numeric_axis.h"
#include "velmora/data/ranges.h"
#include "velmora/data/xy_data_series.h"
#include "velmora/platform/display_link.h"

inline VELRangePtr doubles(double min, double max) { return std::make_shared<VELDoubleRange>(min, max); }

/// Series whose ranges are given.
struct FakeSeries : VELAxisSeries {
  std::string xId = VELAxisBase::defaultAxisId, yId = VELAxisBase::defaultAxisId;
  bool visible = true;
  std::shared_ptr<VELDataSeries> data =
      std::make_shared<VELXyDataSeries>(VELDataType_Double, VELDataType_Double);
  VELRangePtr xRange;
  std::function<VELRangePtr(const VELRange&, bool)> yRange;

  const std::string& xAxisId() const override { return xId; }
  const std::string& yAxisId() const override { return yId; }
  bool isVisible() const override { return visible; }
  std::shared_ptr<VELDataSeries> dataSeries() const override { return data; }
  VELRangePtr getXRange() const override { return xRange; }
  VELRangePtr getYRange(const VELRange& window, bool positive) const override {
    return yRange ? yRange(window, positive) : nullptr;
  }
};

struct FakeSurface : VELAxisSurface {
  VELRect frame{50, 10, 400, 200};
  VELRect bounds{0, 0, 500, 250};
  double scale = 1.0;
  int invalidations = 0;
  std::shared_ptr<VELDisplayLink> link = std::make_shared<VELDisplayLink>();
  VELAxisCollection xs, ys;
  std::vector<std::shared_ptr<FakeSeries>> series;

  void invalidateElement() override { ++invalidations; }
  VELRect chartFrame() const override { return frame; }
  VELRect viewBounds() const override { return bounds; }
  double contentScale() const override { return scale; }
  std::shared_ptr<VELDisplayLink> displayLink() const override { return link; }
  size_t axisSeriesCount() const override { return series.size(); }
  VELAxisSeries* axisSeriesAt(size_t i) const override { return series[i].get(); }
  VELAxisCollection* xAxes() const override { return const_cast<VELAxisCollection*>(&xs); }
  VELAxisCollection* yAxes() const override { return const_cast<VELAxisCollection*>(&ys); }
};

/// One shape, in coordinates of the surface.
struct DrawnShape {
  char kind;  ///< 'L' line, 'R' rectangle
  const VELBrush2D* brush;
  double x1, y1, x2, y2;
  VELRect area;
};

/// Keeps lines and rectangles with the area that they were drawn in.
class ShapeRecorder : public RecordingContext {
 public:
  std::vector<DrawnShape> shapes;
  VELRect area;

  void drawLineWithBrush(const VELPenPtr& pen, float x1, float y1, float x2, float y2) override {
    shapes.push_back({'L', pen.get(), area.x + x1, area.y + y1, area.x + x2, area.y + y2, area});
  }
  void drawRectWithBrush(const VELBrushPtr& brush, float x1, float y1, float x2, float y2) override {
    shapes.push_back({'R', brush.get(), area.x + x1, area.y + y1, area.x + x2, area.y + y2, area});
  }
  std::vector<DrawnShape> of(const VELBrush2D* brush) const {
    std::vector<DrawnShape> found;
    for (const DrawnShape& shape : shapes)
      if (shape.brush == brush) found.push_back(shape);
    return found;
  }
  void setDrawingArea(const VELRect& newArea) override { area = newArea; }
  void clear() override { shapes.clear(); }
};

/// A view with one axis on each of two sides, laid out like a chart's.
struct FakeChart {
  std::shared_ptr<FakeSurface> surface = std::make_shared<FakeSurface>();
  std::shared_ptr<VELView> view = std::make_shared<VELView>();
  std::shared_ptr<VELAxisArea> vertical = std::make_shared<VELAxisArea>(VELOrientation_Vertical);
  std::shared_ptr<VELAxisArea> horizontal = std::make_shared<VELAxisArea>(VELOrientation_Horizontal);
  std::shared_ptr<VELNumericAxis> x = std::make_shared<VELNumericAxis>();
  std::shared_ptr<VELNumericAxis> y = std::make_shared<VELNumericAxis>();
  ShapeRecorder context;
  bool yIsLeft, xIsBottom;

  explicit FakeChart(VELSize size = {500, 250}, VELAxisAlignment xSide = VELAxisAlignment_Bottom,
                     VELAxisAlignment ySide = VELAxisAlignment_Left)
      : yIsLeft(ySide == VELAxisAlignment_Left), xIsBottom(xSide == VELAxisAlignment_Bottom) {
    surface->bounds = {0, 0, size.width, size.height};
    view->setFrame(surface->bounds);
    view->addSubview(vertical);
    view->addSubview(horizontal);
    y->setIsXAxis(false);
    x->setAxisAlignment(xSide);
    y->setAxisAlignment(ySide);
    x->setParentSurface(surface);
    y->setParentSurface(surface);
    surface->xs.addItem(x);
    surface->ys.addItem(y);
    horizontal->addItem(x);
    vertical->addItem(y);
    layOut(50.0, 50.0);
  }

  FakeSeries& add(const VELRangePtr& xRange, const VELRangePtr& yRange = nullptr) {
    surface->series.push_back(std::make_shared<FakeSeries>());
    surface->series.back()->xRange = xRange;
    surface->series.back()->yRange = [yRange](const VELRange&, bool positive) {
      return positive && yRange && yRange->minAsDouble() <= 0 ? nullptr : yRange;
    };
    return *surface->series.back();
  }

  void layOut(double depthOfX, double depthOfY) {
    constexpr double padding = 10.0;
    const VELRect& all = surface->bounds;
    surface->frame = {yIsLeft ? depthOfY : padding, xIsBottom ? padding : depthOfX,
                      all.width - depthOfY - padding, all.height - depthOfX - padding};
    const VELRect& f = surface->frame;
    vertical->setFrame({yIsLeft ? 0.0 : f.right(), f.y, depthOfY, f.height});
    horizontal->setFrame({f.x, xIsBottom ? f.bottom() : 0.0, f.width, depthOfX});
    vertical->layout();
    horizontal->layout();
  }

  void draw() {
    context.clear();
    x->getCurrentCoordinateCalculator();
    y->getCurrentCoordinateCalculator();
    VELAxisRenderer::o_onDrawAxes(*surface, context);
  }

  /// Draws, and again as often as an area wants another size. @return passes that resized
  int drawUntilStable() {
    for (int resizes = 0; resizes < 10; ++resizes) {
      draw();
      if (!vertical->needResizing() && !horizontal->needResizing()) return resizes;
      layOut(horizontal->recommendedSize(), vertical->recommendedSize());
    }
    return 10;
  }
};
