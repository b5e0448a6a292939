// axes/range_changed_callback_handler.h: who is told that a visible range is another one.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "velmora/data/range.h"
#include "velmora/platform/export.h"

/// Blocks that want to know of a changed visible range.
///
/// A block may add and remove blocks, change the range again, let go of the axis, and raise. A change out of
/// a block is told to all blocks after the present round, from the range of that round to the latest one;
/// after `maxRounds` rounds no more, so that two axes that answer each other for ever still come to an end.
class VELMORA_API VELRangeChangedCallbackHandler {
 public:
  /// Both ranges are copies and may be null for none.
  using Block =
      std::function<void(const VELRangePtr& oldRange, const VELRangePtr& newRange, bool isAnimationChange)>;
  static constexpr int maxRounds = 8;

  /// @return the key for `remove`, never 0
  uint64_t add(Block block);
  /// An unknown key does nothing.
  void remove(uint64_t key);
  bool isEmpty() const { return _entries.empty(); }

  /// Tells all blocks; out of a block it is told later, see above. The caller holds the handler until it
  /// returns. @param oldRange, newRange kept for the call, not copied
  void notify(const VELRangePtr& oldRange, const VELRangePtr& newRange, bool isAnimationChange);

 private:
  struct Entry {
    uint64_t key;
    std::shared_ptr<const Block> block;
  };

  struct Change {
    VELRangePtr range;
    bool isAnimation = false;
  };

  void tellAll(const VELRangePtr& oldRange, const Change& change);

  std::vector<Entry> _entries;
  uint64_t _nextKey = 1;
  bool _isNotifying = false;
  bool _hasPending = false;
  Change _pending;  ///< the latest change that was not told yet
};
