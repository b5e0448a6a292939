// data/raw_buffer.h: who owns the bytes of a column.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

#include "velmora/platform/export.h"

/// Bytes of the C allocator, uninitialised on purpose: a column is written once, not cleared and then
/// written.
///
/// Always true: moved, never copied; freed with its owner.
class VELMORA_API VELRawBuffer {
 public:
  void* data() { return _bytes.get(); }
  const void* data() const { return _bytes.get(); }

  /// Makes room for @p bytes bytes, at least 1, and keeps those that fit.
  /// @throws std::bad_alloc when there is no room; the old bytes stay
  void resize(size_t bytes);
  void free() { _bytes.reset(); }

 private:
  struct Free {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): this is the owner, and realloc's memory goes back so.
    void operator()(void* bytes) const { std::free(bytes); }
  };
  std::unique_ptr<void, Free> _bytes;
};
