#include "velmora/data/category_array_controller.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

#include "velmora/data/array_search.h"

VELCategoryArrayController::~VELCategoryArrayController() = default;

std::shared_ptr<VELCategoryArrayController> VELCategoryArrayController::initWithType(VELDataType type,
                                                                                     int64_t size) {
  struct Made : VELCategoryArrayController {
    explicit Made(VELDataType storage) : VELCategoryArrayController(storage) {}
  };
  if (!VELIsNumericType(type)) return nullptr;
  auto controller = std::make_shared<Made>(type);
  controller->p_VEL_createDataArrayWithSize(size);
  return controller;
}

void VELCategoryArrayController::p_VEL_refreshIndecies() {
  constexpr int64_t most = std::numeric_limits<int32_t>::max();
  const auto capacity = static_cast<int32_t>(std::min(_maxSize, most));
  const auto filled = static_cast<int32_t>(std::min(_count, most));
  if (capacity != _maxSizeDataIndecies) {
    _dataIndecies.resize(static_cast<size_t>(capacity) * sizeof(int32_t));
    _maxSizeDataIndecies = capacity;
    _currentCountIndecies = std::min(_currentCountIndecies, capacity);
  }
  // Slots once filled hold what they must for as long as the buffer lives.
  auto* indices = static_cast<int32_t*>(_dataIndecies.data());
  for (int32_t i = _currentCountIndecies; i < filled; ++i) indices[i] = i;
  _currentCountIndecies = filled;
}

bool VELCategoryArrayController::isOwn(const void* values) const {
  const std::less<const void*> before;
  const auto* indices = static_cast<const int32_t*>(_dataIndecies.data());
  const bool isIndex =
      indices != nullptr && !before(values, indices) && before(values, indices + _currentCountIndecies);
  return isIndex || VELArrayController::isOwn(values);
}

VELGenericType VELCategoryArrayController::valueAt(int64_t index) const {
  const VELColumnView indices = view();
  if (index < 0 || index >= indices.count) return std::numeric_limits<float>::quiet_NaN();
  return static_cast<int32_t>(index);
}

VELColumnView VELCategoryArrayController::view() const {
  return {VELDataType_Int32, _dataIndecies.data(), _currentCountIndecies};
}

void VELCategoryArrayController::getRangeMin(double& min, double& max) const {
  min = 0.0;
  max = static_cast<double>(count());
}

int64_t VELCategoryArrayController::indexOf(VELGenericType value, bool isSorted, VELArraySearchMode mode) {
  const VELColumnView indices = view();
  return VELArraySearch{indices.data, indices.type, indices.count, 0}.indexOf(value, isSorted, mode);
}

// A column of plain values does each of these; what is left is one index per value.

void VELCategoryArrayController::setValue(VELGenericType value, int64_t index) {
  VELArrayController::setValue(value, index);
  p_VEL_refreshIndecies();
}

void VELCategoryArrayController::append(VELGenericType value) {
  try {
    VELArrayController::append(value);
  } catch (...) {
    // Of an array that holds no dates only, those before the fault stay.
    p_VEL_refreshIndecies();
    throw;
  }
  p_VEL_refreshIndecies();
}

void VELCategoryArrayController::appendRange(VELNumberSpan values) {
  VELArrayController::appendRange(values);
  p_VEL_refreshIndecies();
}

void VELCategoryArrayController::insertValue(VELGenericType value, int64_t index) {
  VELArrayController::insertValue(value, index);
  p_VEL_refreshIndecies();
}

void VELCategoryArrayController::insertRange(VELNumberSpan values, int64_t index) {
  VELArrayController::insertRange(values, index);
  p_VEL_refreshIndecies();
}

void VELCategoryArrayController::removeRangeFrom(int64_t start, int64_t count) {
  VELArrayController::removeRangeFrom(start, count);
  p_VEL_refreshIndecies();
}

void VELCategoryArrayController::clear() {
  VELArrayController::clear();
  p_VEL_refreshIndecies();
}

void VELCategoryArrayController::purge() {
  VELArrayController::purge();
  _dataIndecies.free();
  _maxSizeDataIndecies = 0;
  _currentCountIndecies = 0;
}

void VELCategoryArrayController::setCount(int64_t count) {
  VELArrayController::setCount(count);
  p_VEL_refreshIndecies();
}

void VELCategoryArrayController::reverse() {
  VELArrayController::reverse();
  p_VEL_refreshIndecies();
}

std::shared_ptr<VELArrayController> VELCategoryArrayController::clone() const {
  auto copy = initWithType(_type, _count);
  copy->setCount(_count);
  copyOrdered(copy->data(), 0);
  return copy;
}
