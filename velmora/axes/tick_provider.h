// axes/tick_provider.h: at which values ticks stand.
#pragma once

#include <memory>

#include "velmora/data/array_controller.h"
#include "velmora/platform/export.h"

class VELAxisCore;

/// Lists tick values in ascending order, as columns of VELDataType_Double; any other column counts as empty.
/// Lives with its axis, which it holds weakly.
class VELMORA_API VELTickProvider {
 public:
  virtual ~VELTickProvider() = default;
  std::shared_ptr<VELAxisCore> axis() const { return _axis.lock(); }
  void setAxis(const std::weak_ptr<VELAxisCore>& axis) { _axis = axis; }

  /// Major ticks inside the visible range. The list is the caller's; one that nobody keeps is used again
  /// for the next answer. Null when range or spacing are no use.
  virtual std::shared_ptr<VELArrayController> getMajorTicksFromAxis(const VELAxisCore& axis) = 0;
  /// Minor ticks, without those on a major one; as above.
  virtual std::shared_ptr<VELArrayController> getMinorTicksFromAxis(const VELAxisCore& axis) = 0;

 private:
  std::weak_ptr<VELAxisCore> _axis;
};
