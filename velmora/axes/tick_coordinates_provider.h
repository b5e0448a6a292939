// axes/tick_coordinates_provider.h: where ticks stand on the screen.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "velmora/axes/tick_coordinates.h"
#include "velmora/platform/export.h"

class VELAxisBase;

/// Places ticks along its axis, which it holds weakly.
class VELMORA_API VELTickCoordinatesProvider {
 public:
  virtual ~VELTickCoordinatesProvider() = default;
  std::shared_ptr<VELAxisBase> parentAxis() const { return _parentAxis.lock(); }
  void setParentAxis(const std::weak_ptr<VELAxisBase>& axis) { _parentAxis = axis; }

  /// Ticks inside the axis with their coordinates, none while the axis has no length. Never null. The
  /// answer is the caller's; one that nobody keeps is filled again by the next call.
  virtual std::shared_ptr<const VELTickCoordinates> getTickCoordinatesWithMinorTicks(
      std::span<const double> minorTicks, std::span<const double> majorTicks) = 0;

 private:
  std::weak_ptr<VELAxisBase> _parentAxis;
};

/// Places ticks with the current coordinate calculator of the axis.
///
/// Always true: coordinates lie inside the axis, ends included; no two neighbours share a value or a place.
class VELMORA_API VELTickCoordinatesProviderDefault : public VELTickCoordinatesProvider {
 public:
  std::shared_ptr<const VELTickCoordinates> getTickCoordinatesWithMinorTicks(
      std::span<const double> minorTicks, std::span<const double> majorTicks) override;

  /// Length of the axis at the last call, in points.
  double currAxisSize() const { return _currAxisSize; }
  /// Offset of the axis at the last call, in points.
  double currOffset() const { return _currOffset; }

 private:
  bool p_VEL_isInBounds(double coordinate) const;

  double _currAxisSize = 0.0;
  double _currOffset = 0.0;
  std::vector<double> _minorTicks;
  std::vector<double> _majorTicks;
  std::vector<float> _minorCoordinates;
  std::vector<float> _majorCoordinates;
  std::shared_ptr<VELTickCoordinates> _result;
};

/// The provider of category axes. Their ticks are indices, and so is what their calculator places: nothing
/// is to be translated on the way.
class VELMORA_API VELCategoryTickCoordinatesProvider : public VELTickCoordinatesProviderDefault {};
