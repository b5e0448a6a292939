#include "velmora/data/array_controller.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

#include "velmora/data/array_search.h"
#include "velmora/data/element_converter.h"
#include "velmora/platform/exception.h"

namespace {

constexpr int64_t firstCapacity = 64;

template <typename T>
T numberAs(VELGenericType value) {
  if constexpr (std::is_same_v<T, int8_t>) return VELGenericChar(value);
  if constexpr (std::is_same_v<T, int16_t>) return VELGenericShort(value);
  if constexpr (std::is_same_v<T, int32_t>) return VELGenericInt(value);
  if constexpr (std::is_same_v<T, int64_t>) return VELGenericLong(value);
  if constexpr (std::is_same_v<T, float>) return VELGenericFloat(value);
  if constexpr (std::is_same_v<T, double>) return VELGenericDouble(value);
}

template <typename Source, typename Target>
void convertElements(const Source* from, Target* to, int64_t count) {
  if constexpr (std::is_same_v<Source, Target>) {
    std::memcpy(to, from, static_cast<size_t>(count) * sizeof(Target));
  } else if constexpr (std::is_same_v<Source, VELDate>) {
    // Only date columns take dates, and they store doubles.
    std::transform(from, from + count, to,
                   [](VELDate date) { return static_cast<Target>(date.timeIntervalSince1970()); });
  } else {
    std::transform(from, from + count, to,
                   [](const Source& value) { return VELConvertElement<Source, Target>(&value); });
  }
}

}  // namespace

VELArrayController::~VELArrayController() = default;

std::shared_ptr<VELArrayController> VELArrayController::initWithType(VELDataType type, int64_t size) {
  struct Made : VELArrayController {
    explicit Made(VELDataType storage) : VELArrayController(storage) {}
  };
  if (!VELIsNumericType(type)) return nullptr;
  auto controller = std::make_shared<Made>(type);
  controller->p_VEL_createDataArrayWithSize(size);
  return controller;
}

void VELArrayController::p_VEL_createDataArrayWithSize(int64_t size) {
  if (size >= 1) {
    // No element is wider than a double, so the bytes of as many fit the address space.
    if (size > std::numeric_limits<ptrdiff_t>::max() / int64_t{sizeof(double)}) throw std::bad_alloc();
    _data.resize(static_cast<size_t>(size) * static_cast<size_t>(dataTypeSize()));
  }
  _maxSize = std::max<int64_t>(size, 0);
}

void VELArrayController::reserveFor(int64_t extra) {
  if (extra <= _maxSize - _count) return;
  constexpr int64_t largest = std::numeric_limits<int64_t>::max();
  if (extra > largest - _count) throw std::bad_alloc();
  int64_t capacity = _maxSize > 0 ? _maxSize : firstCapacity;
  while (capacity < _count + extra) capacity = capacity > largest / 2 ? largest : capacity * 2;
  p_VEL_createDataArrayWithSize(capacity);
}

void* VELArrayController::slot(int64_t index) {
  return static_cast<std::byte*>(data()) + index * dataTypeSize();
}

const void* VELArrayController::slot(int64_t index) const {
  return static_cast<const std::byte*>(data()) + index * dataTypeSize();
}

bool VELArrayController::store(VELGenericType value, int64_t index) {
  if (!VELIsNumericType(value.type)) return false;
  VELVisitElementType(_type, [&](auto element) {
    using T = typename decltype(element)::type;
    T* target = static_cast<T*>(data()) + index;
    // The usual case needs no conversion: a value's bytes stand where its union member does.
    if (value.type == _type)
      std::memcpy(target, &value.data, sizeof(T));
    else
      *target = numberAs<T>(value);
  });
  return true;
}

VELGenericType VELArrayController::load(int64_t index) const {
  return VELVisitElementType(_type, [&](auto element) {
    using T = typename decltype(element)::type;
    VELGenericType value = static_cast<const T*>(data())[index];
    value.type = _type;
    return value;
  });
}

