#include "velmora/platform/sdl/sdl_signals.h"

namespace {

using Action = struct sigaction;

/// The toolkit's own actions; empty, which is the default action, until it installed one.
constinit VELSDLSignalActions toolkitActions{};

/// Tells the toolkit, once: a loop that does not turn any more must not keep the process from ending, so the
/// next signal does what it does by default.
extern "C" void onSignal(int signal, siginfo_t* info, void* context) {
  const Action& toolkits = toolkitActions[signal == kVELSDLSignals[0] ? 0 : 1];
  if ((toolkits.sa_flags & SA_SIGINFO) != 0)
    toolkits.sa_sigaction(signal, info, context);
  else
    toolkits.sa_handler(signal);
  const Action byDefault{};
  sigaction(signal, &byDefault, nullptr);
}

Action watching() {
  Action action{};
  action.sa_sigaction = onSignal;
  action.sa_flags = SA_SIGINFO;
  return action;
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
    toolkitActions[i] = now;
    sigaction(kVELSDLSignals[i], &_saved[i], nullptr);
  }
}

void VELSDLSignalWatch::start() {
  for (size_t i = 0; i < _isTaken.size(); ++i) {
    if (_isTaken[i] || isDefault(toolkitActions[i]) || !isDefault(current(kVELSDLSignals[i]))) continue;
    const Action action = watching();
    _isTaken[i] = sigaction(kVELSDLSignals[i], &action, nullptr) == 0;
  }
}

void VELSDLSignalWatch::stop() {
  for (size_t i = 0; i < _isTaken.size(); ++i) {
    const Action byDefault{};
    if (_isTaken[i] && isSame(current(kVELSDLSignals[i]), watching()))
      sigaction(kVELSDLSignals[i], &byDefault, nullptr);
    _isTaken[i] = false;
  }
}
