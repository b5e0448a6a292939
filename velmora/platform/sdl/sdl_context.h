// platform/sdl/sdl_context.h: the GL context of a window.
#pragma once

#include <SDL.h>

#include <memory>
#include <string>

#include "velmora/platform/gl_context.h"
#include "velmora/platform/gles/driver_gl.h"
#include "velmora/platform/sdl/sdl_window.h"

/// An OpenGL ES context that draws into a window and into framebuffer objects. It holds its window: what
/// lives in the context may outlive the host.
class VELSDLContext final : public VELGLContext {
 public:
  /// A window with its context, of OpenGL ES 3 where the system has it, else 2.
  /// @param failure takes one sentence
  /// @return null when the system refuses either
  static std::shared_ptr<VELSDLContext> open(const VELWindowOptions& options, std::string& failure);

  explicit VELSDLContext(std::shared_ptr<VELSDLWindow> window) : _window(std::move(window)) {}
  ~VELSDLContext() override;
  VELGL& gl() override { return _gl; }

  VELSDLWindow& window() const { return *_window; }
  /// Shows what was drawn into the window. The context must be current. May wait for the display.
  void exchange() { SDL_GL_SwapWindow(_window->handle()); }
  /// Asks for exchanges that wait for the display. @return whether the driver promises it
  bool synchronise() { return SDL_GL_SetSwapInterval(1) == 0; }

 protected:
  bool doMakeCurrent() override;
  bool doCheckLost() override { return _gl.wasReset(); }
  bool doReplace() override;

 private:
  using GetCurrentContext = void* (*)();

  bool setUp();
  void tearDown();
  /// The context that the driver has current on this thread, whoever made it so; null where it cannot be
  /// asked.
  void* currentInDriver() const { return _getCurrentContext ? _getCurrentContext() : nullptr; }

  std::shared_ptr<VELSDLWindow> _window;
  SDL_GLContext _context = nullptr;
  GetCurrentContext _getCurrentContext = nullptr;  ///< the driver's own
  void* _driverContext = nullptr;                  ///< as the driver names it
  VELDriverGL _gl;
};
