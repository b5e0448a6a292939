// axes/tick_coordinates.h: ticks with their places on the screen, for one pass.
//
// Units: data units for values, points along the axis for coordinates, measured as the axis' calculator does.
#pragma once

#include <span>
#include <vector>

#include "velmora/platform/export.h"

/// Tick values and coordinates, in the order of the values; the i-th coordinate is that of the i-th value.
class VELMORA_API VELTickCoordinates {
 public:
  VELTickCoordinates() = default;
  VELTickCoordinates(std::span<const double> minorTicks, std::span<const double> majorTicks,
                     std::span<const float> minorCoordinates, std::span<const float> majorCoordinates);

  /// Replaces all four lists; memory is kept. The spans must not point into this object. Of values and
  /// coordinates of one kind the longer list is cut.
  void assign(std::span<const double> minorTicks, std::span<const double> majorTicks,
              std::span<const float> minorCoordinates, std::span<const float> majorCoordinates);

  std::span<const double> getMinorTicks() const { return _minorTicks; }
  std::span<const double> getMajorTicks() const { return _majorTicks; }
  std::span<const float> getMinorTickCoordinates() const { return _minorCoordinates; }
  std::span<const float> getMajorTickCoordinates() const { return _majorCoordinates; }
  /// No tick of either kind.
  bool isEmpty() const { return _minorTicks.empty() && _majorTicks.empty(); }

 private:
  std::vector<double> _minorTicks;
  std::vector<double> _majorTicks;
  std::vector<float> _minorCoordinates;
  std::vector<float> _majorCoordinates;
};
