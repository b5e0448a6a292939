#include "velmora/data/display_list.h"

#include <cstddef>

void VELDisplayList::add(const std::shared_ptr<VELInvalidatableElement>& display) {
  if (!display) return;
  for (const auto& listed : _displays) {
    if (listed.lock() == display) return;
    // A display that dies cannot take itself away, and a series that never changes never tells.
    if (listed.expired()) _hasForgotten = true;
  }
  if (_telling == 0) dropForgotten();
  _displays.push_back(display);
}

void VELDisplayList::remove(const VELInvalidatableElement* display) {
  for (auto& listed : _displays) {
    if (display == nullptr || listed.lock().get() != display) continue;
    // Only emptied: places must not move while the list is being told.
    listed.reset();
    _hasForgotten = true;
  }
  if (_telling == 0) dropForgotten();
}

void VELDisplayList::invalidateAll() {
  if (_displays.empty()) return;
  struct Telling {
    explicit Telling(int32_t& depth) : depth(depth) { ++depth; }
    ~Telling() { --depth; }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;
    int32_t& depth;
  };
  {
    const Telling telling(_telling);
    const size_t count = _displays.size();
    for (size_t i = 0; i < count; ++i) {
      if (const auto display = _displays[i].lock()) {
        display->invalidateElement();
      } else {
        _hasForgotten = true;
      }
    }
  }
  if (_telling == 0) dropForgotten();
}

void VELDisplayList::dropForgotten() {
  if (!_hasForgotten) return;
  std::erase_if(_displays, [](const auto& listed) { return listed.expired(); });
  _hasForgotten = false;
}
