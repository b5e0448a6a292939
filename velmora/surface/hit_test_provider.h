// surface/hit_test_provider.h: how a finger finds a point of a series.
#pragma once

#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"
#include "velmora/surface/hit_test_info.h"

class VELRenderableSeries;
class VELRenderPassData;

/// Looks for a place among what a series drew in its last pass. Each kind of series has a provider of its
/// own.
class VELMORA_API VELHitTestProvider {
 public:
  /// How far a finger may miss, in points, unless the caller says otherwise.
  static constexpr double kDefaultRadius = 20.0;

  virtual ~VELHitTestProvider() = default;

  VELHitTestMode hitTestMode() const { return _hitTestMode; }
  void setHitTestMode(VELHitTestMode mode) { _hitTestMode = mode; }

  /// Asks what the series shows at a place. Allocates nothing once warm.
  /// @param point relative to the chart frame, see `VELRenderSurface::pointInChartFrame`
  /// @param radius in points
  /// @return no point for a series that draws nothing, for one that was detached since it drew, and for a
  ///         place that is not finite
  VELHitTestInfo hitTestSeries(const VELRenderableSeries& series, VELPoint point,
                               double radius = kDefaultRadius) const;

 protected:
  /// The same for a pass that has points and both calculators, and a finite place.
  virtual VELHitTestInfo hitTestPass(const VELRenderPassData& data, VELPoint point, double radius) const = 0;

 private:
  VELHitTestMode _hitTestMode = VELHitTestMode_NearestX;
};
