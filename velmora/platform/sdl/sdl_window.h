// platform/sdl/sdl_window.h: a window of the system that GL can draw into.
//
// Units: window units, which are what the system moves and sizes windows in, and pixels.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <memory>
#include <string>

#include "velmora/platform/geometry.h"
#include "velmora/platform/sdl/window_host.h"

/// Connects the process to its display, once and for its whole life: an X server that loses its last client
/// may start over, and then refuses the next one for a while.
/// @param failure takes one sentence
/// @return false without a display; then the next call tries again
bool VELSDLOpenDisplay(std::string& failure);

/// One window, closed with its owner.
class VELSDLWindow {
 public:
  /// @param version of OpenGL ES that its pixels must serve, asked for by `requestContext` before
  /// @return null when the system refuses; then `SDL_GetError` tells why
  static std::shared_ptr<VELSDLWindow> create(const VELWindowOptions& options, int version);
  explicit VELSDLWindow(int version) : _version(version) {}
  VELSDLWindow(const VELSDLWindow&) = delete;
  VELSDLWindow& operator=(const VELSDLWindow&) = delete;
  ~VELSDLWindow();

  SDL_Window* handle() const { return _window; }
  uint32_t id() const { return SDL_GetWindowID(_window); }
  /// Tells the system which kind of GL context comes next; its memory for that is one for the process.
  static void requestContext(int version);
  void requestContext() const { requestContext(_version); }

  VELSize size() const;    ///< window units
  VELSize pixels() const;  ///< whole numbers
  void setSize(const VELSize& units);
  bool isShown() const;
  void hide() { SDL_HideWindow(_window); }
  /// Seconds between two pictures of its display; 0 when the system does not know.
  double refreshPeriod() const;

 private:
  SDL_Window* _window = nullptr;
  int _version;
};
