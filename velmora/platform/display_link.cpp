#include "velmora/platform/display_link.h"

#include <algorithm>
#include <utility>

uint64_t VELDisplayLink::add(Callback callback, bool everyBeat) {
  _listeners.push_back({_nextKey, std::make_shared<const Callback>(std::move(callback)), everyBeat});
  return _nextKey++;
}

bool VELDisplayLink::isAwaited() const {
  return std::any_of(_listeners.begin(), _listeners.end(),
                     [](const Listener& listener) { return listener.everyBeat; });
}

void VELDisplayLink::remove(uint64_t key) {
  std::erase_if(_listeners, [key](const Listener& listener) { return listener.key == key; });
}

void VELDisplayLink::tick(double seconds) {
  _lastTick = seconds;
  // A listener may add or remove listeners: walk the keys known now and look each one up again.
  const uint64_t end = _nextKey;
  uint64_t done = 0;
  while (true) {
    const auto next = std::find_if(_listeners.begin(), _listeners.end(), [&](const Listener& listener) {
      return listener.key > done && listener.key < end;
    });
    if (next == _listeners.end()) return;
    done = next->key;
    const auto callback = next->callback;
    if (*callback) (*callback)(seconds);
  }
}
