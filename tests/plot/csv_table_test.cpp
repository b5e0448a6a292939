#include "examples/plot/csv_table.h"

#include <gtest/gtest.h>

#include <cmath>

#include "examples/plot/failure.h"
#include "examples/plot/options.h"
#include "examples/plot/plot_columns.h"

namespace {

std::vector<std::string> namesOf(const CsvTable& table) {
  std::vector<std::string> names;
  for (const CsvColumn& column : table.columns) names.push_back(column.name);
  return names;
}

TEST(CsvTable, ReadsWhatPeopleWriteAsOneTable) {
  const std::string_view variants[] = {
      "a,b\n1,2\n3,4\n",                    // plain
      "a,b\n1,2\n3,4",                      // last line not ended
      "\357\273\277a,b\r\n1,2\r\n3,4\r\n",  // byte order mark, CRLF
      "\"a\",\"b\"\n\"1\",\"2\"\n3,4\n",    // quoted
      "a;b\n1;2\n3;4\n",                    // semicolons
      "a\tb\n1\t2\n3\t4\n",                 // tabs
      "a,b\n\n1,2\n\n\n3,4\n\n",            // empty lines
      "a,b\n +1 ,2.0\n3e0,0.4E1\n",         // blanks and other spellings
      "a,b\n1,2,99\n3,4,99,99\n",           // more cells than names
      "a,b\r1,2\r3,4\r",                    // CR alone
      "\n\na;b\n1;2\n3;4\n",                // the header comes later
  };
  for (const std::string_view text : variants) {
    const CsvTable table = parseCsv(text, "test");
    EXPECT_EQ(namesOf(table), (std::vector<std::string>{"a", "b"})) << text;
    ASSERT_EQ(table.columns.size(), 2u) << text;
    EXPECT_EQ(table.columns[0].values, (std::vector<double>{1, 3})) << text;
    EXPECT_EQ(table.columns[1].values, (std::vector<double>{2, 4})) << text;
  }
}

TEST(CsvTable, QuotedFieldsHoldCommasQuotesAndLineBreaks) {
  const CsvTable table = parseCsv("\"x, of \"\"all\"\"\",\"two\nlines\",n\n1,\"2\n3\",4\n5,x,6\n", "test");
  EXPECT_EQ(namesOf(table), (std::vector<std::string>{"x, of \"all\"", "two\nlines", "n"}));
  EXPECT_EQ(table.rowLines, (std::vector<size_t>{3, 5}));
  EXPECT_EQ(table.columns[1].numbers, 0u);

  const CsvTable semicolons = parseCsv("\"time, s\";\"m\nV\"\n1;2\n", "test");
  EXPECT_EQ(namesOf(semicolons), (std::vector<std::string>{"time, s", "m\nV"}));
  for (const std::string_view text : {"a\r1\r2\r", "a\n1\n2\n", "a\r\n1\r\n2\r\n"})
    EXPECT_EQ(parseCsv(text, "test").rowLines, (std::vector<size_t>{2, 3})) << text;
  EXPECT_EQ(parseCsv("a\tb\n1\t2\n\t\n3\t4\n", "test").rowLines, (std::vector<size_t>{2, 3, 4}));
}

TEST(CsvTable, OnlyFiniteNumbersAreNumbers) {
  for (const char* text :
       {"", " ", "abc", "1,5", "nan", "inf", "-inf", "1e999", "0x10", "1 2", "+-1", "--1", "1.2.3"})
    EXPECT_FALSE(parseNumber(text)) << text;
  EXPECT_EQ(parseNumber("-0"), 0.0);
  EXPECT_EQ(parseNumber("1e-320"), 1e-320);
  EXPECT_EQ(parseNumber("9007199254740993"), 9007199254740992.0);
}

TEST(CsvTable, AColumnIsOfTheKindThatItsCellsAgreeOn) {
  struct Row {
    const char* cells;
    CsvKind kind;
    bool isNumeric, isDates;
  };
  const Row rows[] = {
      {"1\n2\n", CsvKind::Number, true, false},
      {"2004-08-19\n2004-08-20 14:30\n", CsvKind::Date, false, true},
      {"2004-08-19\n1\n", CsvKind::Number, true, false},
      {"2004-08-19\n2004-08-20\n1\n", CsvKind::Date, false, true},
      {"2004-08-19\nx\ny\n", CsvKind::Date, false, false},
      {"1\nx\n2004-08-19\n", CsvKind::Number, false, false},
      {"x\n2004-02-30\n", CsvKind::Text, false, false},
      {"", CsvKind::Text, false, false},
  };
  for (const Row& row : rows) {
    const CsvTable table = parseCsv(std::string("a\n") + row.cells, "test");
    const CsvColumn& column = table.columns[0];
    EXPECT_EQ(column.kind(), row.kind) << row.cells;
    EXPECT_EQ(column.isNumeric(), row.isNumeric) << row.cells;
    EXPECT_EQ(column.isDates(), row.isDates) << row.cells;
  }
  const CsvTable gaps = parseCsv("a,b\n,1\n2004-08-19,2\n,3\n", "test");
  EXPECT_TRUE(std::isnan(gaps.columns[0].dateAt(0).seconds));
  EXPECT_EQ(gaps.columns[0].dateAt(1).seconds, 1092873600.0);
  EXPECT_TRUE(std::isnan(gaps.columns[0].dateAt(2).seconds));
}

struct ColumnsCase {
  std::string text;
  std::optional<std::string> x;
  std::vector<std::string> y;
  std::string xName;
  std::vector<std::string> lines;
  std::optional<std::string> category = {};
  std::vector<std::string> y2 = {};
  PlotXKind xKind = PlotXKind::Number;
};

TEST(PlotColumns, TheFileDecidesUnlessTheUserDoes) {
  const std::string three = "t,note,a,b\n0,x,1,2\n1,y,3,4\n";
  const std::string dated = "n,d,p\n1,2004-08-19,3\n2,2004-08-20,4\n";
  const ColumnsCase cases[] = {
      {three, {}, {}, "t", {"a", "b"}},
      {three, {}, {"b"}, "t", {"b"}},
      {three, {}, {"t"}, "a", {"t"}},
      {three, "a", {}, "a", {"t", "b"}},
      {three, "a", {"a"}, "a", {"a"}},
      {three, {}, {"b", "a", "t"}, "row", {"b", "a", "t"}},
      {"only\n5\n6\n", {}, {}, "row", {"only"}},
      {"note,only\nx,5\ny,6\n", {}, {"only"}, "row", {"only"}},
      {three, {}, {}, "t", {"a", "b"}, {}, {"b"}},
      {three, {}, {}, "b", {"t", "a"}, "b", {}, PlotXKind::CategoryNumber},
      {dated, {}, {}, "d", {"n", "p"}, {}, {}, PlotXKind::Date},
      {dated, {}, {"p"}, "d", {"p", "n"}, {}, {"n"}, PlotXKind::Date},
      {dated, "n", {}, "n", {"p"}},
      {dated, {}, {}, "d", {"n", "p"}, "d", {}, PlotXKind::CategoryDate},
  };
  for (const ColumnsCase& one : cases) {
    PlotOptions options;
    options.x = one.x;
    options.y = one.y;
    options.category = one.category;
    options.y2 = one.y2;
    const PlotColumns columns = choosePlotColumns(parseCsv(one.text, "test"), options);
    std::vector<std::string> lines;
    for (const PlotLine& line : columns.lines) lines.push_back(line.name);
    EXPECT_EQ(columns.xName, one.xName);
    EXPECT_EQ(lines, one.lines);
    EXPECT_EQ(columns.xKind, one.xKind);
    EXPECT_EQ(columns.countOnFirstAxis(), lines.size() - one.y2.size());
  }
}

TEST(PlotColumns, DatesWithoutAnOffsetAreOnTheClocksOfTheZone) {
  const CsvTable table = parseCsv(
      "t,a\n1970-01-02,1\n1970-07-02 00:00,1\n1970-01-02T00:00Z,1\n1970-01-01T24:00-05,1\n,1\n", "test");
  PlotOptions options;
  options.timeZone = "America/New_York";
  constexpr double kDay = 86400.0, kHour = 3600.0;
  EXPECT_EQ(choosePlotColumns(table, options).lines[0].x,
            (std::vector<double>{kDay + 5 * kHour, 182 * kDay + 4 * kHour, kDay, kDay + 5 * kHour,
                                 kDay + 5 * kHour}));
}

TEST(PlotColumns, PointsThatALogarithmCannotShowAreLeftOutAndCounted) {
  struct Row {
    bool logX, logY;
    std::vector<double> x;  // of both lines
    std::vector<double> a, b;
    std::string note;
  };
  constexpr double kGap = 99.0;
  const std::string text = "t,a,b\n-1,1,1\n1,-2,2\n2,,0\n0,4,4\n3,5,5\n";
  const Row rows[] = {
      {false, false, {-1, 1, 2, 0, 3}, {1, -2, kGap, 4, 5}, {1, 2, 0, 4, 5}, ""},
      {false, true, {-1, 1, 2, 0, 3}, {1, kGap, kGap, 4, 5}, {1, 2, 0, 4, 5}, "1 point is not above zero"},
      {true, false, {1, 2, 2, 3}, {-2, kGap, kGap, 5}, {2, 0, kGap, 5}, "4 points are not above zero"},
      {true, true, {1, 2, 2, 3}, {kGap, kGap, kGap, 5}, {2, 0, kGap, 5}, "5 points are not above zero"},
  };
  for (const Row& row : rows) {
    PlotOptions options;
    options.x = "t";
    options.y = {"a"};
    options.y2 = {"b"};  // is not logarithmic: its 0 is a value
    options.logX = row.logX;
    options.logY = row.logY;
    const PlotColumns columns = choosePlotColumns(parseCsv(text, "test"), options);
    for (const auto& [line, wanted] :
         {std::pair(columns.lines[0], row.a), std::pair(columns.lines[1], row.b)}) {
      EXPECT_EQ(line.x, row.x) << row.note;
      ASSERT_EQ(line.y.size(), wanted.size()) << row.note;
      for (size_t i = 0; i < wanted.size(); ++i)
        EXPECT_EQ(std::isnan(line.y[i]) ? kGap : line.y[i], wanted[i]) << row.note << i;
    }
    EXPECT_EQ(columns.logNote.substr(0, row.note.size()), row.note);
    EXPECT_EQ(columns.logNote.empty(), row.note.empty());
  }
}

TEST(PlotColumns, RowsCountFromOneAndGapsAreToldOnce) {
  PlotOptions options;
  const PlotColumns rows = choosePlotColumns(parseCsv("only\n5\n6\n", "test"), options);
  EXPECT_EQ(rows.lines[0].x, (std::vector<double>{1, 2}));
  EXPECT_EQ(rows.gapNote, "");

  const PlotColumns gaps =
      choosePlotColumns(parseCsv("t,a,b\n0,1,1\n\n1,,2\n2,oops,3\n,7,4\n4,8,\n", "test"), options);
  EXPECT_EQ(gaps.gapNote,
            "4 cells are empty or not a number and left out of the lines; the first is in line 4.");
  ASSERT_EQ(gaps.lines.size(), 2u);
  EXPECT_EQ(gaps.lines[0].x, (std::vector<double>{0, 1, 2, 2, 4})) << "a row without x stays where it was";
  EXPECT_TRUE(std::isnan(gaps.lines[0].y[1]));
  EXPECT_TRUE(std::isnan(gaps.lines[0].y[3]));
  EXPECT_EQ(gaps.lines[0].y[4], 8.0);
}

TEST(PlotOptions, SizesAreTwoPositiveNumbers) {
  EXPECT_EQ(parseSize("1280x720"), (VELSize{1280.0, 720.0}));
  EXPECT_EQ(parseSize("640.5X360"), (VELSize{640.5, 360.0}));
  for (const char* wrong :
       {"", "x", "1280", "1280x", "x720", "0x5", "-1x5", "5x-1", "axb", "1x2x3", "infx5", "1280,720"})
    EXPECT_THROW(parseSize(wrong), PlotFailure) << wrong;
}

}  // namespace
