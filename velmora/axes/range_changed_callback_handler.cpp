#include "velmora/axes/range_changed_callback_handler.h"

#include <algorithm>
#include <utility>

namespace {

// Raised while blocks are told, and let go when one of them raises.
class NotifyingFlag {
 public:
  explicit NotifyingFlag(bool& flag) : _flag(flag) { _flag = true; }
  NotifyingFlag(const NotifyingFlag&) = delete;
  NotifyingFlag& operator=(const NotifyingFlag&) = delete;
  ~NotifyingFlag() { _flag = false; }

 private:
  bool& _flag;
};

}  // namespace

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
  const NotifyingFlag notifying(_isNotifying);
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
