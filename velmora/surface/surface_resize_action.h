// surface/surface_resize_action.h: an action to run when a surface is resized.
#pragma once

#include <functional>
#include <memory>
#include <utility>

class VELChartSurface;

/// Pairs a surface, held weakly, with an action. Whoever resizes the surface decides when to run it.
/// (The class is spelled so, and meant.)
class VELSurfaceResieAction {
 public:
  VELSurfaceResieAction(const std::weak_ptr<VELChartSurface>& surface, std::function<void()> action)
      : _surface(surface), _resizeAction(std::move(action)) {}

  std::shared_ptr<VELChartSurface> surface() const { return _surface.lock(); }
  const std::function<void()>& resizeAction() const { return _resizeAction; }

 private:
  std::weak_ptr<VELChartSurface> _surface;
  std::function<void()> _resizeAction;
};
