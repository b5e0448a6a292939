#include "velmora/axes/coordinate_calculator_base.h"

#include <string>

#include "velmora/platform/exception.h"

namespace {

[[noreturn]] void raiseMustOverride(const char* selector) {
  throw VELInternalInconsistencyException("You must override " + std::string(selector) + " in a subclass");
}

}  // namespace

VELCoordinateCalculatorBase::~VELCoordinateCalculatorBase() = default;

double VELCoordinateCalculatorBase::getCoordinateFrom(double) const {
  raiseMustOverride("getCoordinateFrom:");
}

double VELCoordinateCalculatorBase::getCoordinateFromDate(const VELDate&) const {
  raiseMustOverride("getCoordinateFromDate:");
}

double VELCoordinateCalculatorBase::getDataValueFrom(double) const { raiseMustOverride("getDataValueFrom:"); }

std::shared_ptr<VELDoubleRange> VELCoordinateCalculatorBase::translateByPixels(
    double pixels, const VELRange& inputRange) const {
  const double distance = getDataValueFrom(pixels) - getDataValueFrom(0.0);
  const double delta = isXAxisCalculator() ? -distance : distance;
  return std::make_shared<VELDoubleRange>(VELGenericDouble(inputRange.min()) + delta,
                                          VELGenericDouble(inputRange.max()) + delta);
}

std::shared_ptr<VELDoubleRange> VELCoordinateCalculatorBase::translateByMinFraction(
    double minFraction, double maxFraction, const VELRange& inputRange) const {
  auto result = std::make_shared<VELDoubleRange>(inputRange.min(), inputRange.max());
  result->growMinBy(minFraction, maxFraction);
  return result;
}
