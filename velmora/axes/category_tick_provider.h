// axes/category_tick_provider.h: ticks at the indices of categories.
//
// Units: indices into the category column of the axis.
#pragma once

#include <memory>

#include "velmora/axes/date_time_tick_provider.h"
#include "velmora/axes/numeric_tick_provider.h"
#include "velmora/platform/export.h"

class VELCategoryArrayController;

/// Lists whole indices that exist and are visible.
///
/// Always true: lists are VELDataType_Double columns; major ticks are multiples of the major step, minor
/// ticks multiples of the minor step but not of the major one; steps count as whole numbers of at least 1.
class VELMORA_API VELCategoryNumericTickProvider : public VELNumericTickProvider {
 public:
  std::shared_ptr<VELArrayController> getMajorTicksFromAxis(const VELAxisCore& axis) override;
  std::shared_ptr<VELArrayController> getMinorTicksFromAxis(const VELAxisCore& axis) override;
};

/// The same for categories that are dates.
class VELMORA_API VELCategoryDateTimeTickProvider : public VELDateTimeTickProvider {
 public:
  std::shared_ptr<VELArrayController> getMajorTicksFromAxis(const VELAxisCore& axis) override;
  std::shared_ptr<VELArrayController> getMinorTicksFromAxis(const VELAxisCore& axis) override;
};
