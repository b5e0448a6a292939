#include "velmora/rendering/gradient_ramp.h"

#include <algorithm>
#include <cmath>

namespace {

uint32_t mixed(uint32_t from, uint32_t to, double share) {
  uint32_t code = 0;
  for (uint32_t shift = 0; shift < 32; shift += 8) {
    const double start = from >> shift & 0xFFu, finish = to >> shift & 0xFFu;
    code |= static_cast<uint32_t>(std::lround(start + (finish - start) * share)) << shift;
  }
  return code;
}

}  // namespace

std::vector<uint32_t> VELGradientRamp(std::span<const VELGradientStop> stops, size_t length) {
  std::vector<VELGradientStop> sorted(stops.begin(), stops.end());
  std::erase_if(sorted, [](const VELGradientStop& stop) { return !std::isfinite(stop.position); });
  if (sorted.empty()) return {};
  std::ranges::stable_sort(sorted, {}, &VELGradientStop::position);
  std::vector<uint32_t> ramp;
  ramp.reserve(length);
  auto next = sorted.begin();
  for (size_t i = 0; i < length; ++i) {
    const double position = (static_cast<double>(i) + 0.5) / static_cast<double>(length);
    next = std::find_if(next, sorted.end(), [=](const auto& stop) { return stop.position > position; });
    if (next == sorted.begin() || next == sorted.end()) {
      ramp.push_back(next == sorted.begin() ? sorted.front().colorCode : sorted.back().colorCode);
      continue;
    }
    const VELGradientStop& last = *(next - 1);
    // Halves, since the distance of two finite positions may be infinite.
    const double share = (position / 2 - last.position / 2) / (next->position / 2 - last.position / 2);
    ramp.push_back(mixed(last.colorCode, next->colorCode, std::min(share, 1.0)));
  }
  return ramp;
}

std::vector<VELGradientStop> VELGradientStops(std::span<const double> positions,
                                              std::span<const uint32_t> colorCodes) {
  std::vector<VELGradientStop> stops;
  for (size_t i = 0; i < std::min(positions.size(), colorCodes.size()); ++i)
    stops.push_back({positions[i], colorCodes[i]});
  return stops;
}
