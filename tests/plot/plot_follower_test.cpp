// Lines that take the rows of a growing text.
#include "examples/plot/plot_follower.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "examples/plot/csv_table.h"
#include "examples/plot/failure.h"
#include "tests/support/allocation_counter.h"

namespace {

using Points = std::vector<std::pair<double, double>>;

// Gaps as a number that no row holds, so that points compare.
double orGap(double value) { return std::isnan(value) ? -12345.0 : value; }

Points pointsOf(const VELXyDataSeries& data) {
  Points points;
  for (int64_t i = 0; i < data.count(); ++i)
    points.emplace_back(VELGenericDouble(data.xValues()->valueAt(i)),
                        orGap(VELGenericDouble(data.yValues()->valueAt(i))));
  return points;
}

Points pointsOf(const PlotLine& line) {
  Points points;
  for (size_t i = 0; i < line.x.size(); ++i) points.emplace_back(line.x[i], orGap(line.y[i]));
  return points;
}

PlotOptions optionsFor(int32_t capacity = 1000) {
  PlotOptions options;
  options.file = "data.csv";
  options.timeZone = "Europe/Berlin";
  options.capacity = capacity;
  return options;
}

std::string sentencesOf(const PlotFollower& follower) {
  std::string all;
  for (const std::string& note : follower.notes()) all += note;
  return all;
}

// A follower past its choice: columns t and a, with one row.
struct Followed {
  explicit Followed(int32_t capacity) : follower(optionsFor(capacity)) {
    follower.feed("t,a\n0,0\n", 0.0);
    follower.wait(1.0);
  }
  Points points() const { return pointsOf(*follower.data()[0]); }
  PlotFollower follower;
};

TEST(PlotFollower, PiecesCutAnywhereGiveThePointsOfTheWholeText) {
  const std::string numbers =
      "\xEF\xBB\xBF\"t\",a,\"b, quoted\",note\r\n1,1.5,-2,x\r\n\r\n2,,3,\"two\nlines\"\r\n,4,5,\r\n  \r\n"
      "3,1e3,\"6\",\"say \"\"no\"\"\"\r\n2.5,nan,0,\r\n4,7\r\n5,8,9,z,extra\r\nx,1,1,\r\n6, 7 ,8,";
  const std::string dates =
      "d;v\n2004-03-28T01:59:59.5;1\n2004-03-28T02:10;2\n2004-03-28T03:00:00;3\n2004-10-31 02:30;4\n"
      "2004-10-31T00:45:00Z;5\nnever;6\n1890-01-01T12:07;7\n1893-03-31T23:58;8\n2004-11-01;9\n";
  std::vector<std::pair<std::string, PlotOptions>> cases(4, {numbers, optionsFor()});
  cases[1].second.logX = cases[1].second.logY = true;
  cases[2].second.y = {"a"};
  cases[2].second.y2 = {"b, quoted"};
  cases[3].first = dates;
  for (const auto& [text, options] : cases) {
    const PlotColumns whole = choosePlotColumns(parseCsv(text, "whole"), options);
    for (size_t size = 1; size <= text.size(); size += 1 + size / 8) {
      PlotFollower follower(options);
      for (size_t at = 0; at < text.size(); at += size) {
        follower.feed(std::string_view(text).substr(at, size), 0.0);
      }
      follower.finish(0.0);
      ASSERT_EQ(follower.data().size(), whole.lines.size());
      for (size_t line = 0; line < whole.lines.size(); ++line)
        ASSERT_EQ(pointsOf(*follower.data()[line]), pointsOf(whole.lines[line])) << size << " of " << text;
    }
  }
}

TEST(PlotFollower, KeepsTheNewestPointsAndKnowsWhenTheyAreSortedAgain) {
  Followed followed(3);
  const VELXyDataSeries& data = *followed.follower.data()[0];
  followed.follower.feed("1,1\n2,2\n3,3\n4,4", 0.0);
  EXPECT_EQ(followed.points(), (Points{{1, 1}, {2, 2}, {3, 3}}));
  followed.follower.feed("0\n", 0.0);  // the row of 4 ends here
  EXPECT_EQ(followed.points(), (Points{{2, 2}, {3, 3}, {4, 40}}));
  EXPECT_TRUE(data.isSorted());
  for (const char* row : {"1,1\n", "2,2\n"}) {
    followed.follower.feed(row, 0.0);
    EXPECT_FALSE(data.isSorted()) << row;
  }
  followed.follower.feed("3,3\n", 0.0);
  EXPECT_TRUE(data.isSorted());
}

TEST(PlotFollower, RowsThatAreBrokenAreCountedAndCostNoOther) {
  Followed followed(100);
  PlotFollower& follower = followed.follower;
  const std::string oneMegabyte(1 << 20, '7');
  follower.feed("1,1\n" + oneMegabyte, 0.0);
  follower.feed(oneMegabyte + "\n2,2\n3,\"never closed\n" + std::string(100000, '\n') + "4,4\n", 0.0);
  follower.feed(std::string("\x80\xFF\x00\x01,\x00\n", 7) + "5,nan\n6,1e308\n7\n8,8,8\n9,9\n", 0.0);
  EXPECT_EQ(followed.points(), (Points{{0, 0},
                                       {1, 1},
                                       {2, 2},
                                       {4, 4},
                                       {4, orGap(NAN)},
                                       {5, orGap(NAN)},
                                       {6, orGap(NAN)},
                                       {7, orGap(NAN)},
                                       {8, 8},
                                       {9, 9}}));
  const std::string said = sentencesOf(follower);
  EXPECT_NE(said.find("5 cells are empty"), std::string::npos) << said;
  EXPECT_NE(said.find("2 rows have more or fewer fields"), std::string::npos) << said;
  EXPECT_NE(said.find("2 rows are longer than"), std::string::npos) << said;
}

TEST(PlotFollower, ATextThatStartsOverMayBringAHeaderOrGoOnWithRows) {
  Followed followed(10);
  followed.follower.feed("1,1\n2,", 0.0);
  followed.follower.startOver();
  EXPECT_TRUE(followed.points().empty());
  followed.follower.feed("7,70\n", 0.0);
  EXPECT_EQ(followed.points(), (Points{{7, 70}}));
  followed.follower.startOver();
  followed.follower.feed("b,a,t\n0,80,8\n", 0.0);
  EXPECT_EQ(followed.points(), (Points{{8, 80}}));
  for (const char* row : {"1,\n", " , \n", "b,t,a\n"}) {
    followed.follower.startOver();
    EXPECT_NO_THROW(followed.follower.feed(row, 0.0)) << row;
  }
  followed.follower.startOver();
  EXPECT_THROW(followed.follower.feed("u,v,w\n", 0.0), PlotFailure) << "other lines under the old names";
}

TEST(PlotFollower, ChoosesWhenRowsOrASecondArePast) {
  PlotFollower slow(optionsFor());
  slow.feed("t,a\n", 0.0);
  slow.wait(5.0);
  slow.feed("1,1\n2,", 6.0);
  slow.wait(6.9);
  EXPECT_EQ(slow.columns(), nullptr);
  slow.wait(7.0);
  ASSERT_NE(slow.columns(), nullptr);
  EXPECT_EQ(slow.data()[0]->count(), 1);

  PlotFollower fast(optionsFor());
  std::string rows = "t,a\n";
  for (size_t i = 0; i < PlotFollower::firstRows; ++i) rows += "1,1\n";
  fast.feed(rows, 0.0);
  EXPECT_NE(fast.columns(), nullptr);

  // Gaps at first are no reason to give up, a wrong name is one at once.
  PlotFollower gaps(optionsFor());
  gaps.feed("t,a\nnan,nan\n", 0.0);
  gaps.wait(3.0);
  gaps.feed("1,1\n2,2\n", 3.0);
  gaps.wait(9.0);
  EXPECT_NE(gaps.columns(), nullptr);
  PlotOptions wrong = optionsFor();
  wrong.y = {"c"};
  EXPECT_THROW(PlotFollower(wrong).feed("t,a\n", 0.0), PlotFailure);
  EXPECT_THROW(PlotFollower(optionsFor()).finish(0.0), PlotFailure);
  EXPECT_THROW(PlotFollower(optionsFor()).feed(std::string(PlotFollower::firstBytes, 'x'), 0.0), PlotFailure);
}

TEST(PlotFollower, BlankLinesBeforeTheHeaderAreForgotten) {
  const std::string blanks[] = {std::string(8192, '\n'),
                                std::string(4096, ' ') + "\r\n" + std::string(90, ' '),
                                std::string(8192, '\t')};
  for (const std::string& piece : blanks) {
    PlotFollower follower(optionsFor());
    int64_t bytes = 0;
    for (; bytes < 10'000'000; bytes += static_cast<int64_t>(piece.size())) follower.feed(piece, 0.0);
    follower.feed("\nt,a\n1,10\n", 0.0);
    EXPECT_EQ(follower.columns(), nullptr);  // were the blanks kept, these would be bytes enough to choose
    follower.finish(0.0);
    EXPECT_EQ(pointsOf(*follower.data()[0]), (Points{{1, 10}}));
  }
}

TEST(PlotFollower, SteadyRowsAllocateNothing) {
  const auto rowsFrom = [](int first, int count) {
    std::ostringstream rows;
    for (int i = first; i < first + count; ++i)
      rows << "2026-11-23T02:" << i / 60 % 60 << ':' << i % 60 << ".125,\"" << i << "\",oops\n";
    return rows.str();
  };
  PlotFollower follower(optionsFor(64));
  follower.feed("t,a,b\n2026-11-23T02:00:00,1,1\n" + rowsFrom(1600, 300), 0.0);
  const std::string more = rowsFrom(2000, 300);
  const AllocationCounter counter;
  follower.feed(std::string_view(more).substr(0, 1001), 0.0);
  follower.feed(std::string_view(more).substr(1001), 0.0);
  EXPECT_EQ(counter.count(), 0);
  EXPECT_EQ(follower.rows(), 601u);
}

}  // namespace
