// platform/bitmap_test.cpp: pictures in memory and in files, and files that change as a whole or not at all.
#include "velmora/platform/bitmap.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "velmora/platform/file_replacement.h"

namespace {

namespace fs = std::filesystem;

/// A folder for one test, gone with it.
class Folder {
 public:
  Folder() : _path(fs::path(testing::TempDir()) / ("velmora-" + std::to_string(::getpid()))) {
    fs::create_directories(_path);
  }
  ~Folder() { fs::remove_all(_path); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  std::string file(const std::string& name) const { return (_path / name).string(); }
  ptrdiff_t count() const { return std::distance(fs::directory_iterator(_path), fs::directory_iterator()); }

 private:
  fs::path _path;
};

/// No file of this process grows beyond a size, so that writing fails in the middle.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : _handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &_before);
    const rlimit limit{bytes, _before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &_before);
    std::signal(SIGXFSZ, _handler);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*_handler)(int);
  rlimit _before{};
};

std::string contentsOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<uint8_t> bytes(std::string_view text) { return {text.begin(), text.end()}; }

VELBitmap noise(int32_t width, int32_t height) {
  VELBitmap bitmap(width, height);
  std::mt19937 random(1);
  for (size_t i = 0; i < bitmap.pixels().size(); ++i)
    bitmap.pixels()[i] = i % 4 == 3 ? uint8_t{255} : static_cast<uint8_t>(random());
  return bitmap;
}

}  // namespace

TEST(Bitmap, AnOpaquePictureComesBackFromItsFileBitByBit) {
  const Folder folder;
  for (const auto& [width, height] : {std::pair{1, 1}, {7, 3}, {256, 64}}) {
    const VELBitmap picture = noise(width, height);
    EXPECT_EQ(picture.writePng(folder.file("noise.png")), std::nullopt);
    EXPECT_EQ(VELBitmap::readPng(folder.file("noise.png")), picture) << width;
  }
  EXPECT_EQ(folder.count(), 1);
}

TEST(FileReplacement, AWriteThatFailsHalfwayLeavesTheOldFileAndNothingBesideIt) {
  const Folder folder;
  const std::string path = folder.file("old.png");
  ASSERT_EQ(VELReplaceFile(path, bytes("the old contents")), std::nullopt);
  {
    const FileSizeLimit limit(1000);
    const auto reason = noise(256, 256).writePng(path);
    ASSERT_TRUE(reason);
    EXPECT_NE(reason->find("'" + path + "'"), std::string::npos) << *reason;
  }
  EXPECT_EQ(contentsOf(path), "the old contents");
  EXPECT_EQ(folder.count(), 1);
}

TEST(FileReplacement, LinksStayLinksAndDevicesStayDevices) {
  const Folder folder;
  const std::string target = folder.file("target"), link = folder.file("link");
  ASSERT_EQ(VELReplaceFile(target, bytes("old")), std::nullopt);
  fs::create_symlink("target", link);
  EXPECT_EQ(VELReplaceFile(link, bytes("new")), std::nullopt);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(contentsOf(target), "new");
  EXPECT_EQ(VELReplaceFile("/dev/null", bytes("away")), std::nullopt);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_NE(VELReplaceFile("/dev/full", bytes("never")), std::nullopt);
}
