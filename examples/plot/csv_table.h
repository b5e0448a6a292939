// plot/csv_table.h: the columns of a CSV file as numbers and dates.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "examples/plot/iso_date.h"

enum class CsvKind { Text, Number, Date };

/// One column.
struct CsvColumn {
  std::string name;
  std::vector<double> values;  ///< one per data row; NaN for a cell that is no finite number
  std::vector<IsoDate> dates;  ///< NaN seconds for a cell that is no date; ends with the last date
  size_t numbers = 0;          ///< cells that are finite numbers
  size_t dateCells = 0;        ///< cells that are dates
  size_t texts = 0;            ///< cells that hold something else

  /// What there is more of, numbers or dates; text where there is neither.
  CsvKind kind() const;
  /// Numbers are the rule: at least one, and no fewer than all the rest.
  bool isNumeric() const { return numbers > 0 && numbers >= texts + dateCells; }
  /// Dates are the rule, as above; numbers where there are as many of both.
  bool isDates() const { return dateCells > 0 && !isNumeric() && dateCells >= texts + numbers; }
  /// NaN seconds where the row holds no date.
  IsoDate dateAt(size_t row) const;
};

/// A header row that names the columns, and data rows below it.
struct CsvTable {
  std::vector<CsvColumn> columns;
  std::vector<size_t> rowLines;  ///< line in the file, from 1, on which each data row begins

  /// The first column of that name, or nullptr.
  const CsvColumn* column(std::string_view name) const;
};

/// The name of a file that stands for the standard input.
inline constexpr char kStandardInput[] = "-";

/// Reads a table: UTF-8 with or without byte order mark, any line ending, quoted fields; separated by commas,
/// or by semicolons or tabs where the header has no comma. Missing cells at the end of a row are empty.
/// @throws PlotFailure when the file cannot be read or holds no header
CsvTable readCsv(const std::filesystem::path& path);

/// As above, from memory. @param name how messages call the source
CsvTable parseCsv(std::string_view text, const std::string& name);

/// What follows a byte order mark, if there is one.
std::string_view withoutByteOrderMark(std::string_view text);

/// What stands between the fields of a text that begins with a header: a comma, unless it has none outside
/// quotes and a semicolon or else a tab.
char separatorOf(std::string_view text);

/// A finite number without regard to the locale, blanks around it allowed.
std::optional<double> parseNumber(std::string_view text);
