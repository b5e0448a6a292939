#include "velmora/data/raw_buffer.h"

#include <algorithm>
#include <new>

void VELRawBuffer::resize(size_t bytes) {
  void* moved = std::realloc(_bytes.get(), std::max<size_t>(bytes, 1));
  if (moved == nullptr) throw std::bad_alloc();
  // The allocator has already given the old block back or reused it.
  static_cast<void>(_bytes.release());
  _bytes.reset(moved);
}
