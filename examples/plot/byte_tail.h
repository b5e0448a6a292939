// plot/byte_tail.h: the bytes of a file that grows, or of the standard input, without waiting for them.
#pragma once

#include <sys/types.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <string_view>

/// Reads a file as it grows. A pipe or a device is read to its end.
class ByteTail {
 public:
  enum class State {
    More,         ///< bytes were there
    Rest,         ///< none now
    StartedOver,  ///< the file was cut short or another one took its place: it is read from its beginning now
    End,          ///< there will be no more
  };
  struct Piece {
    State state;
    std::string_view bytes;  ///< until the next call
  };

  /// @param path kStandardInput for the standard input
  /// @throws PlotFailure when it cannot be read
  explicit ByteTail(const std::filesystem::path& path);
  ByteTail(const ByteTail&) = delete;
  ByteTail& operator=(const ByteTail&) = delete;
  ~ByteTail();

  /// The next bytes, a few KiB at most, so that who waits for a frame need not wait long; never blocks.
  /// @throws PlotFailure when reading fails
  Piece read();
  /// Blocks until there may be more, the time has passed, or a signal came.
  void wait(double seconds) const;

 private:
  /// Whether bytes can be had now, or their end.
  bool isReadable(int milliseconds) const;
  /// What a file does at its end: rest, or start over.
  Piece atEnd();
  bool wasReplaced() const;

  std::filesystem::path _path;
  int _file = -1;
  bool _isOwned = false;
  bool _isPlainFile = false;
  off_t _position = 0;
  std::array<char, 8192> _buffer{};
};
