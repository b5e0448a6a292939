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

struct ColumnsCase {
  std::string text;
  std::optional<std::string> x;
  std::vector<std::string> y;
  std::string xName;
  std::vector<std::string> lines;
};

TEST(PlotColumns, TheFileDecidesUnlessTheUserDoes) {
  const std::string three = "t,note,a,b\n0,x,1,2\n1,y,3,4\n";
  const ColumnsCase cases[] = {
      {three, {}, {}, "t", {"a", "b"}},
      {three, {}, {"b"}, "t", {"b"}},
      {three, {}, {"t"}, "a", {"t"}},
      {three, "a", {}, "a", {"t", "b"}},
      {three, "a", {"a"}, "a", {"a"}},
      {three, {}, {"b", "a", "t"}, "row", {"b", "a", "t"}},
      {"only\n5\n6\n", {}, {}, "row", {"only"}},
      {"note,only\nx,5\ny,6\n", {}, {"only"}, "row", {"only"}},
  };
  for (const ColumnsCase& one : cases) {
    PlotOptions options;
    options.x = one.x;
    options.y = one.y;
    const PlotColumns columns = choosePlotColumns(parseCsv(one.text, "test"), options);
    std::vector<std::string> lines;
    for (const PlotLine& line : columns.lines) lines.push_back(line.name);
    EXPECT_EQ(columns.xName, one.xName);
    EXPECT_EQ(lines, one.lines);
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
