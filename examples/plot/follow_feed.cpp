#include "examples/plot/follow_feed.h"

#include <chrono>
#include <iostream>

namespace {

// Leaves most of a frame of a sixtieth of a second for the frame.
constexpr double kMostSeconds = 0.006;

double now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

FollowFeed::FollowFeed(const PlotOptions& options)
    : _options(options), _tail(options.file), _follower(options) {}

FollowFeed::State FollowFeed::turn() {
  const double end = now() + kMostSeconds;
  State state = State::Resting;
  for (double seconds = now(); seconds < end; seconds = now()) {
    const ByteTail::Piece piece = _tail.read();
    switch (piece.state) {
      case ByteTail::State::More:
        _follower.feed(piece.bytes, seconds);
        state = State::Flowing;
        break;
      case ByteTail::State::StartedOver:
        _follower.startOver();
        std::cerr << "velmora-plot: '" << sourceName(_options)
                  << "' was cut short or replaced; it is read from its beginning again.\n";
        break;
      case ByteTail::State::End:
        _follower.finish(seconds);
        return State::Ended;
      case ByteTail::State::Rest:
        _follower.wait(seconds);
        return state;
    }
  }
  return state;
}

void FollowFeed::stop() { _follower.choose(now()); }

void FollowFeed::tell() const {
  for (const std::string& note : _follower.notes()) std::cerr << "velmora-plot: " << note << '\n';
}
