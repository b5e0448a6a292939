// data/array_controller.h: one column of values, unboxed and growing.
//
// How a value is found is data/array_search.h; the ring of fixed size is data/array_controller_fifo.h.
// Units: counts, capacities and indices are elements; DateTime elements are seconds since 1970.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "velmora/data/column_view.h"
#include "velmora/data/element_type.h"
#include "velmora/data/generic_type.h"
#include "velmora/data/number_span.h"
#include "velmora/data/raw_buffer.h"
#include "velmora/platform/export.h"

enum VELArraySearchMode : int32_t {
  VELArraySearchMode_Exact = 0,
  VELArraySearchMode_Nearest = 1,    ///< the nearer neighbour; on a tie the later one
  VELArraySearchMode_RoundDown = 2,  ///< the last element below the value
  VELArraySearchMode_RoundUp = 3,    ///< the first element above the value
};

/// A contiguous, growable column of one scalar type; every value is converted to it on the way in.
///
/// Always true: the type never changes; growth doubles from 64; `clear` keeps the buffer, `purge` frees it.
/// Pointers and spans into the buffer are valid until the next operation that changes the column.
class VELMORA_API VELArrayController {
 public:
  /// @param type a numeric tag, 1 to 7
  /// @param size the first capacity; below 1 nothing is allocated yet
  /// @return null when the type is no storage type
  static std::shared_ptr<VELArrayController> initWithType(VELDataType type, int64_t size = 0);
  virtual ~VELArrayController();
  VELArrayController(const VELArrayController&) = delete;
  VELArrayController& operator=(const VELArrayController&) = delete;

  VELDataType type() const { return _type; }
  int64_t count() const { return _count; }
  int64_t currentMaxSize() const { return _maxSize; }
  bool isEmpty() const { return _count == 0; }
  /// Bytes of one element.
  int32_t dataTypeSize() const { return VELElementSize(_type); }

  // The raw buffer in storage order (a ring's logical order only after `normalizeIndices`); the typed forms
  // are null for any other storage type.
  void* data() { return _data.data(); }
  const void* data() const { return _data.data(); }
  /// The buffer as a pointer-tagged value; it may only be read through it.
  VELGenericType genericData() const;
  void* dataOfType(VELDataType type) { return type == _type ? data() : nullptr; }
  const void* dataOfType(VELDataType type) const { return type == _type ? data() : nullptr; }
  float* floatData() { return static_cast<float*>(dataOfType(VELDataType_Float)); }
  int16_t* int16Data() { return static_cast<int16_t*>(dataOfType(VELDataType_Int16)); }
  int32_t* int32Data() { return static_cast<int32_t*>(dataOfType(VELDataType_Int32)); }
  int64_t* int64Data() { return static_cast<int64_t*>(dataOfType(VELDataType_Int64)); }
  int8_t* byteData() { return static_cast<int8_t*>(dataOfType(VELDataType_Byte)); }
  /// Double and DateTime columns.
  double* doubleData() { return VELStoresElement<double>(_type) ? static_cast<double*>(data()) : nullptr; }
  /// On purpose the buffer of Double columns only, null for DateTime ones: it is for who fills plain seconds.
  double* dateTimeData() { return static_cast<double*>(dataOfType(VELDataType_Double)); }

  /// The elements in storage order; empty when the column stores another type (dates are doubles).
  template <typename T>
  std::span<const T> elements() const {
    if (!VELStoresElement<T>(_type) || _count == 0) return {};
    return {static_cast<const T*>(data()), static_cast<size_t>(_count)};
  }
  /// What readers of numbers see, in storage order; a category column shows its indices.
  virtual VELColumnView view() const { return {_type, data(), _count}; }
  std::span<const double> doubles() const { return elements<double>(); }
  std::span<const float> floats() const { return elements<float>(); }
  std::span<const int16_t> int16s() const { return elements<int16_t>(); }
  std::span<const int32_t> int32s() const { return elements<int32_t>(); }
  std::span<const int64_t> int64s() const { return elements<int64_t>(); }
  std::span<const int8_t> bytes() const { return elements<int8_t>(); }

  /// The element tagged with the storage type; tag None outside the column.
  virtual VELGenericType valueAt(int64_t index) const;
  /// Overwrites an element; an index outside the column and a value that is no number are ignored.
  virtual void setValue(VELGenericType value, int64_t index);

