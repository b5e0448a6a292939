#include "velmora/platform/egl/egl_context.h"

#include <EGL/eglext.h>

#include <array>
#include <utility>

namespace {

std::string& lastFailureText() {
  static std::string text;
  return text;
}

constexpr const char* kAdvice =
    "install a driver, for example Mesa's software driver with the Debian packages libegl1, libgles2, "
    "libegl-mesa0 and libgl1-mesa-dri";

}  // namespace

std::shared_ptr<VELGLContext> VELGLContext::create() {
  std::string reason = "no EGL display was found";
  for (EGLDisplay handle : VELEGLDisplay::candidates()) {
    const auto display = VELEGLDisplay::open(handle);
    if (!display) {
      reason = "no EGL display could be opened";
      continue;
    }
    if (auto context = VELEGLContext::onDisplay(*display, reason)) {
      lastFailureText().clear();
      return context;
    }
  }
  lastFailureText() = "There is no OpenGL ES 2.0 on this machine (" + reason + "): " + kAdvice + ".";
  return nullptr;
}

std::string VELGLContext::lastFailure() { return lastFailureText(); }

std::shared_ptr<VELEGLContext> VELEGLContext::onDisplay(const VELEGLDisplay& display, std::string& reason) {
  auto context = std::make_shared<VELEGLContext>(display);
  std::string refusal = context->setUp();
  if (refusal.empty()) return context;
  reason = std::move(refusal);
  return nullptr;
}

std::string VELEGLContext::setUp() {
  const bool surfaceless = _display.hasExtension("EGL_KHR_surfaceless_context");
  const EGLDisplay display = _display.handle();
  if (!eglBindAPI(EGL_OPENGL_ES_API)) return "the EGL driver has no OpenGL ES";

  // A surface type of 0 asks for nothing; EGL's own default would ask for windows.
  const std::array<EGLint, 5> wanted = {EGL_RENDERABLE_TYPE, EGL_OPENGL_ES2_BIT, EGL_SURFACE_TYPE,
                                        surfaceless ? 0 : EGL_PBUFFER_BIT, EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  if (!eglChooseConfig(display, wanted.data(), &config, 1, &count) || count < 1)
    return "the EGL driver has no configuration for OpenGL ES 2.0";

  createContext(config);
  if (_context == EGL_NO_CONTEXT) return "the EGL driver refused a context for OpenGL ES 2.0";

  if (!surfaceless) {
    const std::array<EGLint, 5> size = {EGL_WIDTH, 1, EGL_HEIGHT, 1, EGL_NONE};
    _surface = eglCreatePbufferSurface(display, config, size.data());
    if (_surface == EGL_NO_SURFACE) return "the EGL driver has neither contexts without surface nor pbuffers";
  }

  const VELGLContextScope scope(*this);
  if (!scope.isCurrent()) return "the EGL driver refused to make its context current";
  _gl.loadBeyondES2([](const char* name) { return eglGetProcAddress(name); });
  return {};
}

void VELEGLContext::createContext(EGLConfig config) {
  const EGLDisplay display = _display.handle();
  if (_display.hasExtension("EGL_EXT_create_context_robustness")) {
    // Only such a context is told of a reset of the GPU.
    const std::array<EGLint, 5> robust = {EGL_CONTEXT_CLIENT_VERSION, 2,
                                          EGL_CONTEXT_OPENGL_RESET_NOTIFICATION_STRATEGY_EXT,
                                          EGL_LOSE_CONTEXT_ON_RESET_EXT, EGL_NONE};
    _context = eglCreateContext(display, config, EGL_NO_CONTEXT, robust.data());
    if (_context != EGL_NO_CONTEXT) return;
  }
  const std::array<EGLint, 3> plain = {EGL_CONTEXT_CLIENT_VERSION, 2, EGL_NONE};
  _context = eglCreateContext(display, config, EGL_NO_CONTEXT, plain.data());
}

VELEGLContext::~VELEGLContext() {
#ifndef NDEBUG
  if (current() == this && !isLost()) checkErrors();
#endif
  tearDown();
}

bool VELEGLContext::doReplace() {
  tearDown();
  return setUp().empty();
}

void VELEGLContext::tearDown() {
  const EGLDisplay display = _display.handle();
  if (_context != EGL_NO_CONTEXT && eglGetCurrentContext() == _context)
    eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  if (_context != EGL_NO_CONTEXT) eglDestroyContext(display, _context);
  if (_surface != EGL_NO_SURFACE) eglDestroySurface(display, _surface);
  _context = EGL_NO_CONTEXT;
  _surface = EGL_NO_SURFACE;
}

bool VELEGLContext::doMakeCurrent() {
  // Asked of the driver, not remembered: a toolkit in the same process may have changed it.
  if (eglGetCurrentContext() == _context) return true;
  if (eglMakeCurrent(_display.handle(), _surface, _surface, _context) == EGL_TRUE) return true;
  if (eglGetError() == EGL_CONTEXT_LOST) setLost();
  return false;
}
