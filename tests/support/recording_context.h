// support/recording_context.h: a render context that lists what was drawn, and a surface to carry it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "velmora/data/array_controller.h"
#include "velmora/rendering/render_context.h"
#include "velmora/rendering/render_surface_base.h"

/// One recorded operation with its numbers.
struct RecordedOperation {
  std::string name;
  std::vector<double> numbers = {};
  uint32_t colorCode = 0;
};

/// Records instead of drawing.
class RecordingContext : public VELRenderContext2D {
 public:
  std::vector<RecordedOperation> operations;

  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& operation : operations) all.push_back(operation.name);
    return all;
  }
  size_t count(const std::string& name) const {
    size_t found = 0;
    for (const auto& operation : operations) found += operation.name == name ? 1 : 0;
    return found;
  }

  void invalidate() override {
    _changed = true;
    if (_invalidated) _invalidated();
  }
  VELSize viewportSize() const override {
    return _surface.lock() ? _surface.lock()->chartFrame().size() : VELSize{};
  }
  void clear() override { operations = {{"clear"}}; }
  void performDrawingCommands() override {}
  void drawLineWithBrush(const VELPenPtr& pen, float x1, float y1, float x2, float y2) override {
    add("line", {x1, y1, x2, y2}, pen);
  }
  void drawRectWithBrush(const VELBrushPtr& brush, float x1, float y1, float x2, float y2) override {
    add("rect", {x1, y1, x2, y2}, brush);
  }
  void beginPolylineWithBrush(const VELPenPtr& pen, float x, float y) override { add("begin", {x, y}, pen); }
  void extendPolylineWithBrush(const VELPenPtr& pen, float x, float y) override {
    add("extend", {x, y}, pen);
  }
  void drawPolylineWithBrush(const VELPenPtr& pen, const VELArrayController& x, const VELArrayController& y,
                             int32_t) override {
    std::vector<double> points;
    for (int64_t i = 0; i < x.count(); ++i) {
      points.push_back(x.doubles()[static_cast<size_t>(i)]);
      points.push_back(y.doubles()[static_cast<size_t>(i)]);
    }
    add("polyline", std::move(points), pen);
  }
  void drawTriangleWithBrush(const VELBrushPtr& brush, float x1, float y1, float x2, float y2, float x3,
                             float y3) override {
    add("triangle", {x1, y1, x2, y2, x3, y3}, brush);
  }
  void renderEllipseToBufferX(VELArrayController& x, VELArrayController& y, float radiusVertical,
                              float radiusHorizontal, int32_t detalization) override {
    x.clear();
    y.clear();
    for (int32_t i = 0; i < detalization; ++i) {
      x.append(radiusHorizontal);
      y.append(radiusVertical);
    }
  }
  void drawEllipseWithBrush(const VELBrushPtr& brush, float x, float y, const VELArrayController&,
                            const VELArrayController&) override {
    add("ellipse", {x, y}, brush);
  }
  void drawSpriteWithBrush(const VELBrushPtr& brush, float x1, float y1, float x2, float y2) override {
    add("sprite", {x1, y1, x2, y2}, brush);
  }
  void beginZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x, float y, float zero,
                                    bool isVertical) override {
    add("beginArea", {x, y, zero, isVertical ? 1.0 : 0.0}, brush);
  }
  void extendZeroToLineAreaWithBrush(const VELBrushPtr& brush, float x, float y, float zero,
                                     bool isVertical) override {
    add("extendArea", {x, y, zero, isVertical ? 1.0 : 0.0}, brush);
  }
  void beginBandAreaWithBrush1(const VELBrushPtr& brush, const VELBrushPtr&, float x, float y1, float y2,
                               bool isVertical) override {
    add("beginBand", {x, y1, y2, isVertical ? 1.0 : 0.0}, brush);
  }
  void extendBandAreaWithBrush1(const VELBrushPtr& brush, const VELBrushPtr&, float x, float y1, float y2,
                                bool isVertical) override {
    add("extendBand", {x, y1, y2, isVertical ? 1.0 : 0.0}, brush);
  }
  void beginNewPrimitive() override { operations.push_back({"new"}); }
  void setDrawingArea(const VELRect& area) override {
    operations.push_back({"area", {area.x, area.y, area.width, area.height}});
  }
  const std::function<void()>& invalidated() const override { return _invalidated; }
  void setInvalidated(std::function<void()> invalidated) override { _invalidated = std::move(invalidated); }
  std::shared_ptr<VELRenderSurface> parentRenderSurface() const override { return _surface.lock(); }
  void setParentRenderSurface(const std::shared_ptr<VELRenderSurface>& surface) override {
    _surface = surface;
  }
  bool wasChanged() const override { return _changed; }
  void setWasChanged(bool changed) override { _changed = changed; }

 private:
  void add(std::string name, std::vector<double> numbers, const VELBrushPtr& brush) {
    operations.push_back({std::move(name), std::move(numbers), brush ? brush->colorCode() : 0});
  }

  std::function<void()> _invalidated;
  std::weak_ptr<VELRenderSurface> _surface;
  bool _changed = false;
};

/// A render surface without GL: three recording contexts, a plain background.
class RecordingSurface : public VELRenderSurfaceBase {
 public:
  static std::shared_ptr<RecordingSurface> create(const VELRect& frame) {
    auto surface = std::make_shared<RecordingSurface>(frame);
    const auto makeContext = [&] {
      auto context = std::make_shared<RecordingContext>();
      context->setParentRenderSurface(surface);
      return context;
    };
    surface->addRenderContext(surface->render = makeContext());
    surface->addModifierContext(makeContext());
    surface->addBackgroundContext(surface->background = makeContext());
    return surface;
  }

  explicit RecordingSurface(const VELRect& frame) : VELRenderSurfaceBase(frame) {}
  std::shared_ptr<VELDisplayLink> displayLink() const override { return link; }
  void drawBackground(VELRenderContext2D& context, const VELRenderSurfaceStyle&) override {
    context.drawRectWithBrush(nullptr, 0.0f, 0.0f, 1.0f, 1.0f);
  }

  std::shared_ptr<VELDisplayLink> link = std::make_shared<VELDisplayLink>();
  std::shared_ptr<RecordingContext> render;
  std::shared_ptr<RecordingContext> background;
};
