// plot/plot_follower.h: lines that take the rows of a CSV text as it grows.
//
// Where the bytes come from is plot/byte_tail.h, who shows the lines is plot/follow.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "examples/plot/csv_rows.h"
#include "examples/plot/options.h"
#include "examples/plot/plot_columns.h"
#include "examples/plot/row_points.h"
#include "velmora/data/xy_data_series.h"

/// Chooses columns by the first rows, then appends every row to rings of `PlotOptions::capacity` points.
///
/// Always true: wherever the bytes were cut, the points are those of the whole text, of which the newest
/// stay. Once the columns are chosen a row allocates nothing, and memory does not grow.
class PlotFollower {
 public:
  /// Columns are chosen by so many rows, or by what came within a second of the first.
  static constexpr size_t firstRows = 100;
  /// The same for bytes, where lines are long.
  static constexpr size_t firstBytes = 262144;
  static constexpr double firstSeconds = 1.0;

  explicit PlotFollower(const PlotOptions& options) : _options(options) {}

  /// Takes the next bytes.
  /// @param seconds of a clock of any origin that never goes back
  /// @throws PlotFailure when the first rows hold nothing to draw, or not what the options name
  void feed(std::string_view bytes, double seconds);
  /// Time passed without bytes: the columns may be chosen now. @throws PlotFailure as above
  void wait(double seconds);
  /// Chooses the columns now, by what is there. @throws PlotFailure as above
  void choose(double seconds);
  /// There will be no more bytes: a last row needs no end of line.
  /// @throws PlotFailure as above
  void finish(double seconds);
  /// The text begins again: lines are empty. A header may follow, with its columns in another order, or rows
  /// as before. A header without any of the lines makes the call that brings it throw a PlotFailure.
  void startOver();

  /// Null until the columns are chosen. The values in it are those of the first rows.
  const PlotColumns* columns() const { return _columns ? &*_columns : nullptr; }
  /// One ring a line, in the order of the lines.
  std::span<const std::shared_ptr<VELXyDataSeries>> data() const { return _data; }
  /// Rows that became points.
  uint64_t rows() const { return _rowCount; }
  /// What was left out so far, a sentence each; empty without any.
  std::vector<std::string> notes() const;

 private:
  enum class FirstRow { Header, HeaderOrData, Taken };

  /// Blank lines before the first row are forgotten, however many there are.
  void dropBlankBeginning();
  bool isReady(double seconds, bool isAtEnd);
  void tryToChoose(double seconds, bool isAtEnd);
  void follow(PlotColumns columns, size_t header);
  void take(std::string_view bytes);
  void takeRow(std::span<const std::string_view> row);
  void append();
  void noteOrder(double x);

  PlotOptions _options;
  // What came before the choice.
  std::string _first;
  size_t _firstLines = 0;
  std::optional<double> _firstRowSeconds;
  bool _namesAreKnown = false;

  std::optional<PlotColumns> _columns;
  std::optional<RowPoints> _points;
  std::vector<std::shared_ptr<VELXyDataSeries>> _data;
  CsvRows _rows;
  FirstRow _firstRow = FirstRow::Header;
  uint64_t _rowCount = 0;
  // Points since x last went back; once the ring has forgotten that place the data is sorted.
  std::optional<int64_t> _sinceDescent;
  double _lastX = 0.0;
};
