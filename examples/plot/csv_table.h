// plot/csv_table.h: the columns of a CSV file as numbers.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One column. A cell that is no finite number is NaN.
struct CsvColumn {
  std::string name;
  std::vector<double> values;     ///< one per data row
  size_t numbers = 0;             ///< cells that are finite numbers
  size_t texts = 0;               ///< cells that hold something else
  size_t firstGapRow = SIZE_MAX;  ///< index into `values` of the first cell that is no number

  size_t gaps() const { return values.size() - numbers; }
  /// Numbers are the rule: at least one, and no fewer than the texts.
  bool isNumeric() const { return numbers > 0 && numbers >= texts; }
};

/// A header row that names the columns, and data rows below it.
struct CsvTable {
  std::vector<CsvColumn> columns;
  std::vector<size_t> rowLines;  ///< line in the file, from 1, on which each data row begins

  /// The first column of that name, or nullptr.
  const CsvColumn* column(std::string_view name) const;
};

/// Reads a table: UTF-8 with or without byte order mark, any line ending, quoted fields; separated by commas,
/// or by semicolons or tabs where the header has no comma. Missing cells at the end of a row are empty.
/// @throws PlotFailure when the file cannot be read or holds no header
CsvTable readCsv(const std::filesystem::path& path);

/// As above, from memory. @param name how messages call the source
CsvTable parseCsv(std::string_view text, const std::string& name);

/// A finite number without regard to the locale, blanks around it allowed.
std::optional<double> parseNumber(std::string_view text);
