// plot/csv_rows.h: the rows of a CSV text that arrives in pieces, cut anywhere.
//
// A text that is there as a whole is plot/csv_table.h; both read fields in the same way.
#pragma once

#include <csv.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Cuts bytes into rows of fields.
///
/// Always true: the same rows come out wherever the pieces were cut; a row takes at most `mostRowBytes` of
/// memory, and once the longest was seen nothing is allocated.
class CsvRows {
 public:
  /// A longer row is counted and left out, up to its end of line: a quote that is never closed costs no more.
  static constexpr size_t mostRowBytes = 65536;

  /// @throws PlotFailure without memory
  CsvRows();
  CsvRows(const CsvRows&) = delete;
  CsvRows& operator=(const CsvRows&) = delete;
  ~CsvRows();

  /// What stands between two fields; a comma at first.
  void setSeparator(char separator);
  /// Takes a piece. @param onRow is given each row that is complete now, as
  /// `void(std::span<const std::string_view>)`; the fields live until it returns
  template <class OnRow>
  void feed(std::string_view bytes, OnRow&& onRow) {
    while (!bytes.empty()) {
      // Line by line: what ends a row is the end of a line, so a step completes one row at most.
      const size_t end = bytes.find_first_of("\r\n");
      const size_t length = end == std::string_view::npos ? bytes.size() : end + 1;
      if (takeLine(bytes.substr(0, length), end != std::string_view::npos)) onRow(fields());
      bytes.remove_prefix(length);
    }
  }
  /// Completes a last row that no end of line follows.
  template <class OnRow>
  void finish(OnRow&& onRow) {
    if (takeEnd()) onRow(fields());
  }
  /// Forgets a row that is not complete.
  void startOver();

  /// Rows left out for their length.
  uint64_t tooLong() const { return _tooLong; }
  /// True while bytes of a row wait for the rest of it.
  bool isInsideRow() const { return _rowBytes > 0 || _skipping; }

 private:
  static void onField(void* text, size_t length, void* self);
  static void onRowEnd(int lastByte, void* self);

  // True when a row is complete.
  bool takeLine(std::string_view line, bool isWhole);
  bool takeEnd();
  void skipRow();
  void beginRow();
  std::span<const std::string_view> fields();

  csv_parser _parser;
  std::string_view _blanks = " \t\r\n";
  std::string _text;  // all fields of the row, one after the other
  std::vector<size_t> _ends;
  std::vector<std::string_view> _fields;
  size_t _rowBytes = 0;
  uint64_t _tooLong = 0;
  bool _rowDone = false;
  bool _skipping = false;
};
