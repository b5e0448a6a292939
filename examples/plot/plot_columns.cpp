#include "examples/plot/plot_columns.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

#include "examples/plot/failure.h"
#include "examples/plot/local_clock.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

using Columns = std::vector<const CsvColumn*>;

// The choice of columns, made once for the whole chart.
struct Choice {
  const CsvColumn* x = nullptr;  // null: the row number
  PlotXKind xKind = PlotXKind::Number;
  Columns ys;
  Columns y2s;
};

// Rows that a line could not take, for the sentence about them.
struct LeftOut {
  size_t count = 0;
  size_t firstRow = SIZE_MAX;

  void add(size_t row) {
    ++count;
    firstRow = std::min(firstRow, row);
  }
};

std::string columnNames(const CsvTable& table) {
  std::string names;
  for (const CsvColumn& column : table.columns) names += (names.empty() ? "'" : ", '") + column.name + "'";
  return names;
}

std::string inMessage(const std::string& column, const std::string& file) {
  std::string text = "The column '";
  text.append(column).append("' of '").append(file).append("'");
  return text;
}

const CsvColumn* columnNamed(const CsvTable& table, const std::string& name, const std::string& file) {
  const CsvColumn* column = table.column(name);
  if (!column)
    throw PlotFailure("'" + file + "' has no column '" + name + "'; it has " + columnNames(table) + ".");
  return column;
}

const CsvColumn* columnForX(const CsvTable& table, const std::string& name, const std::string& file) {
  const CsvColumn* column = columnNamed(table, name, file);
  if (column->kind() == CsvKind::Text)
    throw PlotFailure(inMessage(name, file) + " holds neither numbers nor dates; choose one that does.");
  return column;
}

Columns columnsForY(const CsvTable& table, const std::vector<std::string>& names, const std::string& file) {
  Columns columns;
  for (const std::string& name : names) {
    const CsvColumn* column = columnNamed(table, name, file);
    if (column->kind() == CsvKind::Date)
      throw PlotFailure(inMessage(name, file) +
                        " holds dates, which only the X axis can show; choose one of numbers.");
    if (column->kind() == CsvKind::Text)
      throw PlotFailure(inMessage(name, file) + " holds no numbers; choose one that does.");
    columns.push_back(column);
  }
  return columns;
}

bool contains(const Columns& columns, const CsvColumn* column) {
  return std::find(columns.begin(), columns.end(), column) != columns.end();
}

PlotXKind kindOf(const CsvColumn* x, bool isCategory) {
  const bool isDate = x && x->kind() == CsvKind::Date;
  if (isCategory) return isDate ? PlotXKind::CategoryDate : PlotXKind::CategoryNumber;
  return isDate ? PlotXKind::Date : PlotXKind::Number;
}

// Takes what the user named from the columns of numbers, and leaves the others.
Columns takeFree(const CsvTable& table, const Choice& choice) {
  Columns free;
  for (const CsvColumn& column : table.columns)
    if (column.isNumeric() && &column != choice.x && !contains(choice.ys, &column) &&
        !contains(choice.y2s, &column))
      free.push_back(&column);
  return free;
}

// Dates can be nothing but X; a single numeric column is the line itself, over the row number.
const CsvColumn* openX(const CsvTable& table, const Choice& choice, Columns& free) {
  for (const CsvColumn& column : table.columns)
    if (column.isDates()) return &column;
  if (free.empty() || (choice.ys.empty() && free.size() == 1)) return nullptr;
  const CsvColumn* x = free.front();
  free.erase(free.begin());
  return x;
}

