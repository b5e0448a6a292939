// axes/axis_area.h: the place beside the chart frame where axes stand.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "velmora/axes/axis_base.h"
#include "velmora/platform/export.h"
#include "velmora/platform/view.h"

/// How an area runs.
enum VELOrientation : int32_t { VELOrientation_Vertical = 0, VELOrientation_Horizontal = 1 };

/// Stacks the panels of its axes outwards from the chart frame.
///
/// Items stand in the order of the screen, from left to right or from top to bottom; the panels are packed
/// against the chart frame, which lies on the far side of left and top axes and on the near side of others.
/// The area has the length of the side of the chart frame that it stands on. Frames are in points.
class VELMORA_API VELAxisArea : public VELView {
 public:
  VELAxisArea() = default;
  explicit VELAxisArea(VELOrientation orientation) : _orientation(orientation) {}
  ~VELAxisArea() override;

  VELOrientation orientation() const { return _orientation; }
  void setOrientation(VELOrientation orientation);

  int32_t count() const { return static_cast<int32_t>(_items.size()); }
  /// Null beyond the items.
  std::shared_ptr<VELAxisBase> itemAt(int32_t index) const;
  bool contains(const std::shared_ptr<VELAxisBase>& axis) const;
  /// Shows the panel of an axis. Null and an axis that is there already are ignored.
  void addItem(const std::shared_ptr<VELAxisBase>& axis);
  /// As above, at a position; one outside 0 to count is ignored.
  void insertItem(const std::shared_ptr<VELAxisBase>& axis, int32_t at);
  void removeItem(const std::shared_ptr<VELAxisBase>& axis);
  void clear();

  /// Whether the wanted size differs from the present one by at least one point.
  bool needResizing() const;
  /// Width of a vertical area, height of a horizontal one: what its axes need, in whole points; 0 without
  /// axes, NaN while an axis has not been drawn.
  float recommendedSize() const;
  /// Places the panels.
  void layout();
  void layoutSubviews() override { layout(); }

 private:
  std::vector<std::shared_ptr<VELAxisBase>> _items;
  VELOrientation _orientation = VELOrientation_Vertical;
};
