#include "examples/plot/follow.h"

#include <csignal>

#include "examples/plot/follow_feed.h"
#include "examples/plot/picture.h"
#include "examples/plot/plot_scene.h"

namespace {

constexpr double kMostWait = 0.1;  // seconds

volatile std::sig_atomic_t interrupted = 0;

extern "C" void onInterrupt(int) { interrupted = 1; }

// While it lives an interrupt ends the reading, not the process.
class InterruptScope {
 public:
  InterruptScope() {
    interrupted = 0;
    struct sigaction action = {};
    action.sa_handler = onInterrupt;  // without SA_RESTART: a wait ends at once
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGINT, &action, &_interrupt);
    ::sigaction(SIGTERM, &action, &_terminate);
  }
  InterruptScope(const InterruptScope&) = delete;
  InterruptScope& operator=(const InterruptScope&) = delete;
  ~InterruptScope() {
    ::sigaction(SIGINT, &_interrupt, nullptr);
    ::sigaction(SIGTERM, &_terminate, nullptr);
  }

 private:
  struct sigaction _interrupt = {};
  struct sigaction _terminate = {};
};

// An interrupt ends the reading and the picture is still written; a second one ends the process.
void readToEnd(FollowFeed& feed) {
  const InterruptScope scope;
  FollowFeed::State state;
  do {
    state = feed.turn();
    if (state == FollowFeed::State::Resting) feed.wait(kMostWait);
  } while (state != FollowFeed::State::Ended && !interrupted);
}

}  // namespace

void followToPicture(const PlotOptions& options) {
  FollowFeed feed(options);
  assertCanMakePicture(options);
  readToEnd(feed);
  feed.stop();
  feed.tell();
  const PlotFollower& follower = feed.follower();
  writePicture(drawFollowed(*follower.columns(), follower.data(), options), options);
}
