#include "velmora/axes/tick_coordinates.h"

VELTickCoordinates::VELTickCoordinates(std::span<const double> minorTicks, std::span<const double> majorTicks,
                                       std::span<const float> minorCoordinates,
                                       std::span<const float> majorCoordinates) {
  assign(minorTicks, majorTicks, minorCoordinates, majorCoordinates);
}

void VELTickCoordinates::assign(std::span<const double> minorTicks, std::span<const double> majorTicks,
                                std::span<const float> minorCoordinates,
                                std::span<const float> majorCoordinates) {
  _minorTicks.assign(minorTicks.begin(), minorTicks.end());
  _majorTicks.assign(majorTicks.begin(), majorTicks.end());
  _minorCoordinates.assign(minorCoordinates.begin(), minorCoordinates.end());
  _majorCoordinates.assign(majorCoordinates.begin(), majorCoordinates.end());
}
