// platform/timer_list.h: what a loop calls at intervals.
//
// Units: seconds of any clock that does not go back.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "velmora/platform/export.h"

/// Repeating timers. Time is handed in, never read; the owner calls `fire` when `nextDue` has come.
class VELMORA_API VELTimerList {
 public:
  using Callback = std::function<void(double seconds)>;

  /// Smaller intervals, and NaN, are raised to this one: a loop must come to its other work.
  static constexpr double shortestInterval = 0.001;

  /// First due one interval after @p now; infinity is never. @return its key, never 0
  uint64_t add(double interval, Callback callback, double now);
  /// Also from inside a call; an unknown key does nothing.
  void remove(uint64_t key);
  /// Due next one new interval after @p now. An unknown key does nothing.
  void setInterval(uint64_t key, double interval, double now);
  /// When the next timer is due; infinity when none is.
  double nextDue() const;
  /// Calls once each timer that is due, the longest due first. Intervals follow one another without drift;
  /// those that passed altogether are left out. The caller holds the list until the call ends.
  void fire(double now);

 private:
  struct Timer {
    uint64_t key;
    double interval;
    double due;
    std::shared_ptr<const Callback> callback;  ///< shared, so that it outlives its own removal
  };

  std::vector<Timer> _timers;
  uint64_t _nextKey = 1;
};
