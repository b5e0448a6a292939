// data/array_controller_fifo.h: a column that keeps only the newest values.
#pragma once

#include "velmora/data/array_controller.h"

/// A ring of fixed capacity: once full, each append overwrites the oldest element.
///
/// Always true: the capacity never changes and appends never move data; `headIndex` is not 0 only while the
/// ring is full. Indices are logical, 0 is the oldest; `data` and the spans are physical until
/// `normalizeIndices`. Inserts and bulk appends do nothing at all, on purpose: a ring takes its values one by
/// one. A ring of capacity 0 ignores every value.
class VELMORA_API VELArrayControllerFIFO : public VELArrayController {
 public:
  /// @return null when the type is no storage type or the size is negative
  static std::shared_ptr<VELArrayControllerFIFO> initWithType(VELDataType type, int64_t size);
  ~VELArrayControllerFIFO() override;

  /// Physical index of the oldest element.
  int64_t headIndex() const { return _head; }
  /// Rotates the buffer so that physical and logical order agree.
  void normalizeIndices();

  VELGenericType valueAt(int64_t index) const override;
  void setValue(VELGenericType value, int64_t index) override;
  void append(VELGenericType value) override;
  void appendRange(VELNumberSpan) override {}
  void appendRange(VELGenericType, int64_t) override {}
  void insertValue(VELGenericType, int64_t) override {}
  void insertRange(VELNumberSpan, int64_t) override {}
  void insertRange(VELGenericType, int64_t, int64_t) override {}
  void removeRangeFrom(int64_t start, int64_t count) override;
  void clear() override;
  /// Frees the buffers; the capacity is gone with them.
  void purge() override;
  /// Normalises, then sets the count to at most the capacity; never reallocates.
  void setCount(int64_t count) override;
  /// Normalises first unless the mode is exact.
  int64_t indexOf(VELGenericType value, bool isSorted, VELArraySearchMode mode) override;
  /// In logical order, which decides where a float column ends.
  void getRangeMin(double& min, double& max) const override;
  void copyToArray(VELRawBuffer& array, int64_t& count, VELDataType& type) const override;
  void reverse() override;
  std::shared_ptr<VELArrayController> clone() const override;

 protected:
  explicit VELArrayControllerFIFO(VELDataType type) : VELArrayController(type) {}

 private:
  void p_VEL_createSwapDataArrayWithSize(int64_t size);
  int64_t physicalIndex(int64_t index) const;
  void appendOne(VELGenericType value);

  int64_t _head = 0;
  VELRawBuffer _swap;
};
