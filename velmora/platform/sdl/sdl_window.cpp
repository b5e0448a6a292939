#include "velmora/platform/sdl/sdl_window.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "velmora/platform/sdl/sdl_signals.h"

namespace {

struct Hint {
  const char* name;
  const char* value;
};

constexpr std::array<Hint, 6> kHints = {{
    // Under X11 the same OpenGL ES as everywhere else, by the library that also draws without a window.
    {SDL_HINT_VIDEO_X11_FORCE_EGL, "1"},
    // A finger is a finger and a mouse a mouse: neither is to be reported as the other too.
    {SDL_HINT_TOUCH_MOUSE_EVENTS, "0"},
    {SDL_HINT_MOUSE_TOUCH_EVENTS, "0"},
    // A chart is a guest on the desktop: screen saver and compositor stay as they are.
    {SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1"},
    {SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0"},
    // Else a closed window could not be told from a signal.
    {SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0"},
}};

/// Null for an empty name too, which names nothing.
const char* environment(const char* name) {
  const char* const value = SDL_getenv(name);
  return value && *value ? value : nullptr;
}

/// These show nothing to anybody: only who asks for them by name wants them.
bool showsNothing(std::string_view driver) {
  return (driver == "dummy" || driver == "offscreen" || driver == "evdev") && !environment("SDL_VIDEODRIVER");
}

constexpr const char* kWayOut =
    ": start this in a desktop session, or under xvfb-run of the Debian package xvfb.";

/// What the environment names is what did not work.
std::string noDisplay(const std::string& reason) {
  if (const char* const driver = environment("SDL_VIDEODRIVER"))
    return std::string("There is no display to open a window on by the video driver '") + driver +
           "' that SDL_VIDEODRIVER names (" + reason + ")" + kWayOut;
  for (const char* const variable : {"DISPLAY", "WAYLAND_DISPLAY"})
    if (const char* const display = environment(variable))
      return std::string("The display '") + display + "' does not answer" + kWayOut;
  return std::string("There is no display to open a window on (neither DISPLAY nor WAYLAND_DISPLAY is set)") +
         kWayOut;
}

/// Drivers refuse to draw into more pixels a side.
constexpr double kLargestSide = 16384.0;

int wholeSide(double side) { return static_cast<int>(std::clamp(std::round(side), 1.0, kLargestSide)); }

}  // namespace

bool VELSDLOpenDisplay(std::string& failure) {
  static bool isOpen = false;
  if (isOpen) return true;
  SDL_SetMainReady();
  for (const Hint& hint : kHints) SDL_SetHint(hint.name, hint.value);
  // Without the directory of its sockets there is no Wayland, and its library says so on stderr.
  if (!SDL_getenv("XDG_RUNTIME_DIR")) SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11,KMSDRM");
  const VELSDLSignalKeeper applicationsSignals;
  const bool wasOpen = SDL_WasInit(SDL_INIT_VIDEO) != 0;
  if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
    failure = noDisplay(SDL_GetError());
    return false;
  }
  const char* const driver = SDL_GetCurrentVideoDriver();
  isOpen = driver && !showsNothing(driver) && SDL_GetNumVideoDisplays() > 0;
  if (!isOpen) {
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    failure = noDisplay("none was found");
    return false;
  }
  // Charts take no text; without this an input method would be woken for every window.
  if (!wasOpen) SDL_StopTextInput();
  return true;
}

std::shared_ptr<VELSDLWindow> VELSDLWindow::create(const VELWindowOptions& options, int version) {
  auto window = std::make_shared<VELSDLWindow>(version);
  uint32_t flags = SDL_WINDOW_OPENGL | SDL_WINDOW_SHOWN;
  if (options.resizable) flags |= SDL_WINDOW_RESIZABLE;
  if (options.highDensity) flags |= SDL_WINDOW_ALLOW_HIGHDPI;
  const double scale = options.contentScale > 0.0 ? options.contentScale : 1.0;
  window->_window =
      SDL_CreateWindow(options.title.c_str(), SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED,
                       wholeSide(options.size.width * scale), wholeSide(options.size.height * scale), flags);
  if (!window->_window) return nullptr;

  const double density = window->pixels().width / std::max(1.0, window->size().width);
  if (options.contentScale > 0.0 && density != 1.0)
    window->setSize({options.size.width * scale / density, options.size.height * scale / density});
  return window;
}

VELSDLWindow::~VELSDLWindow() {
  if (_window) SDL_DestroyWindow(_window);
}

void VELSDLWindow::requestContext(int version) {
  SDL_GL_ResetAttributes();
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_ES);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, version);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 0);
  for (const SDL_GLattr channel : {SDL_GL_RED_SIZE, SDL_GL_GREEN_SIZE, SDL_GL_BLUE_SIZE})
    SDL_GL_SetAttribute(channel, 8);
  // Charts draw without depth, and a window that lets the desktop through would show its seams.
  for (const SDL_GLattr unused : {SDL_GL_ALPHA_SIZE, SDL_GL_DEPTH_SIZE, SDL_GL_STENCIL_SIZE})
    SDL_GL_SetAttribute(unused, 0);
}

VELSize VELSDLWindow::size() const {
  int width = 0, height = 0;
  SDL_GetWindowSize(_window, &width, &height);
  return {static_cast<double>(width), static_cast<double>(height)};
}

VELSize VELSDLWindow::pixels() const {
  int width = 0, height = 0;
  SDL_GL_GetDrawableSize(_window, &width, &height);
  return {static_cast<double>(width), static_cast<double>(height)};
}

void VELSDLWindow::setSize(const VELSize& units) {
  SDL_SetWindowSize(_window, wholeSide(units.width), wholeSide(units.height));
}

bool VELSDLWindow::isShown() const {
  const uint32_t flags = SDL_GetWindowFlags(_window);
  return (flags & (SDL_WINDOW_HIDDEN | SDL_WINDOW_MINIMIZED)) == 0;
}

double VELSDLWindow::refreshPeriod() const {
  SDL_DisplayMode mode{};
  const int display = SDL_GetWindowDisplayIndex(_window);
  if (display < 0 || SDL_GetCurrentDisplayMode(display, &mode) != 0 || mode.refresh_rate < 1) return 0.0;
  return 1.0 / mode.refresh_rate;
}
