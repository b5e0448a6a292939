#include "examples/plot/row_points.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
// The axis must hold the whole extent and the margin around it as a double.
constexpr double kLargest = 1e300;
constexpr size_t kNoColumn = SIZE_MAX;

std::string_view cell(std::span<const std::string_view> row, size_t column) {
  return column < row.size() ? row[column] : std::string_view();
}

double numberIn(std::string_view text) {
  const double number = parseNumber(text).value_or(kNaN);
  return std::abs(number) <= kLargest ? number : kNaN;
}

size_t columnNamed(std::span<const std::string_view> names, const std::string& name) {
  const auto found = std::find(names.begin(), names.end(), name);
  return found == names.end() ? kNoColumn : static_cast<size_t>(found - names.begin());
}

}  // namespace

RowPoints::RowPoints(const PlotColumns& chosen, size_t header, const PlotOptions& options)
    : _xName(chosen.xName),
      _xColumn(chosen.xColumn),
      _isDate(chosen.xKind == PlotXKind::Date),
      _isLogX(options.logX),
      _columnCount(header),
      _clock(options.timeZone),
      _x(kNaN),
      _ys(chosen.lines.size(), kNaN) {
  for (const PlotLine& line : chosen.lines)
    _sources.push_back({line.name, line.column, options.logY && !line.onSecondAxis});
}

bool RowPoints::takeHeader(std::span<const std::string_view> names) {
  const auto isIn = [names](const Source& source) { return columnNamed(names, source.name) != kNoColumn; };
  if (std::none_of(_sources.begin(), _sources.end(), isIn)) return false;
  for (Source& source : _sources) source.column = columnNamed(names, source.name);
  if (_xColumn) _xColumn = columnNamed(names, _xName);
  _columnCount = names.size();
  startOver();
  return true;
}

void RowPoints::startOver() {
  _row = 0;
  _x = kNaN;
}

bool RowPoints::hasNumbers(std::span<const std::string_view> row) const {
  return std::any_of(_sources.begin(), _sources.end(), [row](const Source& source) {
    return parseNumber(cell(row, source.column)).has_value();
  });
}

bool RowPoints::isOtherHeader(std::span<const std::string_view> row) {
  const auto isNumber = [](std::string_view cell) { return parseNumber(cell).has_value(); };
  const auto isText = [](std::string_view cell) {
    return cell.find_first_not_of(" \t") != std::string_view::npos;
  };
  if (std::any_of(row.begin(), row.end(), isNumber) || std::none_of(row.begin(), row.end(), isText))
    return false;
  return !_xColumn || std::isnan(readX(row));
}

double RowPoints::readX(std::span<const std::string_view> row) {
  if (!_xColumn) return static_cast<double>(_row);
  const std::string_view text = cell(row, *_xColumn);
  if (!_isDate) return numberIn(text);
  const auto date = parseIsoDate(text);
  return date ? _clock.secondsOf(*date) : kNaN;
}

bool RowPoints::read(std::span<const std::string_view> row) {
  ++_row;
  if (row.size() != _columnCount) ++_faults.uneven;
  const double x = readX(row);
  if (std::isnan(x)) ++_faults.gaps;
  const bool xIsShown = !std::isnan(x) && !(_isLogX && x <= 0.0);
  if (xIsShown) _x = x;
  for (size_t i = 0; i < _sources.size(); ++i) {
    const double y = numberIn(cell(row, _sources[i].column));
    const bool isShown = xIsShown && !(_sources[i].isLogarithmic && y <= 0.0);
    if (std::isnan(y)) ++_faults.gaps;
    if (!isShown && !std::isnan(x) && !std::isnan(y)) ++_faults.leftOut;
    _ys[i] = isShown ? y : kNaN;
  }
  return !std::isnan(_x);
}
