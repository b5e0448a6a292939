// axes/category_axis_base.h: what axes of categories have in common.
#pragma once

#include <memory>
#include <string>

#include "velmora/axes/axis_base.h"
#include "velmora/platform/export.h"

class VELCategoryArrayController;

/// An axis on which values are evenly spaced whatever they are: it counts their indices.
///
/// Ranges are double ranges of indices. The category of index i fills the slot from i − 0.5 to i + 0.5;
/// ranges from the data show whole slots. Major steps are whole and at least 1. Tick labels get the value of
/// their category, cursor labels the index.
class VELMORA_API VELCategoryAxisBase : public VELAxisBase {
 public:
  VELCategoryAxisBase();
  ~VELCategoryAxisBase() override;
  std::string className() const override { return "VELCategoryAxisBase"; }

  bool isCategoryAxis() const override { return true; }
  /// The categories: the category column, of this axis' direction, of the first series that hangs on this
  /// axis and has one; null for none.
  std::shared_ptr<VELCategoryArrayController> categoryController() const;

  VELDeltaCalculator& getDeltaCalculator() const override;
  /// 0 to 10.
  VELRangePtr getDefaultNonZeroRange() const override;
  bool isRangeOfValidType(const VELRange& range) const override;
  /// The value of the category at an index; the index itself where there is no such category.
  VELGenericType labelValue(double tick) const override;

 protected:
  std::string validRangeClassName() const override { return "VELDoubleRange"; }
  VELRangePtr seriesXRange(const VELAxisSeries& series) const override;
  VELRangePtr seriesYRange(const VELAxisSeries& series, const VELRange& xRange) const override;
};
