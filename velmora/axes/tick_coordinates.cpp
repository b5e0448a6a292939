#include "velmora/axes/tick_coordinates.h"

#include <algorithm>
#include <cstddef>

VELTickCoordinates::VELTickCoordinates(std::span<const double> minorTicks, std::span<const double> majorTicks,
                                       std::span<const float> minorCoordinates,
                                       std::span<const float> majorCoordinates) {
  assign(minorTicks, majorTicks, minorCoordinates, majorCoordinates);
}

void VELTickCoordinates::assign(std::span<const double> minorTicks, std::span<const double> majorTicks,
                                std::span<const float> minorCoordinates,
                                std::span<const float> majorCoordinates) {
  const size_t minors = std::min(minorTicks.size(), minorCoordinates.size());
  const size_t majors = std::min(majorTicks.size(), majorCoordinates.size());
  const auto copy = [](auto from, size_t count, auto& to) {
    to.assign(from.begin(), from.begin() + static_cast<std::ptrdiff_t>(count));
  };
  copy(minorTicks, minors, _minorTicks);
  copy(majorTicks, majors, _majorTicks);
  copy(minorCoordinates, minors, _minorCoordinates);
  copy(majorCoordinates, majors, _majorCoordinates);
}
