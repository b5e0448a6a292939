// How points get into a data series, change and leave it, whatever they consist of.
#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <string>

#include "velmora/data/array_controller_fifo.h"
#include "velmora/data/data_series.h"
#include "velmora/platform/exception.h"

namespace {

using Counts = std::array<int64_t, kVELMostColumns>;

bool areNumbers(std::span<const VELGenericType> values) {
  return std::all_of(values.begin(), values.end(),
                     [](VELGenericType value) { return VELIsNumericType(value.type); });
}

/// Rows, those of them copied that lie in a column of the series, whose next change moves them.
class DetachedRows {
 public:
  DetachedRows(std::span<const VELArrayControllerPtr> columns, std::span<const VELNumberSpan> rows) {
    for (size_t i = 0; i < rows.size(); ++i) {
      _rows[i] = rows[i];
      for (const auto& column : columns) {
        if (_rows[i].data() == rows[i].data()) _rows[i] = column->detached(rows[i], _copies[i]);
      }
    }
  }
  VELNumberSpan operator[](size_t i) const { return _rows[i]; }

 private:
  std::array<VELRawBuffer, kVELMostColumns> _copies;
  std::array<VELNumberSpan, kVELMostColumns> _rows;
};

/// What the action raised, to be raised again once the points are whole.
template <class Action>
std::exception_ptr raisedBy(Action action) {
  try {
    action();
  } catch (...) {
    return std::current_exception();
  }
  return nullptr;
}

}  // namespace

void VELDataSeries::p_VEL_assertEqual(std::span<const int64_t> counts, const char* before,
                                      const char* after) const {
  const auto differs = [counts](int64_t count) { return count != counts.front(); };
  if (std::none_of(counts.begin(), counts.end(), differs)) return;
  throw VELInvalidArgumentException(std::string("DataSeries ") + before + _layout.keywords + after +
                                    " can operate only on arrays with equal size");
}

// The two ways in: x first and its order looked at before the other columns follow. An append that is refused
// leaves its x alone at the end, where readers pass over it; in the middle it would part every later pair, so
// that an insert is carried out before it is refused.

template <class Change>
void VELDataSeries::p_VEL_append(Change change) {
  const int64_t previousCount = _columns[0]->count();
  change(*_columns[0], 0);
  onAppendXColumnWithPreviousCount(previousCount);
  for (size_t i = 1; i < _columns.size(); ++i) change(*_columns[i], i);
  dataSeriesChanged();
}

template <class Change>
void VELDataSeries::p_VEL_insert(int64_t index, Change change) {
  const int64_t previousCount = _columns[0]->count();
  change(*_columns[0], 0);
  const std::exception_ptr refusal =
      raisedBy([&] { onInsertXColumnWithPreviousCount(previousCount, index); });
  for (size_t i = 1; i < _columns.size(); ++i) change(*_columns[i], i);
  dataSeriesChanged();
  if (refusal) std::rethrow_exception(refusal);
}

bool VELDataSeries::p_VEL_takes(std::span<const VELGenericType> values) const {
  // The usual case: what the columns store themselves.
  bool isOwn = true;
  for (size_t i = 0; i < values.size(); ++i) isOwn = isOwn && values[i].type == _columns[i]->type();
  if (isOwn) return true;
  Counts added{};
  for (size_t i = 0; i < values.size(); ++i) added[i] = _columns[i]->countToAppend(values[i]);
  const std::span<const int64_t> counts(added.data(), values.size());
  if (std::find(counts.begin(), counts.end(), 0) != counts.end()) return false;
  p_VEL_assertEqual(counts, "append", "");
  return true;
}

void VELDataSeries::p_VEL_appendPoint(std::span<const VELGenericType> values) {
  if (!p_VEL_takes(values)) return;
  p_VEL_append([values](VELArrayController& column, size_t i) { column.append(values[i]); });
}

bool VELDataSeries::p_VEL_takesRows(std::span<const VELNumberSpan> rows, const char* before,
                                    const char* after) const {
  Counts counts{};
  std::transform(rows.begin(), rows.end(), counts.begin(), [](VELNumberSpan row) { return row.count(); });
  p_VEL_assertEqual({counts.data(), rows.size()}, before, after);
  if (_isFifo || counts[0] == 0) return false;
  for (size_t i = 0; i < rows.size(); ++i) _columns[i]->countToAppend(rows[i]);
  return true;
}

void VELDataSeries::p_VEL_appendRows(std::initializer_list<VELNumberSpan> rows) {
  if (!p_VEL_takesRows(rows, "appendRange", "")) return;
  const DetachedRows detached(_columns, rows);
  p_VEL_append([&](VELArrayController& column, size_t i) { column.appendRange(detached[i]); });
}

void VELDataSeries::p_VEL_appendRows(std::initializer_list<VELGenericType> rows, int64_t count) {
  if (_isFifo) return;
  const VELGenericType* row = rows.begin();
  Counts counts{};
  std::array<VELNumberSpan, kVELMostColumns> numbers;
  for (size_t i = 0; i < rows.size(); ++i) {
    const bool isArray = row[i].type == VELDataType_Array;
    counts[i] = isArray ? _columns[i]->countToAppend(row[i]) : _columns[i]->countToInsert(row[i], count);
    numbers[i] = VELNumberSpan(row[i], count);
  }
  const std::span<const int64_t> added(counts.data(), rows.size());
  if (std::find(added.begin(), added.end(), 0) != added.end()) return;
  p_VEL_assertEqual(added, "appendRange", "Count:");
  const DetachedRows detached(_columns, {numbers.data(), rows.size()});
  p_VEL_append([&](VELArrayController& column, size_t i) {
    row[i].type == VELDataType_Array ? column.append(row[i]) : column.appendRange(detached[i]);
  });
}

