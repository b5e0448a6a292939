// axes/numeric_label_provider.h: the text of a number.
#pragma once

#include <string>
#include <string_view>

#include "velmora/axes/label_provider.h"
#include "velmora/platform/export.h"

/// Texts of numeric axes.
///
/// The axis' text format wins, else its number formatter, else "%g", which also hides the noise of sums of
/// decimal fractions.
class VELMORA_API VELNumericLabelProvider : public VELLabelProviderBase {
 public:
  std::string formatLabel(const VELGenericType& value) const override;
  std::string formatCursorLabel(const VELGenericType& value) const override;
  /// The value, as a double, in a printf format. A format is used only when it holds exactly one
  /// floating-point conversion (flags, width and precision allowed, "%%" too); any other counts as "%g".
  std::string formatTex(const VELGenericType& value, std::string_view format) const;
};
