// data/array_controller_2d.h: a grid of values over one column.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/data/array_controller.h"

/// xSize × ySize elements of one storage type, row by row: (x, y) stands at x + xSize × y. All are 0 at
/// first.
class VELMORA_API VELArrayController2D {
 public:
  /// @return null when the type is no storage type, a size is negative or the grid does not fit the address
  ///         space
  /// @throws std::bad_alloc when there is no room
  static std::shared_ptr<VELArrayController2D> initWithType(VELDataType type, int32_t sizeX, int32_t sizeY);
  VELArrayController2D(const VELArrayController2D&) = delete;
  VELArrayController2D& operator=(const VELArrayController2D&) = delete;

  VELDataType type() const { return _data->type(); }
  int32_t xSize() const { return _xSize; }
  int32_t ySize() const { return _ySize; }
  /// Bytes of one element.
  int32_t dataTypeSize() const { return _data->dataTypeSize(); }
  /// The raw buffer, as long as the grid lives; null for an empty grid.
  void* data() { return _data->data(); }
  const void* data() const { return static_cast<const VELArrayController&>(*_data).data(); }
  /// The buffer as a pointer-tagged value; it may only be read through it.
  VELGenericType genericData() const { return _data->genericData(); }

  /// The element tagged with the storage type; tag None outside the grid.
  VELGenericType valueAtX(int32_t x, int32_t y) const { return _data->valueAt(indexOf(x, y)); }
  /// Overwrites an element; a place outside the grid and a value that is no number are ignored.
  void setValue(VELGenericType value, int32_t x, int32_t y) { _data->setValue(value, indexOf(x, y)); }

 private:
  VELArrayController2D(std::shared_ptr<VELArrayController> data, int32_t sizeX, int32_t sizeY)
      : _data(std::move(data)), _xSize(sizeX), _ySize(sizeY) {}
  /// -1 outside the grid.
  int64_t indexOf(int32_t x, int32_t y) const {
    const bool isInside = x >= 0 && x < _xSize && y >= 0 && y < _ySize;
    return isInside ? int64_t{x} + int64_t{_xSize} * y : -1;
  }

  std::shared_ptr<VELArrayController> _data;
  int32_t _xSize;
  int32_t _ySize;
};
