// surface/axis_walk.h: going through the axes of a surface, as every pass does.
#pragma once

#include "velmora/axes/axis_base.h"
#include "velmora/axes/axis_collection.h"

/// Calls @p visit with every axis in order; the count is read again at each step, so that a visit may remove
/// axes. The collection is held, so that a visit may also take it from its surface. A missing one has none.
template <typename Visit>
void VELForEachAxis(const VELAxisCollection* axes, Visit visit) {
  const auto held = axes ? axes->weak_from_this().lock() : nullptr;
  for (int32_t i = 0; axes && i < axes->count(); ++i)
    if (const auto axis = axes->itemAt(i)) visit(*axis);
}

/// The first axis for which @p holds is true, or null.
template <typename Predicate>
std::shared_ptr<VELAxisBase> VELFindAxis(const VELAxisCollection* axes, Predicate holds) {
  const auto held = axes ? axes->weak_from_this().lock() : nullptr;
  for (int32_t i = 0; axes && i < axes->count(); ++i)
    if (auto axis = axes->itemAt(i); axis && holds(*axis)) return axis;
  return nullptr;
}

/// Gives an axis a newly computed range when it differs and the axis takes it. It becomes the axis' own kind.
inline void VELApplyRange(VELAxisBase& axis, const VELRangePtr& range) {
  if (!range) return;
  const VELRangePtr own = axis.isRangeOfValidType(*range)
                              ? range
                              : axis.toVisibleRangeMin(range->minAsDouble(), range->maxAsDouble());
  if (!own) return;
  const VELRangePtr visible = axis.visibleRange();
  if (visible && own->equals(visible.get())) return;
  if (axis.isValidRange(own)) axis.trySetOrAnimateVisibleRange(own);
}
