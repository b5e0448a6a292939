// data/display_list.h: who shows a data series and must redraw when it changes.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "velmora/platform/export.h"
#include "velmora/platform/invalidatable_element.h"

/// Weakly held displays, told in the order in which they came.
///
/// Always true: a display may add or remove any display, itself too, while it is being told; telling
/// allocates nothing; displays that have died are forgotten.
class VELMORA_API VELDisplayList {
 public:
  bool isEmpty() const { return _displays.empty(); }
  /// Null and a display that is already listed are ignored.
  void add(const std::shared_ptr<VELInvalidatableElement>& display);
  /// A display that is not listed is ignored.
  void remove(const VELInvalidatableElement* display);
  /// `invalidateElement` on each that lives. One that is added meanwhile is told from the next time on.
  void invalidateAll();

 private:
  void dropForgotten();

  std::vector<std::weak_ptr<VELInvalidatableElement>> _displays;
  int32_t _telling = 0;
  bool _hasForgotten = false;
};
