// The whole program in a window, on an X server of its own.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "examples/plot/plot.h"
#include "tests/platform/x_screen.h"
#include "velmora/platform/gl_context.h"

namespace {

namespace fs = std::filesystem;

bool isSignalTaken() {
  struct sigaction action = {};
  return ::sigaction(SIGTERM, nullptr, &action) == 0 && action.sa_handler != SIG_DFL;
}

void pause() { std::this_thread::sleep_for(std::chrono::milliseconds(20)); }

// The connection of the process to its server outlives every window.
XScreen& screen() {
  static XScreen only;
  return only;
}

/// Runs the program while another hand, once its window is there, does what ends it.
/// @return the exit code
int runUntil(const std::vector<const char*>& argv, const std::function<void()>& end) {
  std::atomic<bool> isDone = false;
  std::thread hand([&] {
    while (!isDone && !(isSignalTaken() && screen().takeWindow("driven"))) pause();
    // Long enough to choose columns and to draw.
    if (!isDone) std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    if (!isDone) end();
  });
  const int code = runPlot(static_cast<int>(argv.size()), argv.data());
  isDone = true;
  hand.join();
  return code;
}

TEST(PlotWindow, EveryEndingOfAWindowIsAGoodOne) {
  if (!screen().failure().empty()) GTEST_SKIP() << screen().failure();
  // The driver stays loaded with it: what it keeps for itself the leak sanitizer knows by its name.
  const auto other = VELGLContext::create();
  const fs::path folder = fs::temp_directory_path() / ("velmora-window-test-" + std::to_string(::getpid()));
  fs::create_directories(folder);
  const std::string rows = "t,a\n0,0\n1,1,uneven\n2,0\n";
  const std::string file = (folder / "data.csv").string();
  std::ofstream(file) << rows;
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
  const int before = ::dup(STDIN_FILENO);
  ::dup2(ends[0], STDIN_FILENO);
  ASSERT_EQ(::write(ends[1], rows.data(), rows.size()), static_cast<ssize_t>(rows.size()));

  const struct {
    const char* name;
    std::string source;
    bool isFollowed;
    std::function<void()> end;
  } endings[] = {
      {"the end of the stream", "-", true, [&ends] { ::close(ends[1]); }},
      {"a closed window", file, true, [] { screen().askToClose(); }},
      {"a signal", file, true, [] { ::kill(::getpid(), SIGTERM); }},
      {"a closed window of a file read whole", file, false, [] { screen().askToClose(); }},
  };
  for (const auto& ending : endings) {
    std::vector<const char*> argv{"velmora-plot", ending.source.c_str(), "--title", "driven", "--size",
                                  "300x200"};
    if (ending.isFollowed) argv.push_back("--follow");
    bool wasEnded = false;
    testing::internal::CaptureStderr();
    const int code = runUntil(argv, [&] {
      wasEnded = true;
      ending.end();
    });
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(code, 0) << ending.name << ": " << err;
    EXPECT_TRUE(wasEnded) << ending.name << " came too late: " << err;
    const bool isTold = err.find("1 row has more or fewer fields") != std::string::npos;
    EXPECT_EQ(isTold, ending.isFollowed) << ending.name << ": " << err;
    EXPECT_FALSE(isSignalTaken()) << ending.name;
  }
  ::dup2(before, STDIN_FILENO);
  ::close(before);
  ::close(ends[0]);
  fs::remove_all(folder);
}

}  // namespace
