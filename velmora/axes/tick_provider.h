// axes/tick_provider.h: at which values ticks stand.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/axes/axis_delta.h"
#include "velmora/data/array_controller.h"
#include "velmora/data/range.h"
#include "velmora/platform/export.h"

class VELAxisCore;

/// Lists tick values, majors in ascending order, as columns of doubles (VELDataType_Double or
/// VELDataType_DateTime); any other column counts as empty. Lives with its axis, which it holds weakly.
class VELMORA_API VELTickProvider {
 public:
  /// What one list of the library's own providers holds at most, whatever range and step an application
  /// sets.
  static constexpr int64_t maxTicksPerPass = 10'000;

  virtual ~VELTickProvider() = default;
  std::shared_ptr<VELAxisCore> axis() const { return _axis.lock(); }
  void setAxis(const std::weak_ptr<VELAxisCore>& axis) { _axis = axis; }

  /// Major ticks for the visible range; a list may go a little beyond it, what lies outside is not placed.
  /// The list is the caller's; one that nobody keeps is used again for the next answer. Null or empty when
  /// range or spacing are no use.
  virtual std::shared_ptr<VELArrayController> getMajorTicksFromAxis(const VELAxisCore& axis) = 0;
  /// Minor ticks, without those on a major one; as above.
  virtual std::shared_ptr<VELArrayController> getMinorTicksFromAxis(const VELAxisCore& axis) = 0;

 protected:
  /// The visible range, kept alive should what a list calls change the axis; null for none.
  static VELRangePtr rangeOf(const VELAxisCore& axis);
  /// The spacing that the axis has now.
  static VELAxisDelta deltaOf(const VELAxisCore& axis);
  /// Empties @p list and answers it, or puts a new one there when somebody keeps the old one.
  static std::shared_ptr<VELArrayController> emptyList(std::shared_ptr<VELArrayController>& list,
                                                       VELDataType type, int64_t capacity = 128);

  std::shared_ptr<VELArrayController> _majorTicks;
  std::shared_ptr<VELArrayController> _minorTicks;

 private:
  std::weak_ptr<VELAxisCore> _axis;
};
