#include "examples/plot/csv_table.h"

#include <gtest/gtest.h>

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
      "a,b\n1,2\n3,4",                      // last line not ended
      "\357\273\277a,b\r\n1,2\r\n3,4\r\n",  // byte order mark, CRLF
      "\"a\",\"b\"\n\"1\",\"2\"\n3,4\n",    // quoted
      "a;b\n1;2\n3;4\n",                    // semicolons
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

  EXPECT_EQ(parseCsv("a\tb\n1\t2\n\t\n3\t4\n", "test").rowLines, (std::vector<size_t>{2, 3, 4}));
}

TEST(CsvTable, OnlyFiniteNumbersAreNumbers) {
  for (const char* text :
       {"", " ", "abc", "1,5", "nan", "inf", "-inf", "1e999", "0x10", "1 2", "+-1", "--1", "1.2.3"})
    EXPECT_FALSE(parseNumber(text)) << text;
  EXPECT_EQ(parseNumber("9007199254740993"), 9007199254740992.0);
}

TEST(CsvTable, AColumnIsOfTheKindThatItsCellsAgreeOn) {
  struct Row {
    const char* cells;
    CsvKind kind;
    bool isNumeric, isDates;
  };
  const Row rows[] = {
      {"2004-08-19\n2004-08-20 14:30\n", CsvKind::Date, false, true},
      {"2004-08-19\n1\n", CsvKind::Number, true, false},
      {"2004-08-19\n2004-08-20\n1\n", CsvKind::Date, false, true},
      {"1\nx\n2004-08-19\n", CsvKind::Number, false, false},
      {"x\n2004-02-30\n", CsvKind::Text, false, false},
  };
  for (const Row& row : rows) {
    const CsvTable table = parseCsv(std::string("a\n") + row.cells, "test");
    const CsvColumn& column = table.columns[0];
    EXPECT_EQ(column.kind(), row.kind) << row.cells;
    EXPECT_EQ(column.isNumeric(), row.isNumeric) << row.cells;
    EXPECT_EQ(column.isDates(), row.isDates) << row.cells;
  }
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
      {three, {}, {"t"}, "a", {"t"}},
      {three, "a", {}, "a", {"t", "b"}},
      {three, {}, {"b", "a", "t"}, "row", {"b", "a", "t"}},
      {"only\n5\n6\n", {}, {}, "row", {"only"}},
      {three, {}, {}, "t", {"a", "b"}, {}, {"b"}},
      {three, {}, {}, "b", {"t", "a"}, "b", {}, PlotXKind::CategoryNumber},
      {dated, {}, {}, "d", {"n", "p"}, {}, {}, PlotXKind::Date},
      {dated, {}, {"p"}, "d", {"p", "n"}, {}, {"n"}, PlotXKind::Date},
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

}  // namespace
