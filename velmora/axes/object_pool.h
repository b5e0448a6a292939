// axes/object_pool.h: objects that are used again instead of made anew.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <utility>

/// Idle objects, handed out in the order in which they came back.
template <class T>
class VELObjectPool {
 public:
  /// Makes one object. An empty one raises std::bad_function_call when it is needed.
  using Factory = std::function<std::shared_ptr<T>()>;

  VELObjectPool() = default;
  /// Starts with @p count objects made by @p action; a negative count is 0.
  VELObjectPool(int64_t count, const Factory& action) {
    for (int64_t i = 0; i < count; ++i) put(create(action));
  }

  /// The object that has been idle longest, else a new one.
  std::shared_ptr<T> getWithAction(const Factory& action) {
    if (_queue.empty()) return create(action);
    auto object = std::move(_queue.front());
    _queue.pop_front();
    return object;
  }

  /// As above for a default-made object of a class. One is made even when an idle object serves and it is
  /// dropped; meant so, `getWithAction` is the way without.
  template <class Type = T>
  std::shared_ptr<T> getWithType() {
    std::shared_ptr<T> made = std::make_shared<Type>();
    return getWithAction([&made] { return std::move(made); });
  }

  /// Takes an object back; null is ignored.
  void put(std::shared_ptr<T> object) {
    if (object) _queue.push_back(std::move(object));
  }

  /// Objects that the pool has made so far.
  int64_t count() const { return _count; }
  /// Objects that are idle.
  int64_t availableCount() const { return static_cast<int64_t>(_queue.size()); }
  bool isEmpty() const { return _queue.empty(); }

 private:
  std::shared_ptr<T> create(const Factory& action) {
    ++_count;
    return action();
  }

  std::deque<std::shared_ptr<T>> _queue;
  int64_t _count = 0;
};
