#include "examples/plot/plot_follower.h"

#include <algorithm>
#include <utility>

#include "examples/plot/csv_table.h"
#include "examples/plot/failure.h"
#include "examples/plot/plot_series.h"

namespace {

// The rows that are complete, as far as line ends tell: for a choice that is near enough.
std::string_view completeLines(std::string_view text) {
  const size_t end = text.find_last_of("\r\n");
  return end == std::string_view::npos ? text : text.substr(0, end + 1);
}

/// What the columns are chosen by, however much came at once: the header and the first rows.
std::string_view firstOf(std::string_view text) {
  const char lineEnd = text.find('\n') == std::string_view::npos ? '\r' : '\n';
  size_t end = 0;
  for (size_t row = 0; row <= PlotFollower::firstRows && end < text.size(); ++row)
    end = std::min(text.find(lineEnd, end), text.size() - 1) + 1;
  return text.substr(0, end);
}

constexpr char kBlanks[] = " \t\r\n";

bool isBlank(std::string_view text) {
  return withoutByteOrderMark(text).find_first_not_of(kBlanks) == std::string_view::npos;
}

size_t countLines(std::string_view text) {
  const auto count = [text](char c) { return std::count(text.begin(), text.end(), c); };
  return static_cast<size_t>(std::max(count('\n'), count('\r')));
}

void addNote(std::vector<std::string>& notes, uint64_t count, const char* one, const char* many,
             const std::string& rest) {
  if (count > 0) notes.push_back(std::to_string(count) + (count == 1 ? one : many) + rest);
}

}  // namespace

void PlotFollower::feed(std::string_view bytes, double seconds) {
  if (_columns) return take(bytes);
  _first.append(bytes);
  _firstLines += countLines(bytes);
  dropBlankBeginning();
  tryToChoose(seconds, false);
}

void PlotFollower::dropBlankBeginning() {
  const size_t mark = _first.size() - withoutByteOrderMark(_first).size();
  const size_t text = std::min(_first.find_first_not_of(kBlanks, mark), _first.size());
  if (text == 0) return;
  // Blanks after the last line end may belong to the first row, unless they are too many for any.
  const bool isTooLong = text == _first.size() && text > CsvRows::mostRowBytes;
  const size_t end = isTooLong ? text - 1 : _first.find_last_of("\r\n", text);
  if (end == std::string::npos) return;
  _first.erase(0, end + 1);
  _firstLines = countLines(_first);
}

void PlotFollower::wait(double seconds) {
  if (!_columns) tryToChoose(seconds, false);
}

void PlotFollower::choose(double seconds) {
  if (!_columns) tryToChoose(seconds, true);
}

void PlotFollower::finish(double seconds) {
  choose(seconds);
  _rows.finish([this](std::span<const std::string_view> row) { takeRow(row); });
}

void PlotFollower::startOver() {
  _first.clear();
  _firstLines = 0;
  _firstRowSeconds.reset();
  _namesAreKnown = false;
  _rows.startOver();
  if (!_columns) return;
  for (const auto& data : _data) data->clear();
  _points->startOver();
  _sinceDescent.reset();
  _firstRow = FirstRow::HeaderOrData;
}

bool PlotFollower::isReady(double seconds, bool isAtEnd) {
  if (isAtEnd || _firstLines > firstRows || _first.size() >= firstBytes) return true;
  if (_firstLines < 2) return false;  // the header alone
  if (!_firstRowSeconds) _firstRowSeconds = seconds;
  return seconds - *_firstRowSeconds >= firstSeconds;
}

void PlotFollower::tryToChoose(double seconds, bool isAtEnd) {
  const bool checkNames = !_namesAreKnown && _firstLines > 0;
  const bool isTime = isReady(seconds, isAtEnd);
  if (!isTime && !checkNames) return;
  const std::string name =
      _options.file == kStandardInput ? "The standard input" : "'" + sourceName(_options) + "'";
  const std::string_view lines = isAtEnd ? std::string_view(_first) : completeLines(_first);
  // Blank lines alone are no header yet.
  if (!isAtEnd && isBlank(lines)) return;
  const CsvTable table = parseCsv(firstOf(lines), name);
  assertColumnsExist(table, _options);
  _namesAreKnown = true;
  if (!isTime) return;
  try {
    follow(choosePlotColumns(table, _options), table.columns.size());
  } catch (const PlotFailure&) {
    // A source that begins with gaps gets more time.
    if (isAtEnd || _firstLines > firstRows || _first.size() >= firstBytes) throw;
    _firstRowSeconds = seconds;
  }
}

void PlotFollower::follow(PlotColumns columns, size_t header) {
  assertCapacityFits(_options.capacity, columns.lines.size());
  _points.emplace(columns, header, _options);
  for (const PlotLine& line : columns.lines)
    _data.push_back(makeRing(line, columns.xKind, !columns.xColumn, _options.capacity));
  _columns.emplace(std::move(columns));
  const std::string first = std::move(_first);
  _first = {};
  _rows.setSeparator(separatorOf(withoutByteOrderMark(first)));
  take(withoutByteOrderMark(first));
}

void PlotFollower::take(std::string_view bytes) {
  _rows.feed(bytes, [this](std::span<const std::string_view> row) { takeRow(row); });
}

void PlotFollower::takeRow(std::span<const std::string_view> row) {
  const FirstRow first = std::exchange(_firstRow, FirstRow::Taken);
  if (first == FirstRow::Header) return;
  if (first == FirstRow::HeaderOrData && !_points->hasNumbers(row)) {
    if (_points->takeHeader(row)) return;
    if (_points->isOtherHeader(row))
      throw PlotFailure("'" + sourceName(_options) +
                        "' began again with other columns: its header names none of the lines on screen.");
  }
  if (!_points->read(row)) return;
  append();
  ++_rowCount;
}

void PlotFollower::append() {
  const double x = _points->x();
  const bool isDate = _columns->xKind == PlotXKind::Date;
  const VELGenericType place = isDate ? VELGenericType(VELDate(x)) : VELGenericType(x);
  for (size_t i = 0; i < _data.size(); ++i) _data[i]->appendX(place, _points->ys()[i]);
  noteOrder(x);
}

void PlotFollower::noteOrder(double x) {
  // A full ring does not look at the order of what it takes.
  const bool isDescent = _data.front()->count() > 1 && x < _lastX;
  _lastX = x;
  if (!isDescent && !_sinceDescent) return;
  _sinceDescent = isDescent ? 0 : *_sinceDescent + 1;
  const bool isForgotten = *_sinceDescent >= _options.capacity - 1;
  if (isForgotten) _sinceDescent.reset();
  for (const auto& data : _data) data->dataDistributionCalculator()->setDataIsSortedAscending(isForgotten);
}

std::vector<std::string> PlotFollower::notes() const {
  std::vector<std::string> notes;
  const uint64_t tooLong = _rows.tooLong();
  if (!_points) return notes;
  const RowFaults& faults = _points->faults();
  addNote(notes, faults.gaps, " cell is", " cells are",
          " empty or not a number or date and left out of the lines.");
  addNote(notes, faults.leftOut, " point is", " points are",
          " not above zero, where a logarithmic axis ends, and left out of the lines.");
  addNote(notes, faults.uneven, " row has", " rows have", " more or fewer fields than the header.");
  addNote(notes, tooLong, " row is", " rows are",
          " longer than " + std::to_string(CsvRows::mostRowBytes) + " bytes and left out.");
  return notes;
}
