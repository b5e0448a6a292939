// plot/log_ticks.h: ticks of a logarithmic axis that read as plain numbers.
#pragma once

#include <memory>

#include "velmora/axes/logarithmic_numeric_tick_provider.h"

/// Powers of ten (majors of the axis' own kind stand at broken powers when few powers are in sight), for less
/// than three of them 1, 2 and 5 times each, for less than one the steps of a linear axis.
class PlainLogTicks : public VELLogarithmicNumericTickProvider {
 public:
  /// From so many powers of ten on the axis' own ticks and labels serve.
  static constexpr double manyPowers = 5.0;

  std::shared_ptr<VELArrayController> calculateMajorTicksWithRange(const VELRange& range,
                                                                   const VELAxisDelta& delta) override;
  std::shared_ptr<VELArrayController> calculateMinorTicksWithRange(const VELRange& range,
                                                                   const VELAxisDelta& delta) override;
};

/// Powers of ten between two bounds above zero.
double powersBetween(double lowest, double highest);
