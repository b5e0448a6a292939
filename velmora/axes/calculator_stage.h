// axes/calculator_stage.h: the step value → coordinate as a type of its own.
//
// A loop over points asks once which mapping it has and then runs with that mapping inlined: no call
// through a pointer per point.
#pragma once

#include <utility>

#include "velmora/axes/coordinate_calculator.h"
#include "velmora/axes/double_coordinate_calculator.h"
#include "velmora/axes/flipped_double_coordinate_calculator.h"
#include "velmora/axes/logarithmic_double_coordinate_calculator.h"

/// A mapping of the library: calls are inlined. The numbers are copied, the calculator may go.
template <class Info>
struct VELCalculatorStage {
  Info info;
  double operator()(double value) const noexcept { return info.coordinate(value); }
};

/// Any other mapping: calls go through its helper, whose calculator must outlive the stage.
template <>
struct VELCalculatorStage<VELCalculatorHelper> {
  VELCalculatorHelper info;
  double operator()(double value) const { return info.function(info.info, value); }
};

/// Calls @p use once with the stage for a helper; `stage(value)` is the coordinate, exactly as the helper's
/// function gives it. Does nothing for a helper without function.
template <class Use>
void VELWithCalculatorStage(const VELCalculatorHelper& helper, Use&& use) {
  if (!helper.function) return;
  if (helper.function == &p_VEL_DoubleCoordCalc_getCoordinate) {
    using Info = VELDoubleCalculatorInfo;
    std::forward<Use>(use)(VELCalculatorStage<Info>{*static_cast<const Info*>(helper.info)});
  } else if (helper.function == &p_VEL_FlippedDoubleCoordCalc_getCoordinate) {
    using Info = VELFlippedDoubleCalculatorInfo;
    std::forward<Use>(use)(VELCalculatorStage<Info>{*static_cast<const Info*>(helper.info)});
  } else if (helper.function == &p_VEL_LogarithmicDoubleCoordCalc_getCoordinate) {
    using Info = VELLogarithmicCalculatorInfo;
    std::forward<Use>(use)(VELCalculatorStage<Info>{*static_cast<const Info*>(helper.info)});
  } else {
    std::forward<Use>(use)(VELCalculatorStage<VELCalculatorHelper>{helper});
  }
}
