// platform/display_link.h: the beat of the display.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "velmora/platform/export.h"

/// Calls its listeners once per display refresh. The host drives it: a window at every refresh, an
/// off-screen host by hand. Time is handed in, never read.
class VELMORA_API VELDisplayLink {
 public:
  using Callback = std::function<void(double seconds)>;

  /// Adds a listener. @return its key for `remove`, never 0
  /// @param everyBeat true keeps the display beating for as long as the listener is there, as an animation
  ///        does; else a display at rest may stay at rest
  uint64_t add(Callback callback, bool everyBeat = false);
  /// Also from inside a call; an unknown key does nothing.
  void remove(uint64_t key);
  /// One refresh at a time in seconds, of any origin, never going back. The caller holds the link until the
  /// call ends: a listener may let go of everyone else who does.
  void tick(double seconds);
  /// True while a listener wants every beat.
  bool isAwaited() const;
  /// Time of the last tick; 0 before the first.
  double lastTick() const { return _lastTick; }

 private:
  struct Listener {
    uint64_t key;
    std::shared_ptr<const Callback> callback;  ///< shared, so that a tick copies no closure
    bool everyBeat;
  };
  std::vector<Listener> _listeners;
  uint64_t _nextKey = 1;
  double _lastTick = 0.0;
};
