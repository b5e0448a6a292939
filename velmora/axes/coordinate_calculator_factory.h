// axes/coordinate_calculator_factory.h: which calculator an axis gets.
#pragma once

#include <memory>

#include "velmora/axes/axis_params.h"
#include "velmora/axes/coordinate_calculator.h"

/// Makes coordinate calculators.
class VELMORA_API VELCoordinateCalculatorFactory {
 public:
  /// A new calculator. An upright X axis and a flipped Y axis start with the minimum, the other two with
  /// the maximum.
  /// @throws VELInternalInconsistencyException for a polar axis or a category axis with a point series
  static std::shared_ptr<VELCoordinateCalculator> getInstance(const VELAxisParams& params);

 private:
  static std::shared_ptr<VELCoordinateCalculator> p_VEL_getDoulbeCoordinateCalculator(
      const VELAxisParams& params, bool shouldFlip);
};