Choice choose(const CsvTable& table, const PlotOptions& options) {
  const std::string file = sourceName(options);
  Choice choice;
  if (options.x) choice.x = columnForX(table, *options.x, file);
  if (options.category) choice.x = columnForX(table, *options.category, file);
  choice.ys = columnsForY(table, options.y, file);
  choice.y2s = columnsForY(table, options.y2, file);

  Columns free = takeFree(table, choice);
  if (!choice.x) choice.x = openX(table, choice, free);
  if (choice.ys.empty()) choice.ys = free;
  if (choice.ys.empty())
    throw PlotFailure("'" + file + "' has no numeric column to draw" +
                      (choice.y2s.empty() ? "" : " on the first Y axis") +
                      "; give a CSV file with numbers below a row of column names.");
  choice.xKind = kindOf(choice.x, options.category.has_value());
  return choice;
}

// The axis must hold the whole extent and the margin around it as a double.
void assertDrawable(const CsvColumn& column, const std::string& file) {
  double lowest = std::numeric_limits<double>::infinity(), highest = -lowest;
  for (const double value : column.values) {
    if (value < lowest) lowest = value;
    if (value > highest) highest = value;
  }
  constexpr double kMargin = 2.0;
  if (column.numbers > 0 && !std::isfinite((highest - lowest) * kMargin))
    throw PlotFailure("The numbers of column '" + column.name + "' of '" + file +
                      "' lie too far apart to draw; give one whose extent stays below 1e308.");
}

void assertLogarithmic(const CsvColumn& column, const std::string& option, const std::string& file) {
  if (std::any_of(column.values.begin(), column.values.end(), [](double value) { return value > 0.0; }))
    return;
  throw PlotFailure(inMessage(column.name, file) +
                    " holds no number above zero for a logarithmic axis; choose another or leave out " +
                    option + ".");
}

void assertDrawable(const Choice& choice, const PlotOptions& options) {
  const std::string file = sourceName(options);
  for (const Columns* columns : {&choice.ys, &choice.y2s})
    for (const CsvColumn* y : *columns) assertDrawable(*y, file);
  if (options.logY)
    for (const CsvColumn* y : choice.ys) assertLogarithmic(*y, "--log-y", file);
  if (!choice.x) return;
  if (choice.xKind == PlotXKind::Date && options.logX)
    throw PlotFailure(inMessage(choice.x->name, file) +
                      " holds dates, which have no logarithm; leave out --log-x.");
  assertDrawable(*choice.x, file);
  if (options.logX) assertLogarithmic(*choice.x, "--log-x", file);
}

std::vector<double> secondsOf(const CsvColumn& column, const std::string& timeZone) {
  LocalClock clock(timeZone);
  std::vector<double> seconds(column.values.size(), kNaN);
  for (size_t row = 0; row < column.dates.size(); ++row) seconds[row] = clock.secondsOf(column.dates[row]);
  return seconds;
}

std::vector<double> xValues(const CsvTable& table, const Choice& choice, const std::string& timeZone) {
  if (!choice.x) {
    std::vector<double> rows(table.rowLines.size());
    for (size_t row = 0; row < rows.size(); ++row) rows[row] = static_cast<double>(row + 1);
    return rows;
  }
  if (choice.x->kind() != CsvKind::Date) return choice.x->values;
  return secondsOf(*choice.x, timeZone);
}

size_t indexOf(const CsvTable& table, const CsvColumn* column) {
  return static_cast<size_t>(column - table.columns.data());
}

// Joins x and the columns of y, row by row.
class LineJoiner {
 public:
  LineJoiner(const CsvTable& table, const Choice& choice, const PlotOptions& options)
      : _table(table),
        _xs(xValues(table, choice, options.timeZone)),
        _isCategory(options.category.has_value()),
        _logX(options.logX),
        _logY(options.logY) {}

