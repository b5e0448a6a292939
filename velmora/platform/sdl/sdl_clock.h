// platform/sdl/sdl_clock.h: the seconds of a window.
#pragma once

#include <SDL.h>

#include <algorithm>
#include <cstdint>

/// Seconds since it was made, for now and for the times that events bear.
class VELSDLClock {
 public:
  double seconds() const {
    return static_cast<double>(SDL_GetPerformanceCounter() - _counter) /
           static_cast<double>(SDL_GetPerformanceFrequency());
  }
  /// @param timestamp of an event of the last 49 days: milliseconds modulo 2^32
  /// @return to whole milliseconds, from 0 to now
  double secondsOf(uint32_t timestamp) const {
    const uint64_t now = SDL_GetTicks64();
    const uint64_t age = static_cast<uint32_t>(static_cast<uint32_t>(now) - timestamp);
    return age < now - _ticks ? std::min(static_cast<double>(now - _ticks - age) / 1000.0, seconds()) : 0.0;
  }

 private:
  uint64_t _ticks = SDL_GetTicks64();
  uint64_t _counter = SDL_GetPerformanceCounter();
};
