// data/recycled.h: objects of every frame, in memory of the frame before.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>

/// Hands out single blocks that were given back before; asks the heap only where none is left. All allocators
/// of one type and thread share one store, which keeps at most `kMostKept` blocks until the thread ends.
template <class T>
class VELRecyclingAllocator {
 public:
  using value_type = T;
  static constexpr size_t kMostKept = 1024;

  VELRecyclingAllocator() = default;
  template <class Other>
  VELRecyclingAllocator(const VELRecyclingAllocator<Other>&) noexcept {}

  T* allocate(size_t count) {
    if (count != 1 || !_store.first) return static_cast<T*>(::operator new(count * sizeof(Block)));
    Block* const block = _store.first;
    _store.first = block->next;
    --_store.count;
    return reinterpret_cast<T*>(block);
  }
  void deallocate(T* memory, size_t count) noexcept {
    if (count != 1 || _store.count >= kMostKept || !isOpen()) return ::operator delete(memory);
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): made in place, it owns nothing.
    _store.first = ::new (static_cast<void*>(memory)) Block{_store.first};
    ++_store.count;
  }
  bool operator==(const VELRecyclingAllocator&) const = default;

 private:
  /// An idle block holds the way to the next one.
  union Block {
    Block* next;
    alignas(T) unsigned char memory[sizeof(T)];
  };
  static_assert(alignof(Block) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);

  /// Without a destructor: objects still come back while the thread ends, and then go to the heap.
  struct Store {
    Block* first = nullptr;
    size_t count = 0;
    bool isWatched = false;
    bool isClosed = false;
  };
  /// Empties and closes the store when the thread ends.
  struct Watch {
    ~Watch() {
      while (Block* const block = _store.first) {
        _store.first = block->next;
        ::operator delete(block);
      }
      _store.isClosed = true;
    }
  };

  static bool isOpen() noexcept {
    if (!_store.isWatched) {
      static thread_local Watch watch;
      _store.isWatched = true;
    }
    return !_store.isClosed;
  }

  static inline constinit thread_local Store _store{};
};

/// `std::make_shared` for objects that come and go with every frame.
template <class T, class... Arguments>
std::shared_ptr<T> VELMakeRecycled(Arguments&&... arguments) {
  return std::allocate_shared<T>(VELRecyclingAllocator<T>(), std::forward<Arguments>(arguments)...);
}
