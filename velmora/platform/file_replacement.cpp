#include "velmora/platform/file_replacement.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace {

namespace fs = std::filesystem;

std::string sentence(const std::string& path, const std::string& reason) {
  return "Cannot write '" + path + "': " + reason +
         "; name a file in a folder that exists and may be written.";
}

std::string errorText(int error) { return std::generic_category().message(error); }

/// An open file; closes it.
class File {
 public:
  File(const std::string& path, int flags) : _descriptor(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() { close(); }

  bool isOpen() const { return _descriptor >= 0; }
  bool write(std::span<const uint8_t> bytes) {
    while (!bytes.empty()) {
      const ssize_t done = ::write(_descriptor, bytes.data(), bytes.size());
      if (done < 0 && errno == EINTR) continue;
      if (done < 0) return false;
      bytes = bytes.subspan(static_cast<size_t>(done));
    }
    return true;
  }
  bool sync() { return ::fsync(_descriptor) == 0; }
  bool close() {
    const int descriptor = _descriptor;
    _descriptor = -1;
    return descriptor < 0 || ::close(descriptor) == 0;
  }

 private:
  int _descriptor;
};

std::optional<std::string> writeThrough(const std::string& path, std::span<const uint8_t> contents) {
  File file(path, O_WRONLY);
  if (file.isOpen() && file.write(contents) && file.close()) return std::nullopt;
  return sentence(path, errorText(errno));
}

std::optional<std::string> writeBeside(const std::string& path, const std::string& target,
                                       std::span<const uint8_t> contents) {
  // The process id keeps two programs that write the same file out of each other's way.
  const std::string beside = target + "." + std::to_string(::getpid()) + ".part";
  int error = 0;
  {
    File file(beside, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
    if (!file.isOpen()) return sentence(path, errorText(errno));
    if (!file.write(contents) || !file.sync() || !file.close()) error = errno;
  }
  if (error == 0 && ::rename(beside.c_str(), target.c_str()) != 0) error = errno;
  if (error == 0) return std::nullopt;
  ::unlink(beside.c_str());
  return sentence(path, errorText(error));
}

}  // namespace

std::optional<std::string> VELReplaceFile(const std::string& path, std::span<const uint8_t> contents) {
  if (path.empty()) return sentence(path, "it has no name");
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::is_directory(status)) return sentence(path, "it is a directory");
  if (fs::exists(status) && !fs::is_regular_file(status)) return writeThrough(path, contents);
  if (!fs::is_symlink(fs::symlink_status(path, error))) return writeBeside(path, path, contents);
  const fs::path target = fs::weakly_canonical(path, error);
  if (error) return sentence(path, error.message());
  return writeBeside(path, target.string(), contents);
}
