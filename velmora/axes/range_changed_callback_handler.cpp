#include "velmora/axes/range_changed_callback_handler.h"
#include "velmora/platform/scoped_mark.h"

#include <algorithm>
#include <utility>

uint64_t VELRangeChangedCallbackHandler::add(Block block) {
  _entries.push_back({_nextKey, std::make_shared<const Block>(std::move(block))});
  return _nextKey++;
}

void VELRangeChangedCallbackHandler::remove(uint64_t key) {
  std::erase_if(_entries, [key](const Entry& entry) { return entry.key == key; });
}

void VELRangeChangedCallbackHandler::notify(const VELRangePtr& oldRange, const VELRangePtr& newRange,
                                            bool isAnimationChange) {
  _pending = {newRange, isAnimationChange};
  _hasPending = true;
  if (_isNotifying) return;
  const VELScopedMark notifying(_isNotifying);
  VELRangePtr former = oldRange;
  for (int round = 0; round < maxRounds && std::exchange(_hasPending, false); ++round) {
    const Change change = _pending;
    tellAll(former, change);
    former = change.range;
  }
  _hasPending = false;
  _pending = {};
}

void VELRangeChangedCallbackHandler::tellAll(const VELRangePtr& oldRange, const Change& change) {
  // Blocks may add and remove blocks: walk the keys known now and look each one up again.
  const uint64_t end = _nextKey;
  uint64_t done = 0;
  while (true) {
    const auto next = std::find_if(_entries.begin(), _entries.end(),
                                   [&](const Entry& entry) { return entry.key > done && entry.key < end; });
    if (next == _entries.end()) return;
    done = next->key;
    const auto block = next->block;
    if (*block) (*block)(oldRange, change.range, change.isAnimation);
  }
}
