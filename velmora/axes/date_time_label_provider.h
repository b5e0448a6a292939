// axes/date_time_label_provider.h: the text of a moment.
#pragma once

#include <optional>
#include <string>

#include "velmora/axes/label_provider.h"
#include "velmora/platform/date.h"
#include "velmora/platform/date_formatter.h"
#include "velmora/platform/export.h"

class VELDateTimeFormatting;

/// Texts of date-time axes, in the patterns, the time zone and the locale of the axis
/// (axes/date_time_formatting.h). A value that is no date has an empty text; a pattern that means nothing is
/// passed over for "yyyy-MM-dd".
class VELMORA_API VELDateTimeLabelProvider : public VELLabelProviderBase {
 public:
  /// In the axis' `textFormatting` when it shows more than 86400 seconds, else in its `subDayTextFormatting`.
  /// @throws VELInternalInconsistencyException when the axis is no date-time axis
  std::string formatLabel(const VELGenericType& value) const override;
  /// In the axis' `cursorTextFormatting`, else as a label. @throws as above
  std::string formatCursorLabel(const VELGenericType& value) const override;

 protected:
  /// A date in a pattern, on the clocks and in the language of an axis.
  std::string formatDate(const VELGenericType& date, const std::string& pattern,
                         const VELDateTimeFormatting& formatting) const;
  /// The formatter's pattern, "yyyy-MM-dd" at first; that of the text made last.
  const std::string& lastPattern() const { return _formatter.pattern(); }

 private:
  void applyPattern(const std::string& pattern) const;

  mutable VELDateFormatter _formatter;
  mutable std::optional<std::string> _refusedPattern;  ///< the last one that means nothing
};
