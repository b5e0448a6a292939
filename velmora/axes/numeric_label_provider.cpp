#include "velmora/axes/numeric_label_provider.h"

#include "velmora/axes/axis_core.h"
#include "velmora/axes/number_format.h"
#include "velmora/platform/number_formatter.h"

std::string VELNumericLabelProvider::formatLabel(const VELGenericType& value) const {
  const auto axis = parentAxis();
  if (!axis) return formatTex(value, "%g");
  if (!axis->textFormatting().empty()) return formatTex(value, axis->textFormatting());
  if (axis->numberFormatter()) return axis->numberFormatter()->stringFromNumber(VELGenericDouble(value));
  return formatTex(value, "%g");
}

std::string VELNumericLabelProvider::formatCursorLabel(const VELGenericType& value) const {
  const auto axis = parentAxis();
  if (axis && !axis->cursorTextFormatting().empty()) return formatTex(value, axis->cursorTextFormatting());
  return formatLabel(value);
}

std::string VELNumericLabelProvider::formatTex(const VELGenericType& value, std::string_view format) const {
  return VELFormatNumber(VELGenericDouble(value), format);
}