void VELArrayController::assertAccepts(VELDataType valueType) const {
  const bool isDate = valueType == VELDataType_DateTime;
  if (_type != VELDataType_DateTime) {
    if (!isDate) return;
    throw VELInvalidArgumentException(
        "VELGenericType with DateTime data can be to ArrayController only of type DateTime");
  }
  if (isDate || valueType == VELDataType_Double || valueType == VELDataType_Array) return;
  throw VELInvalidArgumentException(
      "Array Controller of DateTime type accepts VELGenericType with Double, DateTime or NSArray with "
      "DateTime");
}

VELGenericType VELArrayController::genericData() const {
  VELGenericType value;
  constexpr VELDataType pointerTags[] = {VELDataType_None,      VELDataType_Int16Ptr, VELDataType_Int32Ptr,
                                         VELDataType_Int64Ptr,  VELDataType_CharPtr,  VELDataType_FloatPtr,
                                         VELDataType_DoublePtr, VELDataType_DoublePtr};
  value.type = pointerTags[_type];
  value.data.object = data();
  return value;
}

VELGenericType VELArrayController::valueAt(int64_t index) const {
  return index >= 0 && index < _count ? load(index) : VELGenericType();
}

void VELArrayController::setValue(VELGenericType value, int64_t index) {
  if (index >= 0 && index < _count) store(value, index);
}

void VELArrayController::append(VELGenericType value) {
  // The usual case: a double, date or 64-bit integer into a column of its own with room for it. The general
  // way below does the same.
  if (value.type == _type && _count < _maxSize && dataTypeSize() == sizeof(value.data)) {
    std::memcpy(static_cast<std::byte*>(data()) + static_cast<size_t>(_count) * sizeof(value.data),
                &value.data, sizeof(value.data));
    ++_count;
    return;
  }
  assertAccepts(value.type);
  if (_count >= _maxSize) reserveFor(1);
  if (store(value, _count)) {
    ++_count;
  } else if (const VELArray* dates = VELGenericArray(value);
             dates != nullptr && _type == VELDataType_DateTime) {
    appendDates(*dates);
  }
}

void VELArrayController::appendDates(const VELArray& dates) {
  const auto extra = static_cast<int64_t>(dates.size());
  if (extra > _maxSize - _count) p_VEL_createDataArrayWithSize((_maxSize + extra) * 2);
  for (const VELGenericType& date : dates) {
    assertIsDate(date);
    store(date, _count);
    ++_count;
  }
}

void VELArrayController::assertIsDate(VELGenericType element) {
  if (element.type == VELDataType_DateTime) return;
  throw VELInvalidArgumentException("Invalide data in array. Only NSDate allowed");
}

void VELArrayController::insertElements(VELNumberSpan values, int64_t index) {
  if (values.isEmpty() || index < 0 || index > _count) return;
  VELRawBuffer copy;
  values = detached(values, copy);
  const int64_t added = values.count();
  reserveFor(added);
  moveTail(index, index + added);
  VELVisitElementType(_type, [&](auto element) {
    auto* target = static_cast<typename decltype(element)::type*>(data()) + index;
    VELVisitNumbers(values, [&](auto numbers) { convertElements(numbers.data(), target, added); });
  });
  _count += added;
}

bool VELArrayController::isOwn(const void* values) const {
  const std::less<const void*> before;
  return data() != nullptr && !before(values, data()) && before(values, slot(_count));
}

void VELArrayController::moveTail(int64_t from, int64_t to) {
  if (from == _count) return;
  std::memmove(slot(to), slot(from), static_cast<size_t>((_count - from) * dataTypeSize()));
}

void VELArrayController::appendRange(VELNumberSpan values) { insertRange(values, _count); }

void VELArrayController::appendRange(VELGenericType values, int64_t count) {
  if (values.type == VELDataType_Array) return append(values);
  insertRange(values, _count, count);
}

