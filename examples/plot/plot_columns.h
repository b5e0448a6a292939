// plot/plot_columns.h: which columns of a table become the chart.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "examples/plot/csv_table.h"
#include "examples/plot/options.h"

/// What the X axis counts. Categories stand side by side in the order of the rows, whatever their values.
enum class PlotXKind { Number, Date, CategoryNumber, CategoryDate };

/// One line of the chart.
struct PlotLine {
  std::string name;
  std::vector<double> x;  ///< dates are seconds since 1970
  std::vector<double> y;  ///< NaN where the file has no number, or none that its axis can show
  bool onSecondAxis = false;
  size_t column = 0;  ///< of y in the table
};

struct PlotColumns {
  std::string xName;
  PlotXKind xKind = PlotXKind::Number;
  std::optional<size_t> xColumn;  ///< in the table; none for the row number
  std::vector<PlotLine> lines;
  std::string gapNote;  ///< one sentence about cells that are no numbers or dates; empty when there are none
  std::string logNote;  ///< one sentence about points that a logarithmic axis cannot show; empty without any

  /// The first lines are those of the first Y axis.
  size_t countOnFirstAxis() const;
  bool hasSecondAxis() const { return countOnFirstAxis() < lines.size(); }
};

/// How messages call the data.
std::string sourceName(const PlotOptions& options);

/// @throws PlotFailure for a column that the options name and the table has not
void assertColumnsExist(const CsvTable& table, const PlotOptions& options);

/// Chooses and joins the columns.
///
/// Without --x and --category, X is the first column of dates, else the first of numbers that is no y, else
/// the row number; without --y every other column of numbers is a line. A row without an x keeps the place of
/// the row before it, as a gap; a row without a category is left out.
/// @throws PlotFailure for an unknown column, one that does not hold what its axis shows, or a table without
///         any numbers
PlotColumns choosePlotColumns(const CsvTable& table, const PlotOptions& options);
