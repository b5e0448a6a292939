#include "velmora/platform/timer_list.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

/// NaN compares false and becomes the shortest.
double usable(double interval) {
  return interval > VELTimerList::shortestInterval ? interval : VELTimerList::shortestInterval;
}

}  // namespace

uint64_t VELTimerList::add(double interval, Callback callback, double now) {
  interval = usable(interval);
  _timers.push_back(
      {_nextKey, interval, now + interval, std::make_shared<const Callback>(std::move(callback))});
  return _nextKey++;
}

void VELTimerList::remove(uint64_t key) {
  std::erase_if(_timers, [key](const Timer& timer) { return timer.key == key; });
}

void VELTimerList::setInterval(uint64_t key, double interval, double now) {
  for (Timer& timer : _timers) {
    if (timer.key != key) continue;
    timer.interval = usable(interval);
    timer.due = now + timer.interval;
  }
}

double VELTimerList::nextDue() const {
  double due = std::numeric_limits<double>::infinity();
  for (const Timer& timer : _timers) due = std::min(due, timer.due);
  return due;
}

void VELTimerList::fire(double now) {
  // A timer is due at most once: whatever a call does, the next time of the one that was called lies ahead.
  while (true) {
    const auto first = std::min_element(_timers.begin(), _timers.end(),
                                        [](const Timer& a, const Timer& b) { return a.due < b.due; });
    if (first == _timers.end() || first->due > now) return;
    first->due += first->interval;
    if (!(first->due > now)) first->due = now + first->interval;
    const auto callback = first->callback;
    if (*callback) (*callback)(now);
  }
}
