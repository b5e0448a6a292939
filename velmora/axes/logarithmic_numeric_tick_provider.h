// axes/logarithmic_numeric_tick_provider.h: ticks at the powers of a base.
#pragma once

#include <memory>
#include <vector>

#include "velmora/axes/numeric_tick_provider.h"
#include "velmora/platform/export.h"

/// Ticks of logarithmic axes. The major step counts exponents, the minor step is a fraction of the major tick
/// below (see `VELNiceLogScale`).
///
/// Always true: a major tick is base^(start + k × step), ascending; minors go up step by step and on purpose
/// down inside each step; no list is longer than `maxTicksPerPass`. Majors start at the power at or below the
/// minimum, minors reach one major step further at both ends; without majors there are no minors. A range
/// below zero has the negated ticks of its magnitudes. A range that touches zero, and a base of 1 or that is
/// no positive number, have none.
class VELMORA_API VELLogarithmicNumericTickProvider : public VELNumericTickProvider {
 public:
  /// 10 until set; a base below 1 means its reciprocal, which has the same powers. A logarithmic axis sets
  /// its own.
  double logarithmicBase() const { return _logarithmicBase; }
  void setLogarithmicBase(double base) { _logarithmicBase = base; }

  std::shared_ptr<VELArrayController> calculateMajorTicksWithRange(const VELRange& range,
                                                                   const VELAxisDelta& delta) override;
  std::shared_ptr<VELArrayController> calculateMinorTicksWithRange(const VELRange& range,
                                                                   const VELAxisDelta& delta) override;

 private:
  /// Fills `_powers` with the major ticks of the magnitudes of the range, ascending.
  void listPowers(const VELRange& range, double base, double majorDelta);

  double _logarithmicBase = 10.0;
  // Kept for their memory.
  std::vector<double> _powers;
  std::vector<double> _minors;
};
