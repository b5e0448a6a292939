// plot/plot_columns.h: which columns of a table become the chart.
#pragma once

#include <string>
#include <vector>

#include "examples/plot/csv_table.h"
#include "examples/plot/options.h"

/// One line of the chart.
struct PlotLine {
  std::string name;
  std::vector<double> x;
  std::vector<double> y;  ///< NaN where the file has no number
};

struct PlotColumns {
  std::string xName;
  std::vector<PlotLine> lines;
  std::string gapNote;  ///< one sentence about cells that are no numbers; empty when there are none
};

/// Chooses and joins the columns.
///
/// Without --x the first numeric column that is no y, and the row number where there is none; without --y
/// every other numeric column. A row without an x keeps the place of the row before it, as a gap.
/// @throws PlotFailure for an unknown column, one without numbers, or a table without any
PlotColumns choosePlotColumns(const CsvTable& table, const PlotOptions& options);
