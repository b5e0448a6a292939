// plot/label_formats.h: how values are written so that neighbouring labels read differently.
#pragma once

#include <string>

#include "velmora/axes/numeric_label_provider.h"
#include "velmora/platform/calendar.h"

/// A printf format for the labels of numbers from @p lowest to @p highest; empty where "%g" serves.
std::string numberFormat(double lowest, double highest);

/// Whether labels of these numbers are short in millions: they are large, and their steps too.
bool readInMillions(double lowest, double highest);

/// Writes numbers in millions: 20000000 is "20M".
class MillionsLabelProvider : public VELNumericLabelProvider {
 public:
  std::string formatLabel(const VELGenericType& value) const override;
};

/// Patterns for the labels of dates.
struct DatePatterns {
  std::string label;
  std::string context;  ///< what all labels have in common and leave out; empty for nothing
};

/// Patterns for labels of a range of dates in seconds since 1970, UTC.
/// @param step seconds between two labels
/// @param onWholeUnits labels stand at the beginning of years, months or days; else a year or a month alone
///                     would not say where a label stands
DatePatterns datePatterns(double first, double last, double step, bool onWholeUnits,
                          const VELCalendar& calendar);
