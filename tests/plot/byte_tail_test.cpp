// The bytes of files that grow, shrink and change places.
#include "examples/plot/byte_tail.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using State = ByteTail::State;

class ByteTailTest : public ::testing::Test {
 protected:
  void SetUp() override {
    _folder = fs::temp_directory_path() / ("velmora-tail-test-" + std::to_string(::getpid()));
    fs::create_directories(_folder);
  }
  void TearDown() override { fs::remove_all(_folder); }
  void write(const std::string& name, const std::string& text,
             std::ios::openmode mode = std::ios::out) const {
    std::ofstream(_folder / name, mode) << text;
  }
  fs::path _folder;
};

void expectPiece(ByteTail& tail, State state, const std::string& bytes = {}) {
  const ByteTail::Piece piece = tail.read();
  EXPECT_EQ(static_cast<int>(piece.state), static_cast<int>(state));
  EXPECT_EQ(piece.bytes, bytes);
}

TEST_F(ByteTailTest, AFileIsReadAsItGrowsAndFromItsBeginningWhenItStartsOver) {
  write("f", "one");
  ByteTail tail(_folder / "f");
  expectPiece(tail, State::More, "one");
  expectPiece(tail, State::Rest);
  write("f", " two", std::ios::app);
  expectPiece(tail, State::More, " two");
  write("f", "cut");
  expectPiece(tail, State::StartedOver);
  expectPiece(tail, State::More, "cut");

  fs::rename(_folder / "f", _folder / "f.1");
  expectPiece(tail, State::Rest);  // the name may come back
  write("f.1", " end", std::ios::app);
  write("f", "next");
  expectPiece(tail, State::More, " end");  // what was left in the old one first
  expectPiece(tail, State::StartedOver);
  expectPiece(tail, State::More, "next");
  expectPiece(tail, State::Rest);
}

TEST_F(ByteTailTest, APipeEndsWhenItsLastWriterIsGoneAndNotBefore) {
  const fs::path pipe = _folder / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  ByteTail tail(pipe);
  expectPiece(tail, State::Rest);
  const int writer = ::open(pipe.c_str(), O_WRONLY | O_NONBLOCK);
  ASSERT_GE(writer, 0);
  expectPiece(tail, State::Rest);
  ASSERT_EQ(::write(writer, "row", 3), 3);
  expectPiece(tail, State::More, "row");
  ::close(writer);
  expectPiece(tail, State::End);
}

}  // namespace
