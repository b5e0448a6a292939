#include "examples/plot/plot_columns.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "examples/plot/failure.h"

namespace {

using Columns = std::vector<const CsvColumn*>;

std::string columnNames(const CsvTable& table) {
  std::string names;
  for (const CsvColumn& column : table.columns) names += (names.empty() ? "'" : ", '") + column.name + "'";
  return names;
}

const CsvColumn* chosenColumn(const CsvTable& table, const std::string& name, const std::string& file) {
  const CsvColumn* column = table.column(name);
  if (!column)
    throw PlotFailure("'" + file + "' has no column '" + name + "'; it has " + columnNames(table) + ".");
  if (column->numbers == 0)
    throw PlotFailure("The column '" + name + "' of '" + file + "' holds no numbers; choose one that does.");
  return column;
}

bool contains(const Columns& columns, const CsvColumn* column) {
  return std::find(columns.begin(), columns.end(), column) != columns.end();
}

struct Choice {
  const CsvColumn* x = nullptr;  // null: the row number
  Columns ys;
};

Choice choose(const CsvTable& table, const PlotOptions& options) {
  const std::string file = options.file.string();
  Choice choice;
  if (options.x) choice.x = chosenColumn(table, *options.x, file);
  for (const std::string& name : options.y) choice.ys.push_back(chosenColumn(table, name, file));

  Columns free;
  for (const CsvColumn& column : table.columns)
    if (column.isNumeric() && &column != choice.x && !contains(choice.ys, &column)) free.push_back(&column);

  // A single numeric column is the line itself, over the row number.
  const bool xIsOpen = !options.x && !free.empty() && (!choice.ys.empty() || free.size() > 1);
  if (xIsOpen) {
    choice.x = free.front();
    free.erase(free.begin());
  }
  if (choice.ys.empty()) choice.ys = free;
  if (choice.ys.empty())
    throw PlotFailure(
        "'" + file +
        "' has no numeric column to draw; give a CSV file with numbers below a row of column names.");
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

PlotLine joinLine(const CsvColumn* x, const CsvColumn& y) {
  PlotLine line{y.name, {}, {}};
  line.x.reserve(y.values.size());
  line.y.reserve(y.values.size());
  double lastX = std::numeric_limits<double>::quiet_NaN();
  for (size_t row = 0; row < y.values.size(); ++row) {
    const double here = x ? x->values[row] : static_cast<double>(row + 1);
    const bool hasX = !std::isnan(here);
    if (hasX) lastX = here;
    if (std::isnan(lastX)) continue;  // nothing to stand on yet
    line.x.push_back(lastX);
    line.y.push_back(hasX ? y.values[row] : std::numeric_limits<double>::quiet_NaN());
  }
  return line;
}

std::string describeGaps(const CsvTable& table, const Choice& choice) {
  Columns used = choice.ys;
  if (choice.x) used.push_back(choice.x);
  std::sort(used.begin(), used.end());
  used.erase(std::unique(used.begin(), used.end()), used.end());
  size_t gaps = 0, firstRow = SIZE_MAX;
  for (const CsvColumn* column : used) {
    gaps += column->gaps();
    firstRow = std::min(firstRow, column->firstGapRow);
  }
  if (gaps == 0) return {};
  return std::to_string(gaps) + (gaps == 1 ? " cell is" : " cells are") +
         " empty or not a number and left out of the lines; the first is in line " +
         std::to_string(table.rowLines[firstRow]) + ".";
}

}  // namespace

PlotColumns choosePlotColumns(const CsvTable& table, const PlotOptions& options) {
  const Choice choice = choose(table, options);
  for (const CsvColumn* y : choice.ys) assertDrawable(*y, options.file.string());
  if (choice.x) assertDrawable(*choice.x, options.file.string());
  PlotColumns result;
  result.xName = choice.x ? choice.x->name : "row";
  for (const CsvColumn* y : choice.ys) result.lines.push_back(joinLine(choice.x, *y));
  result.gapNote = describeGaps(table, choice);
  return result;
}
