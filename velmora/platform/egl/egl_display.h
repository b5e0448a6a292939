// platform/egl/egl_display.h: the connection to the machine's GL driver.
#pragma once

#include <EGL/egl.h>

#include <optional>
#include <string_view>
#include <vector>

/// An initialised display. It is never terminated: EGL has one of each for the whole process, and its end
/// would also end the contexts that a toolkit beside this library has on it.
class VELEGLDisplay {
 public:
  /// Every display that this machine may have, none initialised yet, best first: without any surface (needs
  /// neither window system nor GPU), each GPU by itself, the default one.
  static std::vector<EGLDisplay> candidates();
  /// Initialises a display, also one that is so already; nothing when the driver refuses.
  static std::optional<VELEGLDisplay> open(EGLDisplay handle);

  EGLDisplay handle() const { return _handle; }
  bool hasExtension(std::string_view name) const;

 private:
  explicit VELEGLDisplay(EGLDisplay handle) : _handle(handle) {}

  EGLDisplay _handle;
};