  PlotLine join(const CsvColumn& y, bool onSecondAxis) {
    PlotLine line{y.name, {}, {}, onSecondAxis, indexOf(_table, &y)};
    line.x.reserve(_xs.size());
    line.y.reserve(_xs.size());
    double lastX = kNaN;
    for (size_t row = 0; row < _xs.size(); ++row) {
      const bool xIsShown = !std::isnan(_xs[row]) && !(_logX && _xs[row] <= 0.0);
      const bool yIsShown = !(_logY && !onSecondAxis && y.values[row] <= 0.0);
      const bool isPoint = !std::isnan(_xs[row]) && !std::isnan(y.values[row]);
      if (isPoint && !(xIsShown && yIsShown)) leftOut.add(row);
      if (xIsShown) lastX = _xs[row];
      // Nothing to stand on yet, or no place of its own among categories.
      if (std::isnan(lastX) || (_isCategory && !xIsShown)) continue;
      line.x.push_back(lastX);
      line.y.push_back(xIsShown && yIsShown ? y.values[row] : kNaN);
    }
    return line;
  }

  LeftOut leftOut;  // points that a logarithmic axis cannot show

 private:
  const CsvTable& _table;
  std::vector<double> _xs;
  bool _isCategory;
  bool _logX;
  bool _logY;
};

void addGaps(const CsvColumn& column, LeftOut& gaps) {
  const bool areDates = column.kind() == CsvKind::Date;
  for (size_t row = 0; row < column.values.size(); ++row)
    if (std::isnan(areDates ? column.dateAt(row).seconds : column.values[row])) gaps.add(row);
}

std::string lineOf(const CsvTable& table, const LeftOut& rows) {
  return "the first is in line " + std::to_string(table.rowLines[rows.firstRow]) + ".";
}

std::string describeGaps(const CsvTable& table, const Choice& choice) {
  Columns used = choice.ys;
  used.insert(used.end(), choice.y2s.begin(), choice.y2s.end());
  if (choice.x) used.push_back(choice.x);
  std::sort(used.begin(), used.end());
  used.erase(std::unique(used.begin(), used.end()), used.end());
  LeftOut gaps;
  for (const CsvColumn* column : used) addGaps(*column, gaps);
  if (gaps.count == 0) return {};
  const bool hasDates = choice.x && choice.x->kind() == CsvKind::Date;
  return std::to_string(gaps.count) + (gaps.count == 1 ? " cell is" : " cells are") +
         " empty or not a number" + (hasDates ? " or date" : "") + " and left out of the lines; " +
         lineOf(table, gaps);
}

std::string describeLeftOut(const CsvTable& table, const LeftOut& points) {
  if (points.count == 0) return {};
  const bool isOne = points.count == 1;
  return std::to_string(points.count) + (isOne ? " point is" : " points are") +
         " not above zero, where a logarithmic axis ends, and left out of the lines; " +
         lineOf(table, points);
}

}  // namespace

size_t PlotColumns::countOnFirstAxis() const {
  const auto second =
      std::find_if(lines.begin(), lines.end(), [](const PlotLine& line) { return line.onSecondAxis; });
  return static_cast<size_t>(second - lines.begin());
}

std::string sourceName(const PlotOptions& options) {
  return options.file == kStandardInput ? "standard input" : options.file.string();
}

void assertColumnsExist(const CsvTable& table, const PlotOptions& options) {
  std::vector<std::string> names = options.y;
  names.insert(names.end(), options.y2.begin(), options.y2.end());
  for (const auto& x : {options.x, options.category})
    if (x) names.push_back(*x);
  for (const std::string& name : names) columnNamed(table, name, sourceName(options));
}

PlotColumns choosePlotColumns(const CsvTable& table, const PlotOptions& options) {
  const Choice choice = choose(table, options);
  assertDrawable(choice, options);
  PlotColumns result;
  result.xName = choice.x ? choice.x->name : "row";
  result.xKind = choice.xKind;
  if (choice.x) result.xColumn = indexOf(table, choice.x);
  LineJoiner joiner(table, choice, options);
  for (const CsvColumn* y : choice.ys) result.lines.push_back(joiner.join(*y, false));
  for (const CsvColumn* y : choice.y2s) result.lines.push_back(joiner.join(*y, true));
  result.gapNote = describeGaps(table, choice);
  result.logNote = describeLeftOut(table, joiner.leftOut);
  return result;
}