int64_t VELArrayController::countToAppend(VELGenericType value) const {
  assertAccepts(value.type);
  if (VELIsNumericType(value.type)) return 1;
  const VELArray* dates = VELGenericArray(value);
  if (dates == nullptr || _type != VELDataType_DateTime) return 0;
  for (const VELGenericType& date : *dates) assertIsDate(date);
  return static_cast<int64_t>(dates->size());
}

int64_t VELArrayController::countToAppend(VELNumberSpan values) const {
  // Numbers need no leave: without a tag they are seconds to a date column.
  if (values.type() == VELDataType_DateTime) assertAccepts(VELDataType_DateTime);
  return values.count();
}

int64_t VELArrayController::countToInsert(VELGenericType values, int64_t count) const {
  const VELNumberSpan numbers(values, count);
  if (!numbers.isEmpty()) assertAccepts(numbers.type());
  return numbers.count();
}

VELNumberSpan VELArrayController::detached(VELNumberSpan values, VELRawBuffer& buffer) const {
  if (!isOwn(values.data())) return values;
  buffer.resize(values.bytes());
  std::memcpy(buffer.data(), values.data(), values.bytes());
  return values.at(buffer.data());
}

void VELArrayController::insertValue(VELGenericType value, int64_t index) {
  if (index < 0 || index > _count) return;
  assertAccepts(value.type);
  if (!VELIsNumericType(value.type)) return;
  reserveFor(1);
  moveTail(index, index + 1);
  store(value, index);
  ++_count;
}

void VELArrayController::insertRange(VELNumberSpan values, int64_t index) {
  countToAppend(values);
  insertElements(values, index);
}

void VELArrayController::insertRange(VELGenericType values, int64_t index, int64_t count) {
  if (index < 0 || index > _count || countToInsert(values, count) == 0) return;
  insertRange(VELNumberSpan(values, count), index);
}

void VELArrayController::removeRangeFrom(int64_t start, int64_t count) {
  if (start < 0 || count < 0 || count > _count - start) return;
  moveTail(start + count, start);
  _count -= count;
}

void VELArrayController::removeValue(VELGenericType value) {
  const int64_t index = indexOf(value, true, VELArraySearchMode_Exact);
  if (index >= 0) removeAt(index);
}

void VELArrayController::clear() { _count = 0; }

void VELArrayController::purge() {
  _data.free();
  _maxSize = 0;
  _count = 0;
}

void VELArrayController::setCount(int64_t count) {
  if (count > _maxSize) p_VEL_createDataArrayWithSize(count);
  _count = std::max<int64_t>(count, 0);
}

int64_t VELArrayController::indexOf(VELGenericType value, bool isSorted, VELArraySearchMode mode) {
  return VELArraySearch{data(), _type, _count, 0}.indexOf(value, isSorted, mode);
}

void VELArrayController::copyOrdered(void* target, int64_t head) const {
  const auto bytes = [this](int64_t count) { return static_cast<size_t>(count * dataTypeSize()); };
  if (_count == 0) return;
  std::memcpy(target, slot(head), bytes(_count - head));
  std::memcpy(static_cast<std::byte*>(target) + bytes(_count - head), data(), bytes(head));
}

void VELArrayController::copyToArray(VELRawBuffer& array, int64_t& count, VELDataType& type) const {
  VELRawBuffer copy;
  copy.resize(static_cast<size_t>(_count * dataTypeSize()));
  copyOrdered(copy.data(), 0);
  array = std::move(copy);
  count = _count;
  type = _type;
}

void VELArrayController::reverse() {
  VELVisitElementType(_type, [&](auto element) {
    auto* first = static_cast<typename decltype(element)::type*>(data());
    std::reverse(first, first + _count);
  });
}

std::shared_ptr<VELArrayController> VELArrayController::clone() const {
  auto copy = initWithType(_type, _count);
  copy->setCount(_count);
  copyOrdered(copy->data(), 0);
  return copy;
}
