// plot/follow_feed.h: what brings the bytes of a growing file to its lines, a little at a time.
#pragma once

#include "examples/plot/byte_tail.h"
#include "examples/plot/options.h"
#include "examples/plot/plot_follower.h"

/// The reader of one file and the lines that it fills.
class FollowFeed {
 public:
  enum class State { Flowing, Resting, Ended };

  /// @throws PlotFailure when the file cannot be read
  explicit FollowFeed(const PlotOptions& options);

  /// Takes what is there, for a few milliseconds at most, so that frames keep coming.
  /// @throws PlotFailure when reading fails, or what was read cannot be drawn
  State turn();
  /// Blocks until there may be more, the time has passed, or a signal came.
  void wait(double seconds) const { _tail.wait(seconds); }

  /// No more is read: columns that were not chosen yet are chosen now; a row without its end is none.
  /// @throws PlotFailure when what was read cannot be drawn
  void stop();

  const PlotFollower& follower() const { return _follower; }
  /// Tells on standard error what was left out.
  void tell() const;

 private:
  PlotOptions _options;
  ByteTail _tail;
  PlotFollower _follower;
};
