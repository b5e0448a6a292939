#include "tests/support/allocation_counter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<int64_t> allocations = 0;

// NOLINTBEGIN(cppcoreguidelines-owning-memory): these are the owners.
void* allocate(std::size_t bytes) noexcept {
  allocations.fetch_add(1, std::memory_order_relaxed);
  return std::malloc(bytes == 0 ? 1 : bytes);
}

void* allocateAligned(std::size_t bytes, std::align_val_t alignment) noexcept {
  allocations.fetch_add(1, std::memory_order_relaxed);
  const auto unit = static_cast<std::size_t>(alignment);
  if (bytes > SIZE_MAX - unit) return nullptr;
  // The C function wants a whole number of units.
  return std::aligned_alloc(unit, (bytes + unit) / unit * unit);
}

void* orThrow(void* memory) {
  if (!memory) throw std::bad_alloc();
  return memory;
}

}  // namespace

AllocationCounter::AllocationCounter() : _start(allocations) {}
int64_t AllocationCounter::count() const { return allocations - _start; }

void* operator new(std::size_t bytes) { return orThrow(allocate(bytes)); }
void* operator new[](std::size_t bytes) { return orThrow(allocate(bytes)); }
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept { return allocate(bytes); }
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept { return allocate(bytes); }
void* operator new(std::size_t bytes, std::align_val_t unit) { return orThrow(allocateAligned(bytes, unit)); }
void* operator new[](std::size_t bytes, std::align_val_t unit) {
  return orThrow(allocateAligned(bytes, unit));
}
void* operator new(std::size_t bytes, std::align_val_t unit, const std::nothrow_t&) noexcept {
  return allocateAligned(bytes, unit);
}
void* operator new[](std::size_t bytes, std::align_val_t unit, const std::nothrow_t&) noexcept {
  return allocateAligned(bytes, unit);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept { std::free(memory); }
// NOLINTEND(cppcoreguidelines-owning-memory)
