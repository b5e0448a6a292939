// platform/sdl/window_host.h: charts in a window of the desktop, or on the whole of a panel without one.
//
// Units: points, of which a density tells how many pixels each has; seconds of the host's own clock.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>

#include "velmora/platform/bitmap.h"
#include "velmora/platform/color.h"
#include "velmora/platform/export.h"
#include "velmora/platform/geometry.h"
#include "velmora/platform/host.h"

/// How a window begins.
struct VELWindowOptions {
  std::string title = "Velmora";
  VELSize size{1280.0, 720.0};  ///< points; a side has at most 16384 pixels
  bool resizable = true;
  bool highDensity = true;    ///< false lets the system stretch one pixel per point
  double contentScale = 0.0;  ///< pixels per point; 0 takes what the system says of the display
  VELColor background{};      ///< from the first picture on; opaque black, its alpha is not used
};

/// A host whose screen is a window, with its loop, its clock and its fingers.
///
/// One turn of the loop waits, hands on what happened, runs the timers that are due, and draws a frame when
/// something asks for one: a view that waits for layout or display, a listener that wants every beat, changed
/// texts or places of views, a window that was uncovered or changed its size. When nothing does, the turn
/// waits for the system and the process sleeps. A minimised or hidden window neither beats nor draws.
///
/// Always true: the root view lies at the origin and has the size of the window. Everything runs on the
/// thread that made the host. A callback may let go of the host, remove views and timers and stop the loop.
class VELMORA_API VELWindowHost : public VELHost {
 public:
  /// Opens a window.
  /// @param failure when given, takes the reason in one sentence
  /// @return null when the options make no window, when there is no display or no OpenGL ES 2.0 on it, and
  /// while the process has another window host
  static std::shared_ptr<VELWindowHost> create(const VELWindowOptions& options,
                                               std::string* failure = nullptr);
  /// True when a window could be opened, as far as that shows without opening one. Connects the process to
  /// its display and leaves it so.
  /// @param failure when given and there is none, takes the reason in one sentence
  static bool hasDisplay(std::string* failure = nullptr);

  VELWindowHost() = default;
  VELWindowHost(const VELWindowHost&) = delete;
  VELWindowHost& operator=(const VELWindowHost&) = delete;

  /// Turns the loop until the window is closed, `stop` is called or the process is interrupted.
  virtual void run() = 0;
  /// One turn of the loop.
  /// @param mostSeconds how long it may wait for something to happen; infinity waits for ever, 0 and NaN not
  /// at all
  /// @return false once the window is closed, once after each `stop`, and inside of a turn, where it does
  /// nothing
  virtual bool step(double mostSeconds = std::numeric_limits<double>::infinity()) = 0;
  /// Ends `run` after the turn at work, or the next `run` at once. The window stays.
  virtual void stop() = 0;
  /// False once the user closed the window or the process was interrupted. A closed window is no longer shown
  /// and does not open again; its views and its GL context live on.
  virtual bool isOpen() const = 0;
  /// True when a signal (interrupt, terminate) or the end of the session closed the window.
  virtual bool wasInterrupted() const = 0;

  /// Calls again and again until removed, first after one interval, with the host's seconds. Calls that came
  /// too late are left out, never made up for.
  /// @param intervalSeconds at least 0.001, to which smaller ones and NaN are raised; infinity pauses
  /// @return a key for the two below, never 0
  virtual uint64_t addTimer(double intervalSeconds, std::function<void(double seconds)> callback) = 0;
  /// Also from inside a call; an unknown key does nothing.
  virtual void removeTimer(uint64_t key) = 0;
  /// The next call comes one new interval from now. An unknown key does nothing.
  virtual void setTimerInterval(uint64_t key, double intervalSeconds) = 0;
  /// The clock of touches, timers and beats: seconds since the host was made.
  virtual double seconds() const = 0;

  virtual void setTitle(const std::string& title) = 0;
  /// What shows where no view draws; that of the options at first.
  virtual void setBackgroundColor(const VELColor& color) = 0;
  /// Sets the pixels per point; 0 takes what the system says again. What is negative or no float holds is
  /// ignored.
  virtual void setContentScale(double pixelsPerPoint) = 0;
  /// Called with the new pixels per point, after the views were told.
  virtual void setContentScaleChanged(std::function<void(double pixelsPerPoint)> callback) = 0;
  /// Called with the new size in points, after the root view got it.
  virtual void setSizeChanged(std::function<void(const VELSize& points)> callback) = 0;

  /// Number of frames that went to the screen.
  virtual uint64_t presentedFrames() const = 0;
  /// The tree as it stands, composed now as the window shows it; opaque. Empty when GL refuses.
  virtual VELBitmap picture() = 0;
};
