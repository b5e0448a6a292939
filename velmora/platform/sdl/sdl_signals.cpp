#include "velmora/platform/sdl/sdl_signals.h"

namespace {

using Action = struct sigaction;

/// The toolkit's own actions; empty, which is the default action, until it installed one.
VELSDLSignalActions& toolkitActions() {
  static VELSDLSignalActions actions{};
  return actions;
}

Action current(int signal) {
  Action action{};
  sigaction(signal, nullptr, &action);
  return action;
}

bool isSame(const Action& a, const Action& b) {
  const bool tellsMore = (a.sa_flags & SA_SIGINFO) != 0;
  if (tellsMore != ((b.sa_flags & SA_SIGINFO) != 0)) return false;
  return tellsMore ? a.sa_sigaction == b.sa_sigaction : a.sa_handler == b.sa_handler;
}

bool isDefault(const Action& action) { return isSame(action, Action{}); }

}  // namespace

VELSDLSignalKeeper::VELSDLSignalKeeper() {
  for (size_t i = 0; i < _saved.size(); ++i) _saved[i] = current(kVELSDLSignals[i]);
}

VELSDLSignalKeeper::~VELSDLSignalKeeper() {
  for (size_t i = 0; i < _saved.size(); ++i) {
    const Action now = current(kVELSDLSignals[i]);
    if (isSame(now, _saved[i])) continue;
    toolkitActions()[i] = now;
    sigaction(kVELSDLSignals[i], &_saved[i], nullptr);
  }
}

void VELSDLSignalWatch::start() {
  for (size_t i = 0; i < _saved.size(); ++i) {
    const Action& toolkits = toolkitActions()[i];
    const Action now = current(kVELSDLSignals[i]);
    if (_isTaken[i] || isDefault(toolkits) || !isDefault(now)) continue;
    _saved[i] = now;
    _isTaken[i] = sigaction(kVELSDLSignals[i], &toolkits, nullptr) == 0;
  }
}

void VELSDLSignalWatch::stop() {
  for (size_t i = 0; i < _saved.size(); ++i) {
    if (_isTaken[i] && isSame(current(kVELSDLSignals[i]), toolkitActions()[i]))
      sigaction(kVELSDLSignals[i], &_saved[i], nullptr);
    _isTaken[i] = false;
  }
}
