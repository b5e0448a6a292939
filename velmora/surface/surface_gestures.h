// surface/surface_gestures.h: the gestures of a surface, as the surface switches them.
#pragma once

#include "velmora/platform/export.h"

/// The recognisers of one surface. They belong to a floor above; the surface only switches them on when they
/// are given to it and off when it is freed.
class VELMORA_API VELSurfaceGestures {
 public:
  virtual ~VELSurfaceGestures() = default;
  virtual void enablePanGesture() = 0;
  virtual void enablePinchGesture() = 0;
  virtual void enableTapGesture() = 0;
  virtual void enableDoubleTapGesture() = 0;
  virtual void disablePanGesture() = 0;
  virtual void disablePinchGesture() = 0;
  virtual void disableTapGesture() = 0;
  virtual void disableDoubleTapGesture() = 0;
};
