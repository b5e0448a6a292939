#include "velmora/platform/sdl/sdl_context.h"

#include <utility>

namespace {

constexpr const char* kAdvice =
    "install a driver, for example Mesa's software driver with the Debian packages libegl1, libgles2, "
    "libegl-mesa0 and libgl1-mesa-dri";

std::string noGL() {
  return std::string("There is no OpenGL ES 2.0 for a window on this display (") + SDL_GetError() +
         "): " + kAdvice + ".";
}

/// A window for that version of OpenGL ES, whose driver it keeps loaded.
std::shared_ptr<VELSDLWindow> openWindow(const VELWindowOptions& options, int version, std::string& failure) {
  VELSDLWindow::requestContext(version);
  // Apart from the window, which would load it too: a missing driver and a refused window are two faults.
  if (SDL_GL_LoadLibrary(nullptr) != 0) {
    failure = noGL();
    return nullptr;
  }
  auto window = VELSDLWindow::create(options, version);
  if (!window) failure = std::string("The window cannot be opened (") + SDL_GetError() + ").";
  SDL_GL_UnloadLibrary();
  return window;
}

}  // namespace

std::shared_ptr<VELSDLContext> VELSDLContext::open(const VELWindowOptions& options, std::string& failure) {
  if (!VELSDLOpenDisplay(failure)) return nullptr;
  for (const int version : {3, 2}) {
    auto window = openWindow(options, version, failure);
    if (!window) continue;
    auto context = std::make_shared<VELSDLContext>(std::move(window));
    if (context->setUp() && context->makeCurrent()) return context;
    failure = noGL();
  }
  return nullptr;
}

VELSDLContext::~VELSDLContext() { tearDown(); }

bool VELSDLContext::setUp() {
  _window->requestContext();
  // Only a context that asks for it is told of a reset of the GPU; not every driver can.
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_RESET_NOTIFICATION, SDL_GL_CONTEXT_RESET_LOSE_CONTEXT);
  _context = SDL_GL_CreateContext(_window->handle());
  if (!_context) {
    _window->requestContext();
    _context = SDL_GL_CreateContext(_window->handle());
  }
  if (!_context) return false;
  // A new context is current already, but not yet known as such to who asks for the current one.
  _getCurrentContext = reinterpret_cast<GetCurrentContext>(SDL_GL_GetProcAddress("eglGetCurrentContext"));
  _driverContext = currentInDriver();
  _gl.loadBeyondES2(
      [](const char* name) { return reinterpret_cast<VELDriverGL::Entry>(SDL_GL_GetProcAddress(name)); });
  return true;
}

void VELSDLContext::tearDown() {
  if (_context) SDL_GL_DeleteContext(_context);
  _context = nullptr;
  _driverContext = nullptr;
}

bool VELSDLContext::doReplace() {
  tearDown();
  return setUp();
}

bool VELSDLContext::doMakeCurrent() {
  if (!_context) return false;
  if (_driverContext && currentInDriver() == _driverContext) return true;
  // The system's toolkit remembers what it made current itself and would do nothing, although others have
  // made theirs current since: it is made to forget first.
  SDL_GL_MakeCurrent(_window->handle(), nullptr);
  return SDL_GL_MakeCurrent(_window->handle(), _context) == 0;
}
