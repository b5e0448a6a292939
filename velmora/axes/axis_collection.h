// axes/axis_collection.h: the X axes or the Y axes of a chart.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "velmora/axes/axis_base.h"
#include "velmora/platform/export.h"

/// Axes in order, held strongly. Look-ups beyond the collection answer null; null is never added.
class VELMORA_API VELAxisCollection : public std::enable_shared_from_this<VELAxisCollection> {
 public:
  VELAxisCollection() = default;

  int32_t count() const { return static_cast<int32_t>(_axes.size()); }
  std::shared_ptr<VELAxisBase> itemAt(int32_t index) const;
  void addItem(const std::shared_ptr<VELAxisBase>& axis);
  /// An index outside 0 to count is ignored.
  void insertItem(const std::shared_ptr<VELAxisBase>& axis, int32_t at);
  bool contains(const std::shared_ptr<VELAxisBase>& axis) const;
  void removeItem(const std::shared_ptr<VELAxisBase>& axis);
  /// An index outside the collection is ignored.
  void removeItemAt(int32_t index);
  void clear() { _axes.clear(); }

  /// The axis of an id, null when there is none.
  /// @throws VELInvalidArgumentException when two axes have the id, and when none has it although
  ///         @p assertAxisExist is set
  std::shared_ptr<VELAxisBase> getAxisById(std::string_view id, bool assertAxisExist = false) const;
  bool hasPrimaryAxis() const { return primaryAxis() != nullptr; }
  /// The first axis that is primary.
  std::shared_ptr<VELAxisBase> primaryAxis() const;
  /// The axis of the default id.
  std::shared_ptr<VELAxisBase> defaultAxis() const;

 private:
  std::vector<std::shared_ptr<VELAxisBase>> _axes;
};
