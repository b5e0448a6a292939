#include "examples/plot/csv_table.h"

#include <csv.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <memory>
#include <system_error>

#include "examples/plot/failure.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// What libcsv calls back: fields one by one, then the end of the row.
class TableBuilder {
 public:
  size_t line = 1;

  void beginRowUnlessOpen() {
    if (!_rowOpen) _rowLine = line;
    _rowOpen = true;
  }

  void field(std::string_view text) {
    if (!_headerDone) {
      CsvColumn column;
      column.name = std::string(text);
      table.columns.push_back(std::move(column));
    } else if (_cell < table.columns.size()) {
      addCell(table.columns[_cell], text);
    }
    ++_cell;
  }

  void endRow() {
    if (_headerDone) {
      for (; _cell < table.columns.size(); ++_cell) addCell(table.columns[_cell], {});
      table.rowLines.push_back(_rowLine);
    }
    _headerDone = true;
    _rowOpen = false;
    _cell = 0;
  }

  CsvTable table;

 private:
  static void addCell(CsvColumn& column, std::string_view text) {
    const auto number = parseNumber(text);
    column.values.push_back(number.value_or(kNaN));
    if (number) {
      ++column.numbers;
    } else if (const auto date = parseIsoDate(text)) {
      ++column.dateCells;
      column.dates.resize(column.values.size() - 1, {kNaN, false});
      column.dates.push_back(*date);
    } else if (text.find_first_not_of(" \t") != std::string_view::npos) {
      ++column.texts;
    }
  }

  bool _headerDone = false;
  bool _rowOpen = false;
  size_t _rowLine = 1;
  size_t _cell = 0;
};

void onField(void* text, size_t length, void* builder) {
  static_cast<TableBuilder*>(builder)->field({static_cast<const char*>(text), length});
}

void onRow(int, void* builder) { static_cast<TableBuilder*>(builder)->endRow(); }

// The first line with its end: CR, LF or both.
std::string_view firstLineOf(std::string_view text) {
  const size_t end = text.find_first_of("\r\n");
  if (end == std::string_view::npos) return text;
  const bool both = text.substr(end, 2) == "\r\n";
  return text.substr(0, end + (both ? 2 : 1));
}

struct CsvCloser {
  void operator()(csv_parser* parser) const { csv_free(parser); }
};

}  // namespace

CsvKind CsvColumn::kind() const {
  if (numbers == 0 && dateCells == 0) return CsvKind::Text;
  return numbers >= dateCells ? CsvKind::Number : CsvKind::Date;
}

IsoDate CsvColumn::dateAt(size_t row) const { return row < dates.size() ? dates[row] : IsoDate{kNaN, false}; }

const CsvColumn* CsvTable::column(std::string_view name) const {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [name](const CsvColumn& column) { return column.name == name; });
  return found == columns.end() ? nullptr : &*found;
}

std::string_view withoutByteOrderMark(std::string_view text) {
  const bool isMarked = text.substr(0, kByteOrderMark.size()) == kByteOrderMark;
  return isMarked ? text.substr(kByteOrderMark.size()) : text;
}

char separatorOf(std::string_view text) {
  bool quoted = false, hasSemicolon = false, hasTab = false, begun = false;
  for (const char c : text) {
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    const bool lineEnds = c == '\n' || c == '\r';
    if (lineEnds && begun) break;
    begun |= !lineEnds && c != ' ';
    if (c == ',') return ',';
    hasSemicolon |= c == ';';
    hasTab |= c == '\t';
  }
  return hasSemicolon ? ';' : hasTab ? '\t' : ',';
}

std::optional<double> parseNumber(std::string_view text) {
  const size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return std::nullopt;
  text = text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

CsvTable parseCsv(std::string_view text, const std::string& name) {
  text = withoutByteOrderMark(text);
  if (text.find_first_not_of(" \t\r\n") == std::string_view::npos)
    throw PlotFailure(name + " is empty; a CSV file begins with a row of column names.");

  csv_parser parser;
  if (csv_init(&parser, CSV_APPEND_NULL) != 0) throw PlotFailure("There is no memory to read " + name + ".");
  const std::unique_ptr<csv_parser, CsvCloser> closer(&parser);
  csv_set_delim(&parser, static_cast<unsigned char>(separatorOf(text)));

  // Line by line, so that every row knows the line on which it began.
  TableBuilder builder;
  while (!text.empty()) {
    const std::string_view chunk = firstLineOf(text);
    if (chunk.find_first_not_of("\r\n") != std::string_view::npos) builder.beginRowUnlessOpen();
    if (csv_parse(&parser, chunk.data(), chunk.size(), onField, onRow, &builder) != chunk.size())
      throw PlotFailure(name + " cannot be read as CSV in line " + std::to_string(builder.line) + ": " +
                        csv_strerror(csv_error(&parser)) + ".");
    text.remove_prefix(chunk.size());
    ++builder.line;
  }
  csv_fini(&parser, onField, onRow, &builder);
  return std::move(builder.table);
}

CsvTable readCsv(const std::filesystem::path& path) {
  if (path == kStandardInput) {
    const std::string text{std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
    return parseCsv(text, "The standard input");
  }
  const std::string name = "'" + path.string() + "'";
  std::error_code error;
  if (std::filesystem::is_directory(path, error))
    throw PlotFailure(name + " is a directory; give a CSV file.");
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file)
    throw PlotFailure(name + " cannot be read (" + std::strerror(errno) +
                      "); give a CSV file that exists and is readable.");
  const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (file.bad()) throw PlotFailure(name + " cannot be read to its end; check the disk that holds it.");
  return parseCsv(text, name);
}
