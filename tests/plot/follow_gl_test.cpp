// The whole program while its data grows, without a window.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "examples/plot/plot.h"
#include "velmora/platform/bitmap.h"
#include "velmora/rendering/visual_style.h"

namespace {

namespace fs = std::filesystem;

class Follow : public ::testing::Test {
 protected:
  void SetUp() override {
    _folder = fs::temp_directory_path() / ("velmora-follow-test-" + std::to_string(::getpid()));
    fs::create_directories(_folder);
    // A step whose low half is older than the newest 50 rows.
    std::ofstream file(_folder / "step.csv");
    file << "t,a\n";
    for (int i = 0; i < 200; ++i) file << i << ',' << (i < 150 ? 0 : 7 + i % 2) << '\n';
    file << "200,7";
  }
  void TearDown() override { fs::remove_all(_folder); }

  int run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"velmora-plot", "--follow"});
    const std::pair<const char*, std::string> usual[] = {{"--out", picture().string()},
                                                         {"--size", "400x300"}};
    for (const auto& [option, value] : usual)
      if (std::ranges::find(arguments, option) == arguments.end())
        arguments.insert(arguments.end(), {option, value});
    std::vector<const char*> argv;
    argv.reserve(arguments.size());
    for (const std::string& argument : arguments) argv.push_back(argument.c_str());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int code = runPlot(static_cast<int>(argv.size()), argv.data());
    out = testing::internal::GetCapturedStdout();
    err = testing::internal::GetCapturedStderr();
    return code;
  }
  fs::path picture() const { return _folder / "chart.png"; }
  /// Pixels of the line's colour.
  int64_t linePixels() const {
    const auto drawn = VELBitmap::readPng(picture().string());
    if (!drawn) return -1;
    int64_t count = 0;
    for (int32_t y = 0; y < drawn->height(); ++y)
      for (int32_t x = 0; x < drawn->width(); ++x)
        count += drawn->colorCodeAt(x, y) == VELVisualStyle::standard().seriesColor(0);
    return count;
  }

  std::string out, err;
  fs::path _folder;
};

TEST_F(Follow, TheEndOfTheStandardInputWritesThePictureOfTheNewestPoints) {
  const int before = ::dup(STDIN_FILENO);
  int64_t pixels[2] = {};
  for (const bool isWhole : {false, true}) {
    const int file = ::open((_folder / "step.csv").c_str(), O_RDONLY);
    ASSERT_EQ(::dup2(file, STDIN_FILENO), STDIN_FILENO);
    ::close(file);
    ASSERT_EQ(run({"-", "--capacity", isWhole ? "1000" : "50"}), 0) << err;
    EXPECT_EQ(err, "");
    pixels[isWhole] = linePixels();
  }
  ::dup2(before, STDIN_FILENO);
  ::close(before);
  // Fifty rows of a zigzag fill the chart; the whole file is a flat line for three quarters of it.
  EXPECT_GT(pixels[1], 0);
  EXPECT_GT(pixels[0], 2 * pixels[1]);
}

TEST_F(Follow, AnInterruptEndsTheReadingOfAFileAndWritesThePicture) {
  std::signal(SIGINT, SIG_IGN);  // until the program takes it
  std::atomic<bool> isDone = false;
  std::thread interrupter([&isDone] {
    while (!isDone) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      ::kill(::getpid(), SIGINT);
    }
  });
  // Rows come before signals: the columns are chosen with the first piece.
  const int code = run({(_folder / "step.csv").string(), "--capacity", "50"});
  isDone = true;
  interrupter.join();
  std::signal(SIGINT, SIG_DFL);
  EXPECT_EQ(code, 0) << err;
  EXPECT_GT(linePixels(), 100);
  EXPECT_NE(out.find("400 x 300"), std::string::npos);
}

TEST_F(Follow, WhatCannotBeFollowedEndsWithOneSentence) {
  const std::string step = (_folder / "step.csv").string();
  const struct {
    std::vector<std::string> arguments;
    std::string says;
  } rows[] = {
      {{step, "--capacity", "1"}, "'1' is not a number of points from 2 on"},
      {{step, "--capacity", "1e18"}, "than the memory of this machine"},
      {{step, "--category", "t"}, "--category has no meaning with --follow"},
      {{(_folder / "missing.csv").string()}, "missing.csv' cannot be read"},
      {{step, "--out", _folder.string()}, "Is a directory"},
      {{step, "--out", step}, "would overwrite the data"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(run(row.arguments), 2);
    EXPECT_NE(err.find(row.says), std::string::npos) << err;
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
    EXPECT_FALSE(fs::exists(picture()));
  }
}

}  // namespace
