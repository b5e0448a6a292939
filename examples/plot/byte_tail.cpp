#include "examples/plot/byte_tail.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <string>

#include "examples/plot/csv_table.h"
#include "examples/plot/failure.h"

namespace {

std::string nameOf(const std::filesystem::path& path) {
  return path == kStandardInput ? "The standard input" : "'" + path.string() + "'";
}

// Opening a named pipe would else wait for someone who writes.
int openForReading(const std::filesystem::path& path) {
  return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
}

bool isPlain(const struct stat& status) { return S_ISREG(status.st_mode); }

}  // namespace

ByteTail::ByteTail(const std::filesystem::path& path) : _path(path) {
  const bool isStandardInput = path == kStandardInput;
  _file = isStandardInput ? STDIN_FILENO : openForReading(path);
  struct stat status = {};
  if (_file < 0 || ::fstat(_file, &status) != 0) {
    const int reason = errno;
    if (_file >= 0 && !isStandardInput) ::close(_file);
    throw PlotFailure(nameOf(path) + " cannot be read (" + std::strerror(reason) +
                      "); give a CSV file that exists and is readable.");
  }
  _isOwned = !isStandardInput;
  _isPlainFile = isPlain(status) && !isStandardInput;
  if (!S_ISDIR(status.st_mode)) return;
  if (_isOwned) ::close(_file);
  throw PlotFailure(nameOf(path) + " is a directory; give a CSV file.");
}

ByteTail::~ByteTail() {
  if (_isOwned) ::close(_file);
}

bool ByteTail::isReadable(int milliseconds) const {
  pollfd poll{_file, POLLIN, 0};
  return ::poll(&poll, 1, milliseconds) > 0;
}

bool ByteTail::wasReplaced() const {
  struct stat open = {};
  struct stat named = {};
  if (::fstat(_file, &open) != 0 || ::stat(_path.c_str(), &named) != 0 || !isPlain(named)) return false;
  return open.st_dev != named.st_dev || open.st_ino != named.st_ino;
}

ByteTail::Piece ByteTail::atEnd() {
  if (!_isPlainFile) return {State::End, {}};
  struct stat status = {};
  const bool wasCut = ::fstat(_file, &status) == 0 && status.st_size < _position;
  if (!wasCut && !wasReplaced()) return {State::Rest, {}};
  if (wasCut) {
    if (::lseek(_file, 0, SEEK_SET) != 0) return {State::End, {}};
  } else {
    const int next = openForReading(_path);
    if (next < 0) return {State::Rest, {}};  // between two names, or not yet readable
    ::close(_file);
    _file = next;
  }
  _position = 0;
  return {State::StartedOver, {}};
}

ByteTail::Piece ByteTail::read() {
  if (!_isPlainFile && !isReadable(0)) return {State::Rest, {}};
  const ssize_t count = ::read(_file, _buffer.data(), _buffer.size());
  if (count == 0) return atEnd();
  if (count < 0) {
    if (errno == EAGAIN || errno == EINTR) return {State::Rest, {}};
    throw PlotFailure(nameOf(_path) + " cannot be read on (" + std::strerror(errno) +
                      "); check the device that holds it.");
  }
  _position += count;
  return {State::More, {_buffer.data(), static_cast<size_t>(count)}};
}

void ByteTail::wait(double seconds) const {
  const int milliseconds = static_cast<int>(std::ceil(seconds * 1000.0));
  // A plain file is always readable, also at its end.
  if (_isPlainFile)
    ::poll(nullptr, 0, milliseconds);
  else
    static_cast<void>(isReadable(milliseconds));
}
