// rendering/command_pool.h: command objects that are used again frame after frame.
#pragma once

#include <cstddef>
#include <deque>
#include <utility>

/// Commands of one class at stable addresses. Once a frame of the same size was recorded, none is allocated.
template <typename Command>
class VELCommandPool {
 public:
  /// A command with the given value. @return valid until `clear`
  Command& add(Command command) {
    if (_used == _commands.size()) return ++_used, _commands.emplace_back(std::move(command));
    return _commands[_used++] = std::move(command);
  }
  /// Takes every command back; what they held is let go.
  void clear() {
    for (size_t i = 0; i < _used; ++i) _commands[i] = Command();
    _used = 0;
  }

 private:
  std::deque<Command> _commands;
  size_t _used = 0;
};