void VELDataSeries::p_VEL_insertPoint(int64_t index, std::initializer_list<VELGenericType> values) {
  if (_isFifo || index < 0 || index > p_VEL_pointCount()) return;
  const VELGenericType* value = values.begin();
  // Asked for what they raise; arrays are appended only.
  for (size_t i = 0; i < values.size(); ++i) _columns[i]->countToAppend(value[i]);
  if (!areNumbers(values)) return;
  p_VEL_insert(index, [=](VELArrayController& column, size_t i) { column.insertValue(value[i], index); });
}

void VELDataSeries::p_VEL_insertRows(int64_t index, std::initializer_list<VELNumberSpan> rows) {
  if (!p_VEL_takesRows(rows, "insertRangeAt:", "Count:") || index < 0 || index > p_VEL_pointCount()) return;
  const DetachedRows detached(_columns, rows);
  p_VEL_insert(index, [&](VELArrayController& column, size_t i) { column.insertRange(detached[i], index); });
}

void VELDataSeries::p_VEL_insertRows(int64_t index, std::initializer_list<VELGenericType> rows,
                                     int64_t count) {
  if (_isFifo || index < 0 || index > p_VEL_pointCount()) return;
  const VELGenericType* row = rows.begin();
  std::array<VELNumberSpan, kVELMostColumns> numbers;
  bool haveAll = true;
  for (size_t i = 0; i < rows.size(); ++i) {
    haveAll = _columns[i]->countToInsert(row[i], count) != 0 && haveAll;
    numbers[i] = VELNumberSpan(row[i], count);
  }
  if (!haveAll) return;
  const DetachedRows detached(_columns, {numbers.data(), rows.size()});
  p_VEL_insert(index, [&](VELArrayController& column, size_t i) { column.insertRange(detached[i], index); });
}

void VELDataSeries::p_VEL_updatePoint(int64_t index, std::initializer_list<VELGenericType> values) {
  if (index < 0 || index >= p_VEL_pointCount() || !areNumbers(values)) return;
  const VELGenericType* value = values.begin();
  const size_t first = _columns.size() - values.size();
  std::exception_ptr refusal;
  for (size_t i = 0; i < values.size(); ++i) {
    _columns[first + i]->setValue(value[i], index);
    if (first + i == 0) refusal = raisedBy([&] { onUpdateXColumnAtIndex(index); });
  }
  dataSeriesChanged();
  if (refusal) std::rethrow_exception(refusal);
}

void VELDataSeries::removeRangeFrom(int64_t start, int64_t count) {
  // Measured by x: an x that an unsorted append left over can be taken away, too.
  if (start < 0 || count < 1 || count > _columns[0]->count() - start) return;
  for (const auto& column : _columns)
    column->removeRangeFrom(start, std::min(count, column->count() - start));
  p_VEL_event().calculator->updateDataDistributionFlagsWhenRemovedXValues();
  dataSeriesChanged();
}

void VELDataSeries::removeValue(VELGenericType value) {
  const int64_t index = findIndexForValue(value, VELArraySearchMode_Exact);
  if (index >= 0) removeAt(index);
}

void VELDataSeries::clear() {
  const auto self = weak_from_this().lock();
  clearColumns();
  dataSeriesChanged();
  p_VEL_event().calculator->clear();
  // Whoever was told may have filled the series again: that order was forgotten with the old one.
  if (hasValues()) p_VEL_tellOfGrowth(count(), true);
  p_VEL_forgetAnswers();
}

void VELDataSeries::clearColumns() {
  for (const auto& column : _columns) column->clear();
}

VELDataSeries::Event VELDataSeries::p_VEL_event() const {
  if (_isCalculatorInstalled) return {_calculator, _columns[0]};
  // The series' own calculator calls nobody back: counting references would be all that an append waits for.
  return {{std::shared_ptr<void>(), _calculator.get()}, {std::shared_ptr<void>(), _columns[0].get()}};
}

void VELDataSeries::p_VEL_tellOfGrowth(int64_t added, bool acceptsUnsortedData) {
  const Event event = p_VEL_event();
  // An array of dates may have filled a ring and turned it; a full one is not looked at and stays as it is.
  if (_isFifo && added != 0) static_cast<VELArrayControllerFIFO&>(*event.x).normalizeIndices();
  event.calculator->onAppendValueInArrayController(*event.x, added, acceptsUnsortedData);
}

// The calculator may raise, and then no notice of an append follows: answers are forgotten before.

void VELDataSeries::onAppendXColumnWithPreviousCount(int64_t previousCount) {
  p_VEL_forgetAnswers();
  p_VEL_tellOfGrowth(_columns[0]->count() - previousCount, _acceptUnsortedData);
}

void VELDataSeries::onUpdateXColumnAtIndex(int64_t index) {
  p_VEL_forgetAnswers();
  const Event event = p_VEL_event();
  event.calculator->onUpdateValueInArrayController(*event.x, index, _acceptUnsortedData);
}

void VELDataSeries::onInsertXColumnWithPreviousCount(int64_t previousCount, int64_t index) {
  p_VEL_forgetAnswers();
  const Event event = p_VEL_event();
  event.calculator->onInsertValueInArrayController(*event.x, index, event.x->count() - previousCount,
                                                   _acceptUnsortedData);
}
