// The whole program, from a file to a picture.
#include "examples/plot/picture.h"
#include "examples/plot/plot.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "examples/plot/plot_series.h"
#include "velmora/rendering/visual_style.h"

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

class Plot : public ::testing::Test {
 protected:
  void SetUp() override {
    _folder = fs::temp_directory_path() / ("velmora-plot-test-" + std::to_string(::getpid()));
    fs::create_directories(_folder);
    write("good.csv", "t,a,b\n0,1,5\n1,2,4\n2,0,6\n");
  }
  void TearDown() override { fs::remove_all(_folder); }

  void write(const std::string& name, const std::string& text) const {
    std::ofstream(_folder / name, std::ios::binary) << text;
  }
  std::string path(const std::string& name) const { return (_folder / name).string(); }

  /// Runs the program. @return exit code; its outputs are in `out` and `err`
  int run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "velmora-plot");
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

  std::string out, err;
  fs::path _folder;
};

TEST_F(Plot, BadInputEndsWithOneSentenceAndTouchesNothing) {
  write("empty.csv", "");
  write("header.csv", "a,b\n");
  write("words.csv", "a,b\nx,y\n");
  write("huge.csv", "a,b\n1,-1e308\n2,1e308\n");
  write("zeros.csv", "a,b\n1,0\n2,-1\n");
  write("dates.csv", "d,a\n2004-08-19,1\n2004-08-20,-2\n2004-08-21,0\n");
  write("old.png", "an older picture");
  const std::string dates = path("dates.csv");
  const std::string good = path("good.csv"), old = path("old.png");

  struct Row {
    std::vector<std::string> arguments;
    std::string says;
  };
  const Row rows[] = {
      {{}, "FILE.csv is required"},
      {{path("missing.csv")}, "missing.csv' cannot be read"},
      {{_folder.string()}, "is a directory"},
      {{path("empty.csv")}, "is empty"},
      {{path("header.csv")}, "no numeric column"},
      {{good, "--y", "c"}, "has no column 'c'; it has 't', 'a', 'b'"},
      {{good, "--size", "12"}, "'12' is not two positive numbers"},
      {{good, "--size", "1000000x100"}, "1000000"},
      {{good, "--scale", "1e300"}, "at most"},
      {{good, "--scale", "-2"}, "'-2' is not a positive number"},
      {{good, "--sise", "1x1"}, "--sise"},
      {{good, "--out", path("no/such/folder.png")}, "folder.png"},
      {{good, "--out", _folder.string()}, _folder.string()},
      {{good, "--out", good}, "would overwrite the data"},
      {{good, "--out", ""}, "name of the picture is empty"},
      {{path("huge.csv")}, "column 'b' of"},
      {{good, "--x", "t", "--category", "t"}, "--category and --x"},
      {{good, "--x", "t", "--y2", "a", "--y2", "b"}, "on the first Y axis"},
      {{good, "--tz", "Mars/Base"}, "Mars/Base"},
      {{good, "--locale", "xx_YY"}, "xx_YY"},
      {{dates, "--y", "d"}, "'d' of"},
      {{dates, "--log-x"}, "'d' of"},
      {{path("words.csv"), "--category", "a"}, "neither numbers nor dates"},
      {{path("zeros.csv"), "--log-y"}, "'b' of"},
  };
  for (const Row& row : rows) {
    std::vector<std::string> arguments = row.arguments;
    const bool namesOut = std::find(arguments.begin(), arguments.end(), "--out") != arguments.end();
    if (!namesOut) arguments.insert(arguments.end(), {"--out", old});
    EXPECT_EQ(run(arguments), 2) << row.says;
    EXPECT_NE(err.find(row.says), std::string::npos) << err;
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
    EXPECT_EQ(out, "");
    EXPECT_EQ(contentOf(old), "an older picture");
  }
  std::set<std::string> left;
  for (const auto& entry : fs::directory_iterator(_folder)) left.insert(entry.path().filename().string());
  EXPECT_EQ(left, (std::set<std::string>{"good.csv", "empty.csv", "header.csv", "words.csv", "huge.csv",
                                         "zeros.csv", "dates.csv", "old.png"}));
}

TEST_F(Plot, WritesAPictureOfSizeTimesScale) {
  // Options may stand before the file, and one --y takes one column.
  ASSERT_EQ(
      run({"--y", "a", path("good.csv"), "--out", path("chart.png"), "--size", "320x240", "--scale", "1.5"}),
      0)
      << err;
  EXPECT_EQ(err, "");
  EXPECT_NE(out.find("480 x 360"), std::string::npos);
  const auto picture = VELBitmap::readPng(path("chart.png"));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width(), 480);
  EXPECT_EQ(picture->height(), 360);
  EXPECT_TRUE(picture->isOpaque());
}

