// data/distribution_calculator.h: what is known of how the x values of a series lie.
//
// Values live in data/array_controller.h; who asks for the flags is data/data_series.h.
#pragma once

#include <cstdint>

#include "velmora/platform/export.h"

class VELArrayController;

/// Two flags about an x column and the events that keep them.
///
/// An application may derive its own calculator, or set the flags of the usual one where it knows its data
/// better: nothing here measures the spacing. An event leaves the points of the series as they are.
class VELMORA_API VELDataDistributionCalculatorBase {
 public:
  virtual ~VELDataDistributionCalculatorBase() = default;

  /// No x value is below the one before it. True at first and after `clear`.
  bool dataIsSortedAscending() const { return _dataIsSortedAscending; }
  void setDataIsSortedAscending(bool sorted) { _dataIsSortedAscending = sorted; }
  /// Neighbouring x values are equally far apart. True at first and after `clear`.
  bool dataIsEvenlySpaced() const { return _dataIsEvenlySpaced; }
  void setDataIsEvenlySpaced(bool evenly) { _dataIsEvenlySpaced = evenly; }

  /// The column has grown by its last @p count values, in storage order. On purpose 0 for a full ring, which
  /// grows no more: what it took, and in what place of its buffer, is not said.
  /// @throws VELException "Operation excpetion" in this base, which knows no rule
  virtual void onAppendValueInArrayController(const VELArrayController& controller, int64_t count,
                                              bool acceptsUnsortedData);
  /// The value at @p index, inside the column, was replaced.
  /// @throws VELException as above
  virtual void onUpdateValueInArrayController(const VELArrayController& controller, int64_t index,
                                              bool acceptsUnsortedData);
  /// @p count values were put in at @p index.
  /// @throws VELException as above
  virtual void onInsertValueInArrayController(const VELArrayController& controller, int64_t index,
                                              int64_t count, bool acceptsUnsortedData);
  /// Values were taken out: the rest is no longer evenly spaced.
  virtual void updateDataDistributionFlagsWhenRemovedXValues();
  /// The column is empty again: both flags are true.
  virtual void clear();

 private:
  bool _dataIsSortedAscending = true;
  bool _dataIsEvenlySpaced = true;
};

/// The calculator that every series makes for itself: it checks the order of what changes, once, and nothing
/// more after the first value out of order.
///
/// Always true: equal neighbours and NaN keep the data sorted; each event costs as much as what it brought.
class VELMORA_API VELUserDefinedDistributionCalculator : public VELDataDistributionCalculatorBase {
 public:
  /// @throws VELException "Operation exception" when the data is now unsorted and may not be
  void onAppendValueInArrayController(const VELArrayController& controller, int64_t count,
                                      bool acceptsUnsortedData) override;
  /// @throws VELException as above
  void onUpdateValueInArrayController(const VELArrayController& controller, int64_t index,
                                      bool acceptsUnsortedData) override;
  /// @throws VELException as above
  void onInsertValueInArrayController(const VELArrayController& controller, int64_t index, int64_t count,
                                      bool acceptsUnsortedData) override;
  /// Sorted again. Even spacing stays as it was: that flag is the user's, not the data's.
  void clear() override;

 private:
  void noteOrder(bool ascending, bool acceptsUnsortedData);
};
