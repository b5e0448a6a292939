#include "velmora/platform/frame_pacer.h"

#include <algorithm>
#include <cmath>

namespace {

// Two exchanges closer than this part of a period did not wait for the display.
constexpr double kShort = 0.75;
// A driver with a queue of frames lets the first few through even when it waits.
constexpr int kMostShort = 3;

}  // namespace

void VELFramePacer::setDisplay(double period, bool isSynchronised) {
  _period = period > 0.0 && std::isfinite(period) ? period : 1.0 / 60.0;
  _isSynchronised = isSynchronised;
  _exchangePaces = false;
  _shortExchanges = 0;
}

void VELFramePacer::beat(double now) {
  _exchangePaces = false;
  const double next = _due + _period;
  _due = next > now ? std::min(next, now + _period) : now + _period;
}

void VELFramePacer::exchanged(double now) {
  const bool isShort = now - _exchanged < kShort * _period;
  _exchanged = now;
  // Once the promise was found broken it stays so: on the grid every exchange is a long one and proves
  // nothing.
  if (_shortExchanges > kMostShort) return;
  _shortExchanges = isShort ? _shortExchanges + 1 : 0;
  _exchangePaces = _isSynchronised && _shortExchanges <= kMostShort;
}
