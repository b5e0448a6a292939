#include "velmora/axes/label_culling.h"

#include <bit>
#include <cmath>

namespace {

constexpr int32_t kHighestPriority = 31;

bool haveRoom(const VELLabelExtent& a, const VELLabelExtent& b, double spacing) {
  return std::abs(b.centre - a.centre) - (a.size + b.size) / 2.0 >= spacing;
}

// Shows the labels of a stride. Returns how many there are, or 0 when two of them collide.
int64_t showStride(std::span<VELLabelExtent> labels, int32_t priority, double spacing) {
  const VELLabelExtent* last = nullptr;
  int64_t count = 0;
  for (VELLabelExtent& label : labels) {
    label.isShown = VELLabelPriority(label.index) >= priority;
    if (!label.isShown) continue;
    if (last && !haveRoom(*last, label, spacing)) return 0;
    last = &label;
    ++count;
  }
  return count;
}

void showOnlyHighest(std::span<VELLabelExtent> labels) {
  VELLabelExtent* highest = nullptr;
  for (VELLabelExtent& label : labels) {
    label.isShown = false;
    if (!highest || VELLabelPriority(label.index) > VELLabelPriority(highest->index)) highest = &label;
  }
  if (highest) highest->isShown = true;
}

}  // namespace

int32_t VELLabelPriority(int32_t index) {
  return index == 0 ? kHighestPriority : std::countr_zero(static_cast<uint32_t>(index));
}

void VELCullLabels(std::span<VELLabelExtent> labels, double spacing) {
  for (int32_t priority = 0; priority <= kHighestPriority; ++priority)
    if (showStride(labels, priority, spacing) > 0) return;
  showOnlyHighest(labels);
}
