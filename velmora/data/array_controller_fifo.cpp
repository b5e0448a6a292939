#include "velmora/data/array_controller_fifo.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "velmora/data/array_search.h"

VELArrayControllerFIFO::~VELArrayControllerFIFO() = default;

std::shared_ptr<VELArrayControllerFIFO> VELArrayControllerFIFO::initWithType(VELDataType type, int64_t size) {
  struct Made : VELArrayControllerFIFO {
    explicit Made(VELDataType storage) : VELArrayControllerFIFO(storage) {}
  };
  if (!VELIsNumericType(type) || size < 0) return nullptr;
  auto controller = std::make_shared<Made>(type);
  controller->p_VEL_createDataArrayWithSize(size);
  controller->p_VEL_createSwapDataArrayWithSize(size);
  return controller;
}

void VELArrayControllerFIFO::p_VEL_createSwapDataArrayWithSize(int64_t size) {
  // The data buffer of the same size was made before, so the product is known to fit.
  if (size >= 1) _swap.resize(static_cast<size_t>(size * dataTypeSize()));
}

int64_t VELArrayControllerFIFO::physicalIndex(int64_t index) const {
  const int64_t physical = index + _head;
  return physical >= _count ? physical - _count : physical;
}

void VELArrayControllerFIFO::normalizeIndices() {
  if (_head == 0) return;
  copyOrdered(_swap.data(), _head);
  std::swap(_data, _swap);
  _head = 0;
}

VELGenericType VELArrayControllerFIFO::valueAt(int64_t index) const {
  return index >= 0 && index < _count ? load(physicalIndex(index)) : VELGenericType();
}

void VELArrayControllerFIFO::setValue(VELGenericType value, int64_t index) {
  if (index >= 0 && index < _count) store(value, physicalIndex(index));
}

void VELArrayControllerFIFO::append(VELGenericType value) {
  if (_maxSize == 0) return;
  // The usual case: a double, date or 64-bit integer into a full ring of its own type. The general way below
  // does the same.
  if (value.type == _type && _count == _maxSize && dataTypeSize() == sizeof(value.data)) {
    std::memcpy(slot(_head), &value.data, sizeof(value.data));
    _head = _head + 1 == _count ? 0 : _head + 1;
    return;
  }
  assertAccepts(value.type);
  const VELArray* dates = VELGenericArray(value);
  if (dates == nullptr || _type != VELDataType_DateTime) return appendOne(value);
  for (const VELGenericType& date : *dates) {
    assertIsDate(date);
    appendOne(date);
  }
}

void VELArrayControllerFIFO::appendOne(VELGenericType value) {
  if (_count < _maxSize) {
    if (store(value, _count)) ++_count;
  } else if (store(value, _head)) {
    _head = _head + 1 == _count ? 0 : _head + 1;
  }
}

void VELArrayControllerFIFO::removeRangeFrom(int64_t start, int64_t count) {
  normalizeIndices();
  VELArrayController::removeRangeFrom(start, count);
}

void VELArrayControllerFIFO::clear() {
  _head = 0;
  VELArrayController::clear();
}

void VELArrayControllerFIFO::purge() {
  _head = 0;
  _swap.free();
  VELArrayController::purge();
}

void VELArrayControllerFIFO::setCount(int64_t count) {
  normalizeIndices();
  VELArrayController::setCount(std::min(count, _maxSize));
}

int64_t VELArrayControllerFIFO::indexOf(VELGenericType value, bool isSorted, VELArraySearchMode mode) {
  if (mode != VELArraySearchMode_Exact) normalizeIndices();
  return VELArraySearch{data(), _type, _count, _head}.indexOf(value, isSorted, mode);
}

void VELArrayControllerFIFO::getRangeMin(double& min, double& max) const { rangeFrom(_head, min, max); }

void VELArrayControllerFIFO::copyToArray(VELRawBuffer& array, int64_t& count, VELDataType& type) const {
  VELArrayController::copyToArray(array, count, type);
  copyOrdered(array.data(), _head);
}

void VELArrayControllerFIFO::reverse() {
  normalizeIndices();
  VELArrayController::reverse();
}

std::shared_ptr<VELArrayController> VELArrayControllerFIFO::clone() const {
  auto copy = initWithType(_type, _maxSize);
  copy->setCount(_count);
  copyOrdered(copy->data(), _head);
  return copy;
}
