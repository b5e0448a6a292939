#include "velmora/data/distribution_calculator.h"

#include <algorithm>

#include "velmora/data/array_controller.h"
#include "velmora/platform/exception.h"

namespace {

[[noreturn]] void raiseNotImplemented() {
  // The name is spelled so on purpose: applications compare it.
  throw VELException("Operation excpetion", "Method not implemented");
}

/// No element of [first, last) is below the one before it. NaN is below nothing and nothing is below NaN.
bool ascends(const VELArrayController& controller, int64_t first, int64_t last) {
  // What readers see: of categories that is their index, which never descends.
  return VELVisitElements(controller.view(), [first, last](const auto* values) {
    for (int64_t i = std::max<int64_t>(first, 1); i < last; ++i) {
      if (static_cast<double>(values[i]) < static_cast<double>(values[i - 1])) return false;
    }
    return true;
  });
}

/// The same in logical order, for the few values around an update, which may hit a rotated ring.
bool ascendsAround(const VELArrayController& controller, int64_t index) {
  if (index < 0 || index >= controller.count()) return true;
  const int64_t last = std::min(index + 1, controller.count() - 1);
  for (int64_t i = std::max<int64_t>(index, 1); i <= last; ++i) {
    if (VELGenericDouble(controller.valueAt(i)) < VELGenericDouble(controller.valueAt(i - 1))) return false;
  }
  return true;
}

}  // namespace

void VELDataDistributionCalculatorBase::onAppendValueInArrayController(const VELArrayController&, int64_t,
                                                                       bool) {
  raiseNotImplemented();
}

void VELDataDistributionCalculatorBase::onUpdateValueInArrayController(const VELArrayController&, int64_t,
                                                                       bool) {
  raiseNotImplemented();
}

void VELDataDistributionCalculatorBase::onInsertValueInArrayController(const VELArrayController&, int64_t,
                                                                       int64_t, bool) {
  raiseNotImplemented();
}

void VELDataDistributionCalculatorBase::updateDataDistributionFlagsWhenRemovedXValues() {
  _dataIsEvenlySpaced = false;
}

void VELDataDistributionCalculatorBase::clear() {
  _dataIsSortedAscending = true;
  _dataIsEvenlySpaced = true;
}

void VELUserDefinedDistributionCalculator::onAppendValueInArrayController(
    const VELArrayController& controller, int64_t count, bool acceptsUnsortedData) {
  if (!dataIsSortedAscending()) return;
  // Of a full ring nothing is looked at: it has not grown.
  noteOrder(ascends(controller, controller.count() - count, controller.count()), acceptsUnsortedData);
}

void VELUserDefinedDistributionCalculator::onUpdateValueInArrayController(
    const VELArrayController& controller, int64_t index, bool acceptsUnsortedData) {
  if (!dataIsSortedAscending()) return;
  noteOrder(ascendsAround(controller, index), acceptsUnsortedData);
}

void VELUserDefinedDistributionCalculator::onInsertValueInArrayController(
    const VELArrayController& controller, int64_t index, int64_t count, bool acceptsUnsortedData) {
  if (!dataIsSortedAscending()) return;
  if (index < 0 || index >= controller.count()) return;
  // One more than was put in: the value behind must not be below the last of the new ones.
  const int64_t last = index + std::min(count, controller.count() - index - 1) + 1;
  noteOrder(ascends(controller, index, last), acceptsUnsortedData);
}

void VELUserDefinedDistributionCalculator::clear() { setDataIsSortedAscending(true); }

void VELUserDefinedDistributionCalculator::noteOrder(bool ascending, bool acceptsUnsortedData) {
  if (ascending) return;
  setDataIsSortedAscending(false);
  if (acceptsUnsortedData) return;
  throw VELException("Operation exception", "Data series can accepts only sorted data");
}
