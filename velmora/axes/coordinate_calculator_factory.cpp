#include "velmora/axes/coordinate_calculator_factory.h"

#include "velmora/axes/double_coordinate_calculator.h"
#include "velmora/axes/flipped_double_coordinate_calculator.h"
#include "velmora/axes/logarithmic_double_coordinate_calculator.h"
#include "velmora/data/recycled.h"
#include "velmora/platform/exception.h"

namespace {

[[noreturn]] void raiseNoCalculator() {
  // The text says tick for coordinate; applications may look for it as it is.
  throw VELInternalInconsistencyException("Unable to create tick calculator instance");
}

}  // namespace

std::shared_ptr<VELCoordinateCalculator> VELCoordinateCalculatorFactory::getInstance(
    const VELAxisParams& params) {
  if (params.isCategoryAxis && params.categoryPointSeries) raiseNoCalculator();
  if (!params.isLogarithmicAxis && params.isPolarAxis) raiseNoCalculator();

  std::shared_ptr<VELCoordinateCalculator> calculator;
  if (params.isLogarithmicAxis) {
    calculator = VELMakeRecycled<VELLogarithmicDoubleCoordinateCalculator>(
        params.size, params.visibleMin, params.visibleMax, params.logarithmicBase, params.isXAxis,
        params.isHorizontal, params.flipCoordinates);
  } else {
    calculator = p_VEL_getDoulbeCoordinateCalculator(params, params.isXAxis != params.flipCoordinates);
  }
  calculator->setCoordinatesOffset(params.offset);
  calculator->setIsPolarAxisCalculator(params.isPolarAxis);
  return calculator;
}

std::shared_ptr<VELCoordinateCalculator> VELCoordinateCalculatorFactory::p_VEL_getDoulbeCoordinateCalculator(
    const VELAxisParams& params, bool shouldFlip) {
  if (shouldFlip) {
    return VELMakeRecycled<VELFlippedDoubleCoordinateCalculator>(params.size, params.visibleMin,
                                                                 params.visibleMax, params.isXAxis,
                                                                 params.isHorizontal, params.flipCoordinates);
  }
  return VELMakeRecycled<VELDoubleCoordinateCalculator>(params.size, params.visibleMin, params.visibleMax,
                                                        params.isXAxis, params.isHorizontal,
                                                        params.flipCoordinates);
}
