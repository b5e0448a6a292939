#include "examples/plot/csv_rows.h"

#include "examples/plot/failure.h"

CsvRows::CsvRows() {
  if (csv_init(&_parser, CSV_APPEND_NULL) != 0) throw PlotFailure("There is no memory to read the data.");
}

CsvRows::~CsvRows() { csv_free(&_parser); }

void CsvRows::setSeparator(char separator) {
  csv_set_delim(&_parser, static_cast<unsigned char>(separator));
  _blanks = separator == '\t' ? " \r\n" : " \t\r\n";
}

void CsvRows::onField(void* text, size_t length, void* self) {
  auto& rows = *static_cast<CsvRows*>(self);
  rows._text.append(static_cast<const char*>(text), length);
  rows._ends.push_back(rows._text.size());
}

void CsvRows::onRowEnd(int, void* self) { static_cast<CsvRows*>(self)->_rowDone = true; }

void CsvRows::beginRow() {
  _text.clear();
  _ends.clear();
  _rowBytes = 0;
  _rowDone = false;
}

void CsvRows::startOver() {
  skipRow();
  _skipping = false;
}

void CsvRows::skipRow() {
  // The parser has no other way to forget what it holds.
  csv_fini(&_parser, onField, onRowEnd, this);
  beginRow();
  _skipping = true;
}

bool CsvRows::takeLine(std::string_view line, bool isWhole) {
  if (_rowDone) beginRow();
  if (_skipping) {
    _skipping = !isWhole;
    return false;
  }
  if (_rowBytes + line.size() > mostRowBytes) {
    ++_tooLong;
    skipRow();
    _skipping = !isWhole;
    return false;
  }
  // What is blank before a row begins belongs to none.
  if (_rowBytes > 0 || line.find_first_not_of(_blanks) != std::string_view::npos) _rowBytes += line.size();
  if (csv_parse(&_parser, line.data(), line.size(), onField, onRowEnd, this) != line.size())
    throw PlotFailure("There is no memory to read the data.");
  return _rowDone;
}

bool CsvRows::takeEnd() {
  if (_rowDone) beginRow();
  csv_fini(&_parser, onField, onRowEnd, this);
  return _rowDone;
}

std::span<const std::string_view> CsvRows::fields() {
  _fields.clear();
  size_t begin = 0;
  for (const size_t end : _ends) {
    _fields.push_back(std::string_view(_text).substr(begin, end - begin));
    begin = end;
  }
  _rowBytes = 0;
  return _fields;
}
