// platform/x_screen.h: an X server of the test's own, and a hand on its mouse.
//
// Units: pixels of the screen.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

struct _XDisplay;  // NOLINT(bugprone-reserved-identifier): the name that X has for it

/// A server without a screen that anybody sees. It ends with its owner, or with the process.
class XScreen {
 public:
  /// Starts the server and points DISPLAY to it.
  XScreen();
  XScreen(const XScreen&) = delete;
  XScreen& operator=(const XScreen&) = delete;
  ~XScreen();
  /// Empty when the server runs, else what is missing.
  const std::string& failure() const { return _failure; }

  /// The window of that title, without which nothing below may be called. It is put at the origin.
  bool takeWindow(const std::string& title);
  void resize(unsigned width, unsigned height);
  void show();
  void hide();
  /// What a press on the close button sends.
  void askToClose();
  void movePointer(int x, int y);
  /// Buttons 4 to 7 are the wheel: away, towards, left, right.
  void button(unsigned number, bool isDown);
  void click(unsigned number);
  /// The colour on the screen as 0x00RRGGBB.
  uint32_t pixelAt(int x, int y);

 private:
  void flush();

  pid_t _server = 0;
  _XDisplay* _display = nullptr;
  unsigned long _window = 0;
  std::string _failure;
};
