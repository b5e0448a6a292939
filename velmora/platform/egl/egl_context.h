// platform/egl/egl_context.h: a GL context through EGL.
#pragma once

#include <EGL/egl.h>

#include <memory>
#include <string>

#include "velmora/platform/egl/egl_display.h"
#include "velmora/platform/gl_context.h"
#include "velmora/platform/gles/driver_gl.h"

/// An OpenGL ES 2.0 context that draws into framebuffer objects only. It has no surface where the driver
/// allows that, else an unused one of one pixel.
class VELEGLContext : public VELGLContext {
 public:
  /// @param reason takes what the driver refused when the answer is null
  static std::shared_ptr<VELEGLContext> onDisplay(const VELEGLDisplay& display, std::string& reason);

  explicit VELEGLContext(const VELEGLDisplay& display) : _display(display) {}
  ~VELEGLContext() override;
  VELGL& gl() override { return _gl; }

 protected:
  bool doMakeCurrent() override;
  bool doCheckLost() override { return _gl.wasReset(); }
  bool doReplace() override;

 private:
  std::string setUp();
  void createContext(EGLConfig config);
  void tearDown();

  VELEGLDisplay _display;
  EGLContext _context = EGL_NO_CONTEXT;
  EGLSurface _surface = EGL_NO_SURFACE;
  VELDriverGL _gl;
};
