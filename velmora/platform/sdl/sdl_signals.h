// platform/sdl/sdl_signals.h: who gets the interrupts of the process: the application, or the loop.
#pragma once

#include <csignal>

#include <array>
#include <cstddef>

/// The signals that ask a process to end.
inline constexpr std::array<int, 2> kVELSDLSignals = {SIGINT, SIGTERM};

using VELSDLSignalActions = std::array<struct sigaction, kVELSDLSignals.size()>;

/// Lasts as long as the system's toolkit starts. What the toolkit does with a signal, which it takes for the
/// whole process, is put aside, and the application has its own actions back afterwards.
class VELSDLSignalKeeper {
 public:
  VELSDLSignalKeeper();
  VELSDLSignalKeeper(const VELSDLSignalKeeper&) = delete;
  VELSDLSignalKeeper& operator=(const VELSDLSignalKeeper&) = delete;
  ~VELSDLSignalKeeper();

 private:
  VELSDLSignalActions _saved{};
};

/// While it runs, a signal becomes an event of the loop: one that the application left to end the process.
/// Another one of its kind, a quarter of a second later or once the loop came to the first, ends the process.
/// A signal that the application handles or ignores stays its own.
class VELSDLSignalWatch {
 public:
  VELSDLSignalWatch() = default;
  VELSDLSignalWatch(const VELSDLSignalWatch&) = delete;
  VELSDLSignalWatch& operator=(const VELSDLSignalWatch&) = delete;
  ~VELSDLSignalWatch() { stop(); }

  void start();
  /// Gives the signals back, except those that the application took for itself meanwhile.
  void stop();

 private:
  std::array<bool, kVELSDLSignals.size()> _isTaken{};
};
