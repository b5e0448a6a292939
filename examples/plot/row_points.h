// plot/row_points.h: one row of a file as the points that it adds to the lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "examples/plot/local_clock.h"
#include "examples/plot/options.h"
#include "examples/plot/plot_columns.h"

/// Rows that could not be shown as they are.
struct RowFaults {
  uint64_t gaps = 0;     ///< cells that are no numbers or dates
  uint64_t leftOut = 0;  ///< points that a logarithmic axis cannot show
  uint64_t uneven = 0;   ///< rows with more or fewer fields than the header
};

/// Reads rows one at a time, as `choosePlotColumns` reads those of a whole table; nothing is allocated.
class RowPoints {
 public:
  /// The points of the lines of a choice. @param header as many columns as it has
  RowPoints(const PlotColumns& chosen, size_t header, const PlotOptions& options);

  /// Takes the columns from where another header has them, and counts rows from 1 again.
  /// @return false, and nothing taken, when none of the lines is in it
  bool takeHeader(std::span<const std::string_view> names);
  /// Rows count from 1 again.
  void startOver();
  /// True when a row has a number for one of the lines, as no header has.
  bool hasNumbers(std::span<const std::string_view> row) const;
  /// True when a row has texts alone and no place along the X axis: it names the columns of something else.
  bool isOtherHeader(std::span<const std::string_view> row);

  /// Reads a row. @return false when it has no place along the X axis
  bool read(std::span<const std::string_view> row);
  /// Of the row that was read last; of one without an x, that of the row before it.
  double x() const { return _x; }
  /// One value a line; NaN is a gap.
  std::span<const double> ys() const { return _ys; }

  const RowFaults& faults() const { return _faults; }

 private:
  struct Source {
    std::string name;
    size_t column;
    bool isLogarithmic;
  };

  double readX(std::span<const std::string_view> row);

  std::string _xName;
  std::optional<size_t> _xColumn;
  bool _isDate;
  bool _isLogX;
  std::vector<Source> _sources;
  size_t _columnCount;
  LocalClock _clock;
  uint64_t _row = 0;
  double _x;
  std::vector<double> _ys;
  RowFaults _faults;
};
