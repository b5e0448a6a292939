#include <algorithm>
#include <cmath>
#include <limits>

#include "velmora/data/array_controller.h"
#include "velmora/data/extent.h"

namespace {

/// @return false when the column ends here: a float column does at its first NaN, on purpose
template <typename T>
bool foldUntilEnd(std::span<const T> values, VELExtent<T>& extent) {
  auto end = values.end();
  if constexpr (std::is_same_v<T, float>) {
    end = std::find_if(values.begin(), values.end(), [](float value) { return std::isnan(value); });
  }
  VELFoldExtent(values.first(static_cast<size_t>(end - values.begin())), extent);
  return end == values.end();
}

}  // namespace

void VELArrayController::rangeFrom(int64_t head, double& min, double& max) const {
  VELVisitElementType(_type, [&](auto element) {
    using T = typename decltype(element)::type;
    const std::span<const T> values = elements<T>();
    const auto start = static_cast<size_t>(head);
    // Folded from the infinities, which may be all that there is.
    VELExtent<T> extent;
    if (foldUntilEnd(values.subspan(start), extent)) foldUntilEnd(values.first(start), extent);
    if (!extent.exists()) extent = {std::numeric_limits<T>::max(), std::numeric_limits<T>::lowest()};
    min = static_cast<double>(extent.low);
    max = static_cast<double>(extent.high);
  });
}

void VELArrayController::getRangeMin(double& min, double& max) const { rangeFrom(0, min, max); }