TEST_F(Plot, TellsOnceOfGaps) {
  write("gaps.csv", "t,a\n0,1\n1,\n2,x\n3,4\n4,4\n");
  ASSERT_EQ(run({path("gaps.csv"), "--out", path("gaps.png"), "--size", "320x240"}), 0);
  EXPECT_EQ(
      err,
      "velmora-plot: 2 cells are empty or not a number and left out of the lines; the first is in line 3.\n");
}

// Where the line of a colour has its highest value between its ends, from 0 to 1 along the X axis.
double peakPlace(const VELBitmap& picture, uint32_t color, bool isVertical) {
  int32_t first = INT32_MAX, last = -1, place = -1, highest = -1;
  for (int32_t y = 0; y < picture.height(); ++y)
    for (int32_t x = 0; x < picture.width(); ++x) {
      if (picture.colorCodeAt(x, y) != color) continue;
      const int32_t along = isVertical ? y : x, value = isVertical ? x : picture.height() - y;
      if (value > highest) place = along;
      highest = std::max(highest, value);
      first = std::min(first, along);
      last = std::max(last, along);
    }
  return last - first < 300 ? -1.0 : static_cast<double>(place - first) / static_cast<double>(last - first);
}

TEST_F(Plot, EveryKindOfXAxisPutsThePointsWhereTheirValuesSay) {
  write("peak.csv", "d,n,a\n2004-01-01,1,0\n2004-01-02,10,1\n2004-01-11,100,0\n");
  PlotColumns two;
  two.lines = {{"n", {}, {}, false}, {"a", {}, {}, true}};
  const std::vector<uint32_t> colors = lineColors(two);
  struct Row {
    std::vector<std::string> arguments;
    double place;
    uint32_t color;
  };
  const Row rows[] = {
      {{"--y", "a"}, 0.1, colors[0]},
      {{"--y", "a", "--flip-x"}, 0.9, colors[0]},
      {{"--y", "a", "--vertical"}, 0.1, colors[0]},
      {{"--y", "a", "--category", "d"}, 0.5, colors[0]},
      {{"--y", "a", "--x", "n"}, 9.0 / 99.0, colors[0]},
      {{"--y", "a", "--x", "n", "--log-x"}, 0.5, colors[0]},
      {{"--y", "n", "--y2", "a"}, 0.1, colors[1]},
  };
  for (const Row& row : rows) {
    std::vector<std::string> arguments = row.arguments;
    const bool isVertical = arguments.back() == "--vertical";
    arguments.insert(arguments.end(),
                     {path("peak.csv"), "--out", path("peak.png"), "--size", "640x400", "--scale", "2"});
    ASSERT_EQ(run(arguments), 0) << err;
    EXPECT_EQ(err, "");
    const double place = peakPlace(*VELBitmap::readPng(path("peak.png")), row.color, isVertical);
    EXPECT_NEAR(place, row.place, 0.015) << testing::PrintToString(row.arguments);
  }
}

TEST_F(Plot, ReductionCoversThePixelsThatAllPointsCover) {
  PlotColumns columns;
  columns.xName = "t";
  PlotLine line{"noise", {}, {}};
  uint32_t seed = 1;
  for (int i = 0; i < 40000; ++i) {
    seed = seed * 1664525u + 1013904223u;
    line.x.push_back(i);
    line.y.push_back(static_cast<double>(seed >> 8));
  }
  columns.lines.push_back(line);
  PlotOptions options;
  options.size = {400.0, 300.0};
  const VELBitmap reduced = drawPlot(columns, options);
  options.resampling = false;
  const VELBitmap full = drawPlot(columns, options);
  // What one picture covers in three columns, the other covers in those and their neighbours: a bucket is
  // half a column wide, so an extreme may cross the edge of a column. Two pixels are left for the tips, which
  // reach full colour sooner or later with the slope of their sides.
  const uint32_t color = VELVisualStyle::standard().seriesColor(0);
  const auto extent = [&](const VELBitmap& picture, int32_t x, int32_t reach) {
    int32_t top = picture.height(), bottom = -1;
    for (int32_t dx = -reach; dx <= reach; ++dx)
      for (int32_t y = 0; y < picture.height(); ++y)
        if (picture.colorCodeAt(x + dx, y) == color) {
          top = std::min(top, y);
          bottom = std::max(bottom, y);
        }
    return std::pair(top, bottom);
  };
  int columnsSeen = 0;
  for (int32_t x = 100; x < 380; ++x) {
    for (const auto& [inner, outer] : {std::pair(&full, &reduced), std::pair(&reduced, &full)}) {
      const auto [top, bottom] = extent(*inner, x, 1);
      const auto [outerTop, outerBottom] = extent(*outer, x, 2);
      ASSERT_GE(bottom, 0) << x;
      EXPECT_GE(top, outerTop - 2) << x;
      EXPECT_LE(bottom, outerBottom + 2) << x;
    }
    ++columnsSeen;
  }
  EXPECT_GT(columnsSeen, 200);
}

}  // namespace
