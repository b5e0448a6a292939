#include <algorithm>
#include <cmath>
#include <limits>

#include "velmora/data/array_controller.h"
#include "velmora/data/extremes.h"

namespace {

constexpr size_t laneCount = 8;

/// min and max of all elements that are not NaN, folded into inverted bounds.
///
/// Its plain form is `for (T v : values) { if (v < min) min = v; if (v > max) max = v; }`. Independent lanes
/// let the compiler use vectors, which it must not do by itself here: it may not reorder floating
/// comparisons.
template <typename T>
void foldRange(std::span<const T> values, T& min, T& max) {
  T low[laneCount];
  T high[laneCount];
  std::fill_n(low, laneCount, min);
  std::fill_n(high, laneCount, max);
  const size_t whole = values.size() - values.size() % laneCount;
  for (size_t i = 0; i < whole; i += laneCount) {
    for (size_t lane = 0; lane < laneCount; ++lane) {
      const T value = values[i + lane];
      low[lane] = value < low[lane] ? value : low[lane];
      high[lane] = value > high[lane] ? value : high[lane];
    }
  }
  for (const T value : values.subspan(whole)) {
    low[0] = value < low[0] ? value : low[0];
    high[0] = value > high[0] ? value : high[0];
  }
  min = *std::min_element(low, low + laneCount);
  max = *std::max_element(high, high + laneCount);
}

}  // namespace

void VELArrayController::getRangeMin(double& min, double& max) const {
  VELVisitElementType(_type, [&](auto element) {
    using T = typename decltype(element)::type;
    std::span<const T> values = elements<T>();
    if constexpr (std::is_same_v<T, float>) {
      // A float column ends at its first NaN, on purpose.
      const auto end =
          std::find_if(values.begin(), values.end(), [](float value) { return std::isnan(value); });
      values = values.first(static_cast<size_t>(end - values.begin()));
    }
    // Folded from the infinities, which may be all that there is.
    T low = VELHighest<T>();
    T high = VELLowest<T>();
    foldRange(values, low, high);
    if (low > high) {
      low = std::numeric_limits<T>::max();
      high = std::numeric_limits<T>::lowest();
    }
    min = static_cast<double>(low);
    max = static_cast<double>(high);
  });
}
