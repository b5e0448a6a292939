#include "tests/platform/x_screen.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>

namespace {

/// The number that the server writes once it takes connections.
std::string readLine(int descriptor) {
  std::string line;
  for (char c = 0; read(descriptor, &c, 1) == 1 && c != '\n';) line += c;
  return line;
}

}  // namespace

XScreen::XScreen() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) {
    _failure = "no pipe";
    return;
  }
  _server = fork();
  if (_server == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    close(ends[0]);
    const std::string descriptor = std::to_string(ends[1]);
    execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", "1024x768x24", "-nolisten",
           "tcp", "-noreset", "-terminate", nullptr);
    _exit(127);
  }
  close(ends[1]);
  const std::string number = readLine(ends[0]);
  close(ends[0]);
  if (number.empty()) {
    _failure = "there is no X server for tests: install the Debian package xvfb";
    return;
  }
  unsetenv("WAYLAND_DISPLAY");
  setenv("SDL_VIDEODRIVER", "x11", 1);
  setenv("DISPLAY", (":" + number).c_str(), 1);
  _display = XOpenDisplay(nullptr);
  if (!_display) _failure = "the X server for tests takes no connections";
}

XScreen::~XScreen() {
  if (_display) XCloseDisplay(_display);
  if (_server <= 0) return;
  kill(_server, SIGTERM);
  waitpid(_server, nullptr, 0);
}

bool XScreen::takeWindow(const std::string& title) {
  Window root = 0, parent = 0, *children = nullptr;
  unsigned count = 0;
  if (!XQueryTree(_display, XDefaultRootWindow(_display), &root, &parent, &children, &count)) return false;
  for (unsigned i = 0; i < count; ++i) {
    char* name = nullptr;
    if (!XFetchName(_display, children[i], &name)) continue;
    if (name && title == name) _window = children[i];
    XFree(name);
  }
  if (children) XFree(children);
  if (_window == 0) return false;
  XMoveWindow(_display, _window, 0, 0);
  flush();
  return true;
}

void XScreen::flush() { XSync(_display, False); }

void XScreen::resize(unsigned width, unsigned height) {
  XResizeWindow(_display, _window, width, height);
  flush();
}

void XScreen::show() {
  XMapWindow(_display, _window);
  flush();
}

void XScreen::hide() {
  XUnmapWindow(_display, _window);
  flush();
}

void XScreen::askToClose() {
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = _window;
  event.xclient.message_type = XInternAtom(_display, "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(XInternAtom(_display, "WM_DELETE_WINDOW", False));
  XSendEvent(_display, _window, False, NoEventMask, &event);
  flush();
}

void XScreen::movePointer(int x, int y) {
  XTestFakeMotionEvent(_display, 0, x, y, CurrentTime);
  flush();
}

void XScreen::button(unsigned number, bool isDown) {
  XTestFakeButtonEvent(_display, number, isDown ? True : False, CurrentTime);
  flush();
}

void XScreen::click(unsigned number) {
  button(number, true);
  button(number, false);
}

uint32_t XScreen::pixelAt(int x, int y) {
  XImage* const image = XGetImage(_display, XDefaultRootWindow(_display), x, y, 1, 1, AllPlanes, ZPixmap);
  if (!image) return 0;
  const auto color = static_cast<uint32_t>(XGetPixel(image, 0, 0));
  XDestroyImage(image);
  return color & 0xFFFFFFu;
}
