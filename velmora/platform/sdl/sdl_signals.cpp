#include "velmora/platform/sdl/sdl_signals.h"

#include <atomic>
#include <cstdint>
#include <ctime>

namespace {

using Action = struct sigaction;

/// The toolkit's own actions; empty, which is the default action, until it installed one.
constinit VELSDLSignalActions toolkitActions{};

Action watching();

/// One request to end may come twice: `timeout` signals its child and then the group that the child is in.
constexpr int64_t kSameRequestNanoseconds = 250'000'000;

/// When each signal came first; 0 before.
constinit std::array<std::atomic<int64_t>, kVELSDLSignals.size()> firstComing{};
static_assert(std::atomic<int64_t>::is_always_lock_free, "they are read and written by the handler");

int64_t nowNanoseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

/// Tells the toolkit. A loop that does not turn any more must not keep the process from ending: a second
/// request does what the signal does by default.
extern "C" void onSignal(int signal, siginfo_t* info, void* context) {
  const size_t i = signal == kVELSDLSignals[0] ? 0 : 1;
  int64_t first = 0;
  const int64_t now = nowNanoseconds();
  if (!firstComing[i].compare_exchange_strong(first, now) && now - first > kSameRequestNanoseconds) {
    const Action byDefault{};
    sigaction(signal, &byDefault, nullptr);
    raise(signal);  // comes when this handler returns
    return;
  }
  const Action& toolkits = toolkitActions[i];
  if ((toolkits.sa_flags & SA_SIGINFO) != 0)
    toolkits.sa_sigaction(signal, info, context);
  else
    toolkits.sa_handler(signal);
  // The toolkit put its own handler back.
  const Action again = watching();
  sigaction(signal, &again, nullptr);
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
    firstComing[i] = 0;
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
