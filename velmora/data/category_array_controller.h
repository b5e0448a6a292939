// data/category_array_controller.h: a column whose elements stand for themselves, one place each.
//
// Who draws sees the places; who labels them asks for the values.
#pragma once

#include <cstdint>
#include <memory>

#include "velmora/data/array_controller.h"

/// A column that keeps its values and presents each by its index, for category axes.
///
/// Always true: `view()`, `valueAt`, `indexOf` and `getRangeMin` speak of indices, whatever the values are;
/// `data()`, the spans, `copyToArray` and `getCategoryValueAtIndex` of values; `view().data[i]` is i for
/// every i below the count.
class VELMORA_API VELCategoryArrayController : public VELArrayController {
 public:
  /// @param type the storage type of the values, 1 to 7
  /// @return null when the type is no storage type
  static std::shared_ptr<VELCategoryArrayController> initWithType(VELDataType type, int64_t size = 0);
  ~VELCategoryArrayController() override;

  /// The value that the category at an index stands for, tagged with the storage type; tag None outside.
  VELGenericType getCategoryValueAtIndex(int64_t index) const { return VELArrayController::valueAt(index); }

  /// The index itself as Int32; a Float NaN outside the column.
  VELGenericType valueAt(int64_t index) const override;
  /// The indices as Int32.
  VELColumnView view() const override;
  /// 0 and the count: one more than the last index, on purpose; the last category has a width, too.
  void getRangeMin(double& min, double& max) const override;
  /// Searches the indices, which are sorted whatever the values are; the flag only decides which modes are
  /// allowed.
  int64_t indexOf(VELGenericType value, bool isSorted, VELArraySearchMode mode) override;

  void setValue(VELGenericType value, int64_t index) override;
  void append(VELGenericType value) override;
  using VELArrayController::appendRange;
  void appendRange(VELNumberSpan values) override;
  void insertValue(VELGenericType value, int64_t index) override;
  using VELArrayController::insertRange;
  void insertRange(VELNumberSpan values, int64_t index) override;
  void removeRangeFrom(int64_t start, int64_t count) override;
  void clear() override;
  void purge() override;
  void setCount(int64_t count) override;
  void reverse() override;
  std::shared_ptr<VELArrayController> clone() const override;

 protected:
  explicit VELCategoryArrayController(VELDataType type) : VELArrayController(type) {}
  bool isOwn(const void* values) const override;

 private:
  void p_VEL_refreshIndecies();

  VELRawBuffer _dataIndecies;
  int32_t _maxSizeDataIndecies = 0;
  int32_t _currentCountIndecies = 0;
};
