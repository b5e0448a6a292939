// platform/invalidatable_element.h: who can ask for a redraw.
#pragma once

#include "velmora/platform/export.h"

/// Anything whose change must show. Invalidation climbs to the render surface, which draws at its next
/// tick; nothing is drawn inside the call.
class VELMORA_API VELInvalidatableElement {
 public:
  virtual ~VELInvalidatableElement() = default;
  virtual void invalidateElement() = 0;
};
