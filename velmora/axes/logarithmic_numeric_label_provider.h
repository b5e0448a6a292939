// axes/logarithmic_numeric_label_provider.h: the text of a number as a power.
#pragma once

#include <optional>
#include <string>

#include "velmora/axes/numeric_label_provider.h"
#include "velmora/platform/export.h"
#include "velmora/platform/text.h"

/// Texts of logarithmic axes: mantissa, base and exponent, as in 1x10 with a small raised 3.
///
/// Numbers that have no power, those that are not positive or not finite, read "%g". On an axis that is not
/// logarithmic the texts are those of a numeric one.
class VELMORA_API VELLogarithmicNumericLabelProvider : public VELNumericLabelProvider {
 public:
  /// In plain letters, "1x103" for 1000; the natural base is "e".
  std::string formatLabel(const VELGenericType& value) const override;
  /// In attributed text: the exponent in 0.7 times the font, raised; the natural base is "E", on purpose
  /// another letter than in `formatLabel`.
  void updateDataContextWithContext(VELDefaultTickLabel& label, const VELGenericType& value,
                                    const VELTextFormattingStyle* style) const override;

 private:
  /// The look of an exponent beside a font.
  struct ExponentStyle {
    VELFont besideFont;
    VELFont font;
    double raise = 0.0;  ///< points
  };

  const ExponentStyle& exponentStyle(const VELFont& font) const;

  // Of the font that was asked for last: capitals are measured once, not for each label.
  mutable std::optional<ExponentStyle> _exponentStyle;
};