  /// Appends a number, or to a DateTime column a date or an array of dates; other tags are ignored.
  /// @throws VELInvalidArgumentException for a value other than Double, DateTime or Array to a DateTime
  /// column, for
  ///   a DateTime to any other column, and for an array element that is no date (those before it stay)
  virtual void append(VELGenericType value);
  /// Appends numbers straight from memory, as if one by one with their own tag; in a DateTime column they are
  /// seconds, whatever their type. They may be of this very column.
  /// @throws VELInvalidArgumentException for dates to any other column
  virtual void appendRange(VELNumberSpan values);
  /// The same from a pointer-tagged value; an array value goes to `append`, any other tag does nothing.
  /// @throws VELInvalidArgumentException as `append`: to a DateTime column only pointers to doubles
  virtual void appendRange(VELGenericType values, int64_t count);
  /// How many elements `append` would add to a plain column, and raises what it would raise; nothing changes.
  int64_t countToAppend(VELGenericType value) const;
  /// The same for `appendRange`.
  int64_t countToAppend(VELNumberSpan values) const;
  /// The same for `appendRange` and `insertRange` of @p count elements; arrays count as nothing to insert.
  int64_t countToInsert(VELGenericType values, int64_t count) const;

  /// The numbers, or a copy of them in @p buffer when they lie in this column, whose next change moves them.
  VELNumberSpan detached(VELNumberSpan values, VELRawBuffer& buffer) const;

  /// Inserts before @p index, 0 to count; beyond that nothing happens. Errors as `append`.
  virtual void insertValue(VELGenericType value, int64_t index);
  /// Inserts numbers straight from memory, as `appendRange` takes them.
  virtual void insertRange(VELNumberSpan values, int64_t index);
  /// Inserts @p count numbers from a pointer-tagged value. Errors as `appendRange` of one.
  virtual void insertRange(VELGenericType values, int64_t index, int64_t count);

  void removeAt(int64_t index) { removeRangeFrom(index, 1); }
  /// Ignored when any part of the range lies outside the column.
  virtual void removeRangeFrom(int64_t start, int64_t count);
  /// Removes one element equal to the value from a sorted column.
  void removeValue(VELGenericType value);
  /// Empties the column and keeps its buffer.
  virtual void clear();
  /// Empties the column and frees its buffer.
  virtual void purge();
  /// Sets the count, growing the buffer to exactly that many; new elements are uninitialised.
  virtual void setCount(int64_t count);

  /// Minimum and maximum as doubles. Double columns skip NaN; a Float column counts only what stands before
  /// its first NaN, on purpose. Without such an element the pair is inverted: the type's largest and its
  /// lowest value.
  virtual void getRangeMin(double& min, double& max) const;

  /// Index of a value, or -1. In sorted columns a value that is not there gives what the mode says, and a
  /// value beyond either end that end (but -1 when exact); NaN gives -1.
  /// @throws VELInvalidArgumentException when the column is unsorted and the mode is not exact
  virtual int64_t indexOf(VELGenericType value, bool isSorted, VELArraySearchMode mode);

  /// Replaces the caller's buffer by a copy of the elements in logical order.
  /// @param type receives the storage type
  virtual void copyToArray(VELRawBuffer& array, int64_t& count, VELDataType& type) const;
  /// Reverses the order in place.
  virtual void reverse();

  /// A column of the same kind with the same elements in logical order; its capacity is what they need (a
  /// ring keeps its capacity).
  virtual std::shared_ptr<VELArrayController> clone() const;

 protected:
  /// @param type checked by the factory
  explicit VELArrayController(VELDataType type) : _type(type) {}
  /// Sets the capacity and moves the elements to a buffer of it; below 1 the buffer is left as it is.
  void p_VEL_createDataArrayWithSize(int64_t size);
  void* slot(int64_t index);
  const void* slot(int64_t index) const;
  /// @return false when the value has no number
  bool store(VELGenericType value, int64_t index);
  VELGenericType load(int64_t index) const;
  void assertAccepts(VELDataType valueType) const;
  static void assertIsDate(VELGenericType element);
  /// Whether an address lies in the memory of this column.
  virtual bool isOwn(const void* values) const;
  /// `getRangeMin` of a column whose first element is at the physical index @p head.
  void rangeFrom(int64_t head, double& min, double& max) const;
  /// Copies all elements to @p target, starting with the one at the physical index @p head.
  void copyOrdered(void* target, int64_t head) const;

  VELRawBuffer _data;
  int64_t _maxSize = 0;
  int64_t _count = 0;
  const VELDataType _type;

 private:
  void appendDates(const VELArray& dates);
  /// Room for @p extra more elements, in the steps that single appends would take.
  void reserveFor(int64_t extra);
  void insertElements(VELNumberSpan values, int64_t index);
  void moveTail(int64_t from, int64_t to);
};

using VELArrayControllerPtr = std::shared_ptr<VELArrayController>;
